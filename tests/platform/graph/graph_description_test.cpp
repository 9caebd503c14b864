// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph_test.h"

#include <QAccessible>

namespace orb {
namespace {

class GraphDescriptionTest : public GraphTest {
protected:
    GraphDescriptionTest()
    {
        named.axis(1).SetMinMax("0:00", "1:00");
        named.plot(1).PlotY({12, 11.5, 12.25, 30}, "0:00", 10 * second);
        named.plot(2).PlotY({2, 2, 0.125}, "0:00", 10 * second);
    }

    std::string description() const { return named.description().toStdString(); }

    static GraphPlan withTitles()
    {
        GraphPlan plan = twoChannels();
        plan.axes[1].unit = "V";
        plan.axes[2].unit = "A";
        plan.plots[0].title = "Ch1 V";
        plan.plots[1].title = "Ch1 A";
        return plan;
    }

    Graph named{withTitles(), &form};
};

TEST_F(GraphDescriptionTest, EveryCurveHasItsSmallestAndLargestValueWithTheUnit)
{
    EXPECT_EQ(description(), "Curves from 0:00:00 to 0:00:30: Ch1 V from 11.5 V to 30 V, Ch1 A from 0.125 A to 2 A.");
}

TEST_F(GraphDescriptionTest, OnlyWhatIsInTheTimesShownCounts)
{
    named.axis(1).SetMinMax("0:00:10", "0:00:20");
    EXPECT_EQ(description(),
              "Curves from 0:00:10 to 0:00:20: Ch1 V from 11.5 V to 12.25 V, Ch1 A from 0.125 A to 2 A.");
    named.axis(1).SetMinMax("0:00:25", "0:01:00");
    EXPECT_EQ(description(), "Curves from 0:00:25 to 0:00:30: Ch1 V from 30 V to 30 V.");
}

TEST_F(GraphDescriptionTest, AHiddenCurveIsNotNamed)
{
    named.plot(1).setVisible(false);
    EXPECT_EQ(description(), "Curves from 0:00:00 to 0:00:20: Ch1 A from 0.125 A to 2 A.");
    named.plot(2).setVisible(false);
    EXPECT_EQ(description(), "No curve is shown.");
}

TEST_F(GraphDescriptionTest, WithoutTimesTitlesAndUnitsThePlainNamesAndNumbersStand)
{
    named.ClearData();
    named.axis(1).setFormatString({});
    named.axis(1).SetMinMax(0, 10);
    graph.axis(1).setFormatString({});
    graph.axis(1).SetMinMax(0, 10);
    graph.plot(3).PlotY({1, 2}, "0:00", 2.5);
    EXPECT_EQ(graph.description().toStdString(), "Curves from 0 to 2.5: Plot-3 from 1 to 2.");
    EXPECT_EQ(description(), "No curve is shown.");
}

TEST_F(GraphDescriptionTest, AssistiveTechnologiesSeeAChartWithoutPartsThatSaysWhatItShows)
{
    QAccessibleInterface* chart = QAccessible::queryAccessibleInterface(&named);
    ASSERT_NE(chart, nullptr);
    EXPECT_EQ(chart->role(), QAccessible::Chart);
    EXPECT_EQ(chart->childCount(), 0);
    EXPECT_EQ(chart->text(QAccessible::Name), "Graph");
    named.setAccessibleName("Graph of the log");
    EXPECT_EQ(chart->text(QAccessible::Name), "Graph of the log");
    EXPECT_EQ(chart->text(QAccessible::Description), named.description());
    named.plot(1).setVisible(false);
    EXPECT_EQ(chart->text(QAccessible::Description), named.description());
    EXPECT_EQ(chart->object(), &named);
}

} // namespace
} // namespace orb
