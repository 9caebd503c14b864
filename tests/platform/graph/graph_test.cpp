// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph_test.h"
#include "plot_drawing.h"

#include <cmath>
#include <limits>

namespace orb {
namespace {

using testing::ElementsAre;

std::vector<GraphPlot::Point> pointsOf(const GraphPlot& plot)
{
    std::vector<GraphPlot::Point> points;
    for (std::size_t i = 0; i < plot.pointCount(); ++i)
        points.push_back(plot.point(i));
    return points;
}

TEST_F(GraphTest, AGraphStartsAsItsPlanDescribesIt)
{
    EXPECT_EQ(ranges(), "0..0.04167 0..30 0..30");
    EXPECT_EQ(graph.axis(1).name(), "X-Axis");
    EXPECT_EQ(graph.axis(1).caption(), "Elapsed Time");
    EXPECT_EQ(graph.axis(1).FormatString(), "h:nn");
    EXPECT_EQ(graph.axis(1).MajorDivisions(), 6);
    EXPECT_EQ(graph.axis(3).caption(), "Amp");
    EXPECT_EQ(graph.plot(4).name(), "Plot-4");
    EXPECT_TRUE(graph.plot(4).visible());
    EXPECT_EQ(graph.plot(4).lineColor(), QColor(0, 0, 255));
    EXPECT_EQ(&graph.plot(4).valueAxis(), &graph.axis(3));
    EXPECT_EQ(&graph.plot(3).valueAxis(), &graph.axis(2));
    EXPECT_FALSE(graph.cursor(1).visible());
    EXPECT_EQ(graph.TrackMode(), Graph::TrackNone);
    EXPECT_TRUE(graph.elementVisible("Graph Frame"));
}

TEST_F(GraphTest, PartsAreNumberedFromOneAndNoOtherNumberIsTaken)
{
    EXPECT_EQ(graph.axisCount(), 3);
    EXPECT_EQ(graph.plotCount(), 4);
    EXPECT_EQ(graph.cursorCount(), 4);
    EXPECT_EQ(graph.axis(3).name(), "YAxis-A");
    EXPECT_EQ(graph.plot(4).name(), "Plot-4");
    EXPECT_EQ(graph.cursor(4).name(), "Cursor-4");
    for (const int number : {-1, 0, 4})
        EXPECT_EQ(failureOf([&] { graph.axis(number); }), failure::SubscriptOutOfRange) << number;
    for (const int number : {-1, 0, 5}) {
        EXPECT_EQ(failureOf([&] { graph.plot(number); }), failure::SubscriptOutOfRange) << number;
        EXPECT_EQ(failureOf([&] { graph.cursor(number); }), failure::SubscriptOutOfRange) << number;
    }
}

TEST_F(GraphTest, APlanThatNamesNothingButItsPartsGivesASolidCurveAndNoCursor)
{
    const Graph plain({.axes = {{.name = "X"}, {.name = "Y"}}, .plots = {{.name = "P", .color = Qt::blue}}});
    EXPECT_EQ(plain.cursorCount(), 0);
    EXPECT_FALSE(GraphPlotPlan().dashed);
}

TEST_F(GraphTest, EveryCursorHasItsName)
{
    GraphPlan plan = twoChannels();
    plan.cursors = 16;
    const Graph many(plan);
    for (int i = 1; i <= 16; ++i)
        EXPECT_EQ(many.cursor(i).name(), QStringLiteral("Cursor-%1").arg(i));
}

TEST_F(GraphTest, APlanWithoutItsAxesIsRefused)
{
    GraphPlan plan = twoChannels();
    plan.plots[0].valueAxis = 4;
    EXPECT_EQ(failureOf([&] { Graph{plan}; }), failure::SubscriptOutOfRange);
    plan.axes.resize(1);
    EXPECT_EQ(failureOf([&] { Graph{plan}; }), failure::InvalidPropertyValue);
}

TEST_F(GraphTest, AnAxisTakesARangeInNumbersAndThenInTimes)
{
    GraphAxis& x = graph.axis(1);
    x.SetMinMax(0, 60);
    EXPECT_EQ(x.maximum(), 60);
    x.SetMinMax("0:0:0", "0:5:00");
    EXPECT_EQ(x.minimum(), 0);
    EXPECT_DOUBLE_EQ(x.maximum(), 300 * second);
    x.SetMinMax("0:0", "23:59");
    EXPECT_DOUBLE_EQ(x.maximum(), 86'340 * second);
}

TEST_F(GraphTest, ARangeThatIsNoneIsRefused)
{
    GraphAxis& y = graph.axis(2);
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(failureOf([&] { y.SetMinMax(0, 0); }), failure::InvalidPropertyValue);
    EXPECT_EQ(failureOf([&] { y.SetMinMax(1, 0); }), failure::InvalidPropertyValue);
    EXPECT_EQ(failureOf([&] { y.SetMinMax(0, infinity); }), failure::InvalidPropertyValue);
    EXPECT_EQ(failureOf([&] { y.SetMinMax(std::nan(""), 1); }), failure::InvalidPropertyValue);
    EXPECT_EQ(failureOf([&] { graph.axis(1).SetMinMax("0:0", "soon"); }), failure::TypeMismatch);
    EXPECT_EQ(ranges(), "0..0.04167 0..30 0..30");
    y.SetMinMax(0, 1e300);
    EXPECT_EQ(y.maximum(), 1e249);
    y.SetMinMax(0, 0.000001);
    EXPECT_EQ(y.maximum(), 0.000001);
}

TEST_F(GraphTest, AnAxisKeepsItsCaptionFormatAndDivisions)
{
    GraphAxis& x = graph.axis(1);
    x.setCaption("Elapsed Time [Sec]");
    x.setFormatString("h:n:ss");
    x.setMajorDivisions(5);
    EXPECT_EQ(x.caption(), "Elapsed Time [Sec]");
    EXPECT_EQ(x.FormatString(), "h:n:ss");
    EXPECT_EQ(x.MajorDivisions(), 5);
    for (const int divisions : {-1, 0, 101})
        EXPECT_EQ(failureOf([&] { x.setMajorDivisions(divisions); }), failure::InvalidPropertyValue);
    EXPECT_EQ(x.MajorDivisions(), 5);
}

TEST_F(GraphTest, AChartedPointFollowsTheLastByItsIncrement)
{
    GraphPlot& plot = graph.plot(1);
    plot.ChartY(12, second);
    plot.ChartY(11, second);
    plot.ChartY(10, 2 * second);
    EXPECT_THAT(pointsOf(plot),
                ElementsAre(GraphPlot::Point{0, 12}, GraphPlot::Point{second, 11}, GraphPlot::Point{3 * second, 10}));
    EXPECT_EQ(graph.plot(2).pointCount(), 0U);
    EXPECT_EQ(ranges(), "0..0.04167 0..30 0..30"); // the time axis does not scroll
}

TEST_F(GraphTest, PlotYReplacesTheDataOfAPlot)
{
    GraphPlot& plot = graph.plot(2);
    plot.ChartY(99, second);
    plot.PlotY({1, 2}, "0:0:01", second);
    EXPECT_THAT(pointsOf(plot), ElementsAre(GraphPlot::Point{second, 1}, GraphPlot::Point{2 * second, 2}));
    plot.ChartY(3, second);
    EXPECT_EQ(plot.point(2), (GraphPlot::Point{3 * second, 3}));
    EXPECT_EQ(failureOf([&] { plot.point(3); }), failure::SubscriptOutOfRange);
}

TEST_F(GraphTest, MovedValuesAreTakenWithoutACopy)
{
    std::vector<double> values(1000, 1.0);
    const double* place = values.data();
    graph.plot(1).PlotY(std::move(values), "0:0:00", second);
    EXPECT_EQ(graph.plot(1).drawing().curve.values().data(), place);
}

TEST_F(GraphTest, APlotStaysAsItWasWhenAnArgumentIsRefused)
{
    GraphPlot& plot = graph.plot(1);
    plot.ChartY(5, second);
    EXPECT_EQ(failureOf([&] { plot.ChartY(6, INFINITY); }), failure::InvalidPropertyValue);
    EXPECT_EQ(failureOf([&] { plot.PlotY({6}, "0:0:00", std::nan("")); }), failure::InvalidPropertyValue);
    EXPECT_EQ(failureOf([&] { plot.PlotY({6}, "zero", second); }), failure::TypeMismatch);
    EXPECT_THAT(pointsOf(plot), ElementsAre(GraphPlot::Point{0, 5}));
}

TEST_F(GraphTest, ClearDataClearsTheDataOfAllPlotsAndNothingElse)
{
    graph.plot(1).ChartY(1, second);
    graph.plot(4).PlotY({1, 2}, "0:00", second);
    graph.axis(2).SetMinMax(0, 105);
    graph.plot(4).setVisible(false);
    graph.cursor(1).setVisible(true);
    graph.ClearData();
    EXPECT_EQ(graph.plot(1).pointCount(), 0U);
    EXPECT_EQ(graph.plot(4).pointCount(), 0U);
    EXPECT_EQ(ranges(), "0..0.04167 0..105 0..30");
    EXPECT_FALSE(graph.plot(4).visible());
    EXPECT_TRUE(graph.cursor(1).visible());
    graph.plot(1).ChartY(2, second);
    EXPECT_THAT(pointsOf(graph.plot(1)), ElementsAre(GraphPlot::Point{0, 2}));
}

TEST_F(GraphTest, EveryColorThatIsSetReadsBack)
{
    const QColor paper(255, 255, 255);
    const QColor grey(128, 128, 128);
    graph.setFrameColor(paper);
    graph.setPlotAreaColor(paper);
    for (int i = 1; i <= 3; ++i)
        graph.axis(i).setGridColor(grey);
    graph.plot(2).setLineColor(Qt::black);
    graph.cursor(3).setColor(QColor(1, 2, 3));
    graph.setElementVisible("Graph Frame", false);
    EXPECT_EQ(graph.frameColor(), paper);
    EXPECT_EQ(graph.plotAreaColor(), paper);
    for (int i = 1; i <= 3; ++i)
        EXPECT_EQ(graph.axis(i).gridColor(), grey);
    EXPECT_EQ(graph.plot(2).lineColor(), QColor(Qt::black));
    EXPECT_EQ(graph.plot(1).lineColor(), QColor(0, 255, 0));
    EXPECT_EQ(graph.cursor(3).color(), QColor(1, 2, 3));
    EXPECT_FALSE(graph.elementVisible("Graph Frame"));
    EXPECT_EQ(failureOf([&] { graph.setElementVisible("Legend", true); }), failure::SubscriptOutOfRange);
}

TEST_F(GraphTest, OnlyTheTrackModesThereAreAreTaken)
{
    for (const int mode : {6, 3, 2, 0}) {
        graph.setTrackMode(mode);
        EXPECT_EQ(graph.TrackMode(), mode);
    }
    for (const int mode : {-1, 1, 4, 5, 7})
        EXPECT_EQ(failureOf([&] { graph.setTrackMode(mode); }), failure::InvalidPropertyValue);
    EXPECT_EQ(graph.TrackMode(), Graph::TrackNone);
}

GraphPlan currentOverTime()
{
    GraphPlan plan;
    plan.axes = {{"XAxis", AxisSide::Bottom, "Time", 0, 1 / 1440.0, "h:n:ss", 5, true},
                 {"YAxis-1", AxisSide::Left, "Current [A]", 0, 1, {}, 5, true}};
    plan.plots = {{"Plot-1", 2, QColor(0, 255, 0)}, {"Plot-2", 2, QColor(255, 255, 0)}};
    return plan;
}

TEST(AutoScaledGraphTest, TheAxesFollowTheDataUntilARangeIsSet)
{
    Graph graph(currentOverTime());
    graph.plot(1).PlotY({1, 2, 3, 0}, "0:0:00.0000", 0.5 * second);
    EXPECT_EQ(graph.axis(1).minimum(), 0);
    EXPECT_DOUBLE_EQ(graph.axis(1).maximum(), 1.5 * second);
    EXPECT_EQ(graph.axis(2).minimum(), 0);
    EXPECT_DOUBLE_EQ(graph.axis(2).maximum(), 3);
    graph.plot(1).PlotY({1, 700}, "0:0:00", 2 * second);
    EXPECT_DOUBLE_EQ(graph.axis(1).maximum(), 2 * second);
    EXPECT_DOUBLE_EQ(graph.axis(2).maximum(), 800);
    graph.axis(2).SetMinMax(0, 5);
    graph.plot(1).PlotY({-4000, 9000}, "0:0:00", 60 * second);
    EXPECT_DOUBLE_EQ(graph.axis(2).maximum(), 5);
    EXPECT_DOUBLE_EQ(graph.axis(1).maximum(), 60 * second);
}

TEST(AutoScaledGraphTest, AStepOfZeroAndValuesBeyondAllMeasureLeaveUsableRanges)
{
    Graph graph(currentOverTime());
    for (const double step : {0.0, -2 * second, 1e300, 5e-324}) {
        graph.plot(1).PlotY({0, 1e308, -1e308, std::nan(""), INFINITY}, "0:0:00", step);
        EXPECT_LT(graph.axis(1).minimum(), graph.axis(1).maximum());
        EXPECT_LT(graph.axis(2).minimum(), graph.axis(2).maximum());
        EXPECT_FALSE(graph.ControlImage().isNull());
    }
    graph.plot(1).PlotY({}, "0:0:00", second);
    EXPECT_FALSE(graph.ControlImage().isNull());
}

} // namespace
} // namespace orb
