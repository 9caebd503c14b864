// SPDX-License-Identifier: GPL-3.0-or-later
#include "axis_drawing.h"
#include "graph_test.h"

namespace orb {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::SizeIs;

class GraphMouseTest : public GraphTest {
protected:
    GraphMouseTest()
    {
        graph.axis(1).SetMinMax(0, 100);
        graph.axis(2).SetMinMax(0, 10);
        graph.axis(3).SetMinMax(0, 50);
        graph.repaintNow();
        graph.onClick = [this] { ++clicks; };
        graph.onCursorChange = [this](double x, double y) { moves.emplace_back(x, y); };
    }

    void expectRange(int axis, double minimum, double maximum)
    {
        const double slack = (maximum - minimum) / 100; // a pixel or two
        EXPECT_NEAR(graph.axis(axis).minimum(), minimum, slack) << "axis " << axis;
        EXPECT_NEAR(graph.axis(axis).maximum(), maximum, slack) << "axis " << axis;
    }

    int clicks = 0;
    std::vector<std::pair<double, double>> moves;
};

TEST_F(GraphMouseTest, ARectangleZoomsAllAxes)
{
    graph.setTrackMode(Graph::TrackZoom);
    drag(pixel(20, 8), pixel(60, 3));
    expectRange(1, 20, 60);
    expectRange(2, 3, 8);
    expectRange(3, 15, 40);
    EXPECT_EQ(clicks, 0);
}

TEST_F(GraphMouseTest, ARectangleZoomsTheSameWhicheverCornerComesFirst)
{
    graph.setTrackMode(Graph::TrackZoom);
    drag(pixel(60, 3), pixel(20, 8));
    expectRange(1, 20, 60);
    expectRange(2, 3, 8);
}

TEST_F(GraphMouseTest, ARectangleEndsAtTheEdgeOfThePlotArea)
{
    graph.setTrackMode(Graph::TrackZoom);
    drag(pixel(50, 5), QPoint(3000, -500));
    expectRange(1, 50, 100);
    expectRange(2, 5, 10);
}

TEST_F(GraphMouseTest, ARectangleOfAFewPixelsChangesNothing)
{
    graph.setTrackMode(Graph::TrackZoom);
    const QPoint at = pixel(50, 5);
    drag(at, at + QPoint(200, 3));
    drag(at, at + QPoint(3, 200));
    click(at);
    EXPECT_EQ(ranges(), "0..100 0..10 0..50");
}

TEST_F(GraphMouseTest, TheOtherButtonGivesUpARectangle)
{
    graph.setTrackMode(Graph::TrackZoom);
    mouse(QEvent::MouseButtonPress, pixel(20, 8));
    mouse(QEvent::MouseMove, pixel(60, 3));
    mouse(QEvent::MouseButtonPress, pixel(60, 3), Qt::RightButton);
    mouse(QEvent::MouseButtonRelease, pixel(60, 3));
    EXPECT_EQ(ranges(), "0..100 0..10 0..50");
}

TEST_F(GraphMouseTest, ARectangleThatBeginsOutsideOfThePlotAreaIsIgnored)
{
    graph.setTrackMode(Graph::TrackZoom);
    drag({2, 2}, pixel(60, 3));
    EXPECT_EQ(ranges(), "0..100 0..10 0..50");
}

TEST_F(GraphMouseTest, ARectangleShowsWhileItIsDrawn)
{
    graph.setTrackMode(Graph::TrackZoom);
    const QImage before = graph.ControlImage();
    mouse(QEvent::MouseButtonPress, pixel(20, 8));
    mouse(QEvent::MouseMove, pixel(60, 3));
    EXPECT_NE(graph.ControlImage(), before);
    mouse(QEvent::MouseButtonPress, pixel(60, 3), Qt::RightButton);
    EXPECT_EQ(graph.ControlImage(), before);
}

TEST_F(GraphMouseTest, AZoomEndsWhereTheAxisCanNoLongerBeRead)
{
    graph.setTrackMode(Graph::TrackZoom);
    for (int i = 0; i < 60; ++i)
        drag(pixel(graph.axis(1).minimum() * 0.55 + graph.axis(1).maximum() * 0.45, graph.axis(2).minimum()),
             pixel(graph.axis(1).maximum(), graph.axis(2).maximum()));
    EXPECT_LT(graph.axis(1).minimum(), graph.axis(1).maximum());
    const QStringList labels = graph.axis(1).drawing().labels();
    EXPECT_EQ(QSet<QString>(labels.begin(), labels.end()).size(), labels.size());
}

TEST_F(GraphMouseTest, ADragPansAllAxes)
{
    graph.setTrackMode(Graph::TrackPan);
    drag(pixel(50, 5), pixel(30, 7));
    expectRange(1, 20, 120);
    expectRange(2, -2, 8);
    expectRange(3, -10, 40);
    EXPECT_EQ(graph.QWidget::cursor().shape(), Qt::OpenHandCursor);
}

TEST_F(GraphMouseTest, ADoubleClickReturnsToTheRangesLastSet)
{
    graph.setTrackMode(Graph::TrackZoom);
    drag(pixel(20, 8), pixel(60, 3));
    graph.setTrackMode(Graph::TrackPan);
    drag(pixel(30, 5), pixel(40, 4));
    mouse(QEvent::MouseButtonDblClick, pixel(30, 5));
    EXPECT_EQ(ranges(), "0..100 0..10 0..50");
}

TEST_F(GraphMouseTest, TheWheelZoomsAroundTheMouse)
{
    graph.setTrackMode(Graph::TrackPan);
    wheel(pixel(25, 5), 1);
    expectRange(1, 25 - 25 * 0.85, 25 + 75 * 0.85);
    expectRange(2, 5 - 5 * 0.85, 5 + 5 * 0.85);
    expectRange(3, 25 - 25 * 0.85, 25 + 25 * 0.85);
    wheel(pixel(25, 5), -1);
    expectRange(1, 0, 100);
}

TEST_F(GraphMouseTest, TheWheelOverTheLabelsOfAnAxisZoomsThatAxisAlone)
{
    graph.setTrackMode(Graph::TrackZoom);
    const QRect area = graph.plotArea();
    wheel({area.left() - 10, area.center().y()}, 1);
    EXPECT_EQ(graph.axis(1).maximum(), 100);
    expectRange(2, 0.75, 9.25);
    EXPECT_EQ(graph.axis(3).maximum(), 50);
    wheel({area.right() + 10, area.center().y()}, 1);
    expectRange(2, 0.75, 9.25);
    expectRange(3, 3.75, 46.25);
    wheel({area.center().x(), area.bottom() + 10}, 1);
    expectRange(1, 7.5, 92.5);
    expectRange(3, 3.75, 46.25);
}

TEST_F(GraphMouseTest, ZoomingOutEndsAtAMultipleOfTheRangeLastSet)
{
    graph.setTrackMode(Graph::TrackPan);
    for (int i = 0; i < 5000; ++i)
        wheel(pixel(50, 5), -5);
    EXPECT_LT(graph.axis(1).maximum(), 1e9);
    graph.repaintNow();
}

TEST_F(GraphMouseTest, WithoutATrackModeTheMouseLeavesTheAxesAlone)
{
    drag(pixel(20, 8), pixel(60, 3));
    wheel(pixel(50, 5), 3);
    mouse(QEvent::MouseButtonDblClick, pixel(30, 5));
    EXPECT_EQ(ranges(), "0..100 0..10 0..50");
}

TEST_F(GraphMouseTest, AClickRunsTheHandlerAndADragDoesNot)
{
    click(pixel(50, 5));
    EXPECT_EQ(clicks, 1);
    drag(pixel(50, 5), pixel(60, 5));
    EXPECT_EQ(clicks, 1);
    mouse(QEvent::MouseButtonPress, pixel(50, 5), Qt::RightButton);
    mouse(QEvent::MouseButtonRelease, pixel(50, 5), Qt::RightButton);
    EXPECT_EQ(clicks, 1);
}

TEST_F(GraphMouseTest, AFailureOfTheClickHandlerEndsTheRun)
{
    graph.onClick = [] { throw RuntimeFailure(failure::Overflow); };
    click(pixel(50, 5));
    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '6':\n\nOverflow"));
}

class GraphCursorTest : public GraphMouseTest {
protected:
    GraphCursorTest()
    {
        graph.plot(1).PlotY({1, 2, 3, 4, 5, 6}, "0:00", 10);
        graph.plot(2).PlotY({5, 10, 15, 20, 25, 30}, "0:00", 10);
        graph.setTrackMode(Graph::TrackCursor);
    }
};

TEST_F(GraphCursorTest, ACursorMovesToTheNearestSampleOfItsPlotAndReportsIt)
{
    graph.cursor(1).setPlot(graph.plot(1));
    graph.cursor(1).setVisible(true);
    mouse(QEvent::MouseButtonPress, pixel(11, 9));
    mouse(QEvent::MouseMove, pixel(13, 9)); // the same sample is no change
    mouse(QEvent::MouseMove, pixel(28, 1));
    mouse(QEvent::MouseMove, pixel(99, 1));
    mouse(QEvent::MouseButtonRelease, pixel(99, 1));
    mouse(QEvent::MouseMove, pixel(2, 1)); // without a button
    EXPECT_THAT(moves, ElementsAre(Pair(10, 2), Pair(30, 4), Pair(50, 6)));
    EXPECT_EQ(graph.cursor(1).xPosition(), 50);
    EXPECT_EQ(graph.cursor(1).yPosition(), 6);
    EXPECT_EQ(ranges(), "0..100 0..10 0..50");
}

TEST_F(GraphCursorTest, ACursorReadsACurveOfTheRightAxisInItsUnits)
{
    graph.cursor(1).setPlot(graph.plot(2));
    graph.cursor(1).setVisible(true);
    click(pixel(20, 5));
    EXPECT_THAT(moves, ElementsAre(Pair(20, 15)));
}

TEST_F(GraphCursorTest, ACursorFollowsTheMouseWhereItsPlotHasNoSample)
{
    graph.cursor(1).setPlot(graph.plot(3));
    graph.cursor(1).setVisible(true);
    click(pixel(25, 5));
    ASSERT_THAT(moves, SizeIs(1));
    EXPECT_NEAR(moves[0].first, 25, 0.2);
    EXPECT_NEAR(moves[0].second, 5, 0.1);
}

TEST_F(GraphCursorTest, OnlyACursorThatShowsMoves)
{
    graph.cursor(1).setPlot(graph.plot(1));
    click(pixel(20, 5));
    EXPECT_THAT(moves, IsEmpty());
    graph.cursor(2).setPlot(graph.plot(2));
    graph.cursor(2).setVisible(true);
    click(pixel(20, 5));
    EXPECT_THAT(moves, ElementsAre(Pair(20, 15)));
    EXPECT_EQ(graph.cursor(1).xPosition(), 0);
}

TEST_F(GraphCursorTest, TheNearerOfTwoCursorsMoves)
{
    for (int i = 1; i <= 2; ++i) {
        graph.cursor(i).setPlot(graph.plot(i));
        graph.cursor(i).setVisible(true);
    }
    graph.cursor(1).setXPosition(10);
    graph.cursor(2).setXPosition(50);
    click(pixel(40, 5));
    click(pixel(0, 5));
    EXPECT_THAT(moves, ElementsAre(Pair(40, 25), Pair(0, 1)));
}

TEST_F(GraphCursorTest, ACursorMovedByCodeRunsNoHandler)
{
    graph.cursor(1).setPlot(graph.plot(1));
    graph.cursor(1).setVisible(true);
    graph.cursor(1).setYPosition(5);
    EXPECT_EQ(graph.cursor(1).yPosition(), 5);
    EXPECT_THAT(moves, IsEmpty());
}

TEST_F(GraphCursorTest, ACursorComesIntoViewWhenItIsShown)
{
    GraphCursor& cursor = graph.cursor(1);
    cursor.setVisible(true);
    EXPECT_EQ(cursor.xPosition(), 50);
    cursor.setXPosition(30);
    cursor.setVisible(false);
    cursor.setVisible(true);
    EXPECT_EQ(cursor.xPosition(), 30);
}

TEST_F(GraphCursorTest, AShownCursorOutOfViewStaysThereWhenItIsShownAgain)
{
    GraphCursor& cursor = graph.cursor(1);
    cursor.setVisible(true);
    cursor.setXPosition(300);

    cursor.setVisible(true);

    EXPECT_EQ(cursor.xPosition(), 300);
}

TEST_F(GraphCursorTest, ACursorStaysWhereItIsInTheOtherModes)
{
    graph.cursor(1).setPlot(graph.plot(1));
    graph.cursor(1).setVisible(true);
    graph.setTrackMode(Graph::TrackPan);
    drag(pixel(50, 5), pixel(30, 5));
    EXPECT_THAT(moves, IsEmpty());
    EXPECT_EQ(graph.cursor(1).xPosition(), 50);
}

TEST_F(GraphCursorTest, AFailureOfTheCursorHandlerEndsTheRun)
{
    graph.cursor(1).setPlot(graph.plot(1));
    graph.cursor(1).setVisible(true);
    graph.onCursorChange = [](double, double) { throw RuntimeFailure(failure::NoCurrentRecord); };
    click(pixel(20, 5));
    EXPECT_THAT(processExit.reports, SizeIs(1));
    EXPECT_TRUE(run.isOver());
}

} // namespace
} // namespace orb
