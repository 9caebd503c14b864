// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph_test.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMenu>

namespace orb {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class GraphMenuTest : public GraphTest {
protected:
    static GraphPlan withQuantities()
    {
        GraphPlan plan = twoChannels();
        plan.axes[1].quantity = "Voltage";
        plan.axes[2].quantity = "Current";
        return plan;
    }

    GraphMenuTest()
    {
        graph.setVisible(false);
        measured.setGeometry(0, 0, 740, 420);
        measured.setVisible(true);
        measured.axis(1).SetMinMax("0:00", "1:00");
        measured.axis(2).SetMinMax(0, 10);
        measured.axis(3).SetMinMax(0, 50);
        measured.setTrackMode(Graph::TrackZoom);
        measured.repaintNow();
    }

    /// Ten minutes of 20 V and 25 V, and of 0.2 A and 0.3 A.
    void fill()
    {
        measured.plot(1).PlotY(values(20, 25), "0:00", second);
        measured.plot(2).PlotY(values(0.2, 0.3), "0:00", second);
    }
    static std::vector<double> values(double first, double last)
    {
        std::vector<double> result(601, first);
        result.back() = last;
        return result;
    }

    void send(QEvent::Type type, Qt::MouseButton button, const QPoint& at)
    {
        QMouseEvent event(type, at, measured.mapToGlobal(QPointF(at)), button, button, Qt::NoModifier);
        QCoreApplication::sendEvent(&measured, &event);
    }

    /// The operator presses the right button; null where no menu opens.
    QMenu* menu(QContextMenuEvent::Reason reason = QContextMenuEvent::Mouse)
    {
        const QPoint at = measured.rect().center();
        if (reason == QContextMenuEvent::Mouse)
            send(QEvent::MouseButtonPress, Qt::RightButton, at);
        QContextMenuEvent event(reason, at, measured.mapToGlobal(at));
        QCoreApplication::sendEvent(&measured, &event);
        send(QEvent::MouseButtonRelease, Qt::RightButton, at);
        QMenu* open = nullptr;
        for (QMenu* one : measured.findChildren<QMenu*>())
            open = one->isVisible() ? one : open;
        return open;
    }

    /// "Show &All|-Fit &Voltage": a minus before what is disabled.
    std::string menuTexts()
    {
        QStringList texts;
        QMenu* open = menu();
        for (const QAction* action : open->actions())
            texts << (action->isEnabled() ? "" : "-") + action->text();
        open->close();
        return texts.join('|').toStdString();
    }

    void choose(const QString& text)
    {
        QMenu* open = menu();
        for (QAction* action : open->actions())
            if (action->text() == text)
                action->trigger();
        open->close();
    }

    std::string range(int axis, double unit = 1) const
    {
        return QStringLiteral("%1..%2")
            .arg(measured.axis(axis).minimum() / unit)
            .arg(measured.axis(axis).maximum() / unit)
            .toStdString();
    }

    Graph measured{withQuantities(), &form};
};

TEST_F(GraphMenuTest, TheMenuOffersWhatThereIsToShow)
{
    EXPECT_EQ(menuTexts(), "-Show &All|-Fit &Voltage|-Fit &Current||Co&py Picture");
    measured.plot(2).PlotY(values(1, 2), "0:00", second);
    EXPECT_EQ(menuTexts(), "Show &All|-Fit &Voltage|Fit &Current||Co&py Picture");
    measured.plot(2).setVisible(false);
    EXPECT_EQ(menuTexts(), "-Show &All|-Fit &Voltage|-Fit &Current||Co&py Picture");
    measured.onSavePicture = [] {};
    EXPECT_EQ(menuTexts(), "-Show &All|-Fit &Voltage|-Fit &Current||Co&py Picture|&Save Picture...");
}

TEST_F(GraphMenuTest, ShowAllFitsEveryAxisToTheVisiblePlots)
{
    fill();
    measured.plot(3).PlotY(values(-400, 400), "3:00", second);
    measured.plot(3).setVisible(false);
    choose("Show &All");
    EXPECT_EQ(range(1, 60 * second), "0..10");
    EXPECT_EQ(range(2), "20..25");
    EXPECT_EQ(range(3), "0.2..0.3");
}

TEST_F(GraphMenuTest, ADoubleClickReturnsFromShowAllToTheRangesLastSet)
{
    fill();
    choose("Show &All");
    const QPoint at = measured.rect().center();
    send(QEvent::MouseButtonDblClick, Qt::LeftButton, at);
    EXPECT_EQ(range(1, 60 * second) + ' ' + range(2) + ' ' + range(3), "0..60 0..10 0..50");
}

TEST_F(GraphMenuTest, AFitOfOneAxisLeavesTheOthersAndCountsOnlyTheTimesInView)
{
    fill();
    measured.axis(1).SetMinMax("0:00", "0:05"); // before the last value
    measured.plot(1).ChartY(20.5, -400 * second);
    choose("Fit &Voltage");
    EXPECT_EQ(range(1, 60 * second) + ' ' + range(2) + ' ' + range(3), "0..5 20..20.5 0..50");
    choose("Fit &Current");
    EXPECT_EQ(range(2) + ' ' + range(3), "20..20.5 0.18..0.22");
}

TEST_F(GraphMenuTest, AFitOfALevelCurveLeavesRoomAtBothSides)
{
    measured.plot(1).PlotY(values(12, 12), "0:00", second);
    choose("Fit &Voltage");
    EXPECT_EQ(range(2), "10.5..13.5");
    measured.plot(1).PlotY(values(-12, -12), "0:00", second);
    choose("Fit &Voltage");
    EXPECT_EQ(range(2), "-13.5..-10.5");
    measured.plot(1).PlotY(values(0, 0), "0:00", second);
    choose("Fit &Voltage");
    EXPECT_EQ(range(2), "-0.6..0.6");
}

TEST_F(GraphMenuTest, AFitShowsValuesFarBeyondTheRangeLastSetFromWhichTheWheelLeadsBack)
{
    measured.axis(3).SetMinMax(0, 1e-6);
    measured.plot(2).PlotY(values(2, 12), "0:00", second);
    choose("Fit &Current");
    EXPECT_EQ(range(3), "2..12");
    const QPoint at(measured.plotArea().right() + 10, measured.plotArea().center().y());
    QWheelEvent event(at, measured.mapToGlobal(QPointF(at)), QPoint(), QPoint(0, 120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&measured, &event);
    EXPECT_LT(measured.axis(3).maximum(), 11.5);
}

TEST_F(GraphMenuTest, ValuesThatCantBeDrawnLeaveTheRangeAlone)
{
    measured.plot(1).PlotY({1, double(INFINITY)}, "0:00", second);
    choose("Fit &Voltage");
    EXPECT_EQ(range(2), "0..10");
}

TEST_F(GraphMenuTest, CopyPutsThePictureOnTheClipboard)
{
    fill();
    QGuiApplication::clipboard()->clear();
    choose("Co&py Picture");
    EXPECT_EQ(QGuiApplication::clipboard()->image().size(), QSize(1480, 840));
}

TEST_F(GraphMenuTest, SaveRunsItsHandlerAsPageLogic)
{
    measured.onSavePicture = [] { throw RuntimeFailure(failure::Overflow); };
    choose("&Save Picture...");
    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '6':\n\nOverflow"));
}

TEST_F(GraphMenuTest, TheRightButtonIsNoClickAndLeavesTheTrackMode)
{
    int clicks = 0;
    measured.onClick = [&] { ++clicks; };
    ASSERT_NE(menu(), nullptr);
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(measured.TrackMode(), Graph::TrackZoom);
}

TEST_F(GraphMenuTest, TheRightButtonThatGivesUpADragOpensNoMenu)
{
    const QPoint at = measured.rect().center();
    send(QEvent::MouseButtonPress, Qt::LeftButton, at);
    EXPECT_EQ(menu(), nullptr);
    send(QEvent::MouseButtonRelease, Qt::LeftButton, at);
    EXPECT_NE(menu(), nullptr);
}

TEST_F(GraphMenuTest, TheMenuKeyOpensTheMenuOfTheGraphWithTheFocus)
{
    EXPECT_EQ(measured.focusPolicy(), Qt::TabFocus);
    const QPoint at = measured.rect().center();
    send(QEvent::MouseButtonPress, Qt::LeftButton, at);
    send(QEvent::MouseButtonPress, Qt::RightButton, at); // gives up a drag
    EXPECT_NE(menu(QContextMenuEvent::Keyboard), nullptr);
}

TEST_F(GraphMenuTest, AClosedMenuIsNotKept)
{
    for (int i = 0; i < 3; ++i)
        menu()->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    EXPECT_THAT(measured.findChildren<QMenu*>(), IsEmpty());
}

TEST_F(GraphMenuTest, TheFocusShowsOnTheScreenAndNotInThePicture)
{
    const QImage picture = measured.ControlImage();
    measured.repaintNow();
    const QImage before = measured.grab().toImage();
    QFocusEvent in(QEvent::FocusIn);
    QCoreApplication::sendEvent(&measured, &in);
    measured.repaintNow();
    EXPECT_NE(measured.grab().toImage(), before);
    EXPECT_EQ(measured.ControlImage(), picture);
    QFocusEvent out(QEvent::FocusOut);
    QCoreApplication::sendEvent(&measured, &out);
    measured.repaintNow();
    EXPECT_EQ(measured.grab().toImage(), before);
}

} // namespace
} // namespace orb
