// SPDX-License-Identifier: GPL-3.0-or-later
#include "legend_line.h"

#include "form_test.h"
#include "graph_log.h"

using namespace orb;

namespace {

class LegendLineTest : public FormTest {
protected:
    /// How many pixels of the line's picture have that color.
    static int pixelsOf(LegendLine& line, const QColor& color)
    {
        const QImage image = line.grab().toImage();
        int count = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                count += image.pixelColor(x, y) == color ? 1 : 0;
        return count;
    }

    Graph graph{graphLogPlan()};
};

TEST_F(LegendLineTest, TheLineHasThePlotsColorOnTheBackgroundOfTheGraph)
{
    LegendLine line(graph, 1);
    EXPECT_GT(pixelsOf(line, QColor(0, 255, 0)), 10);
    EXPECT_GT(pixelsOf(line, graph.plotAreaColor()), 100);
    EXPECT_EQ(pixelsOf(line, QColor(255, 0, 0)), 0);

    graph.plot(1).setLineColor(QColor(255, 0, 0));
    graph.setPlotAreaColor(QColor(255, 255, 255));
    EXPECT_GT(pixelsOf(line, QColor(255, 0, 0)), 10);
    EXPECT_GT(pixelsOf(line, QColor(255, 255, 255)), 100);
}

TEST_F(LegendLineTest, TheLineOfACurrentIsShorterInSumThanThatOfAVoltage)
{
    LegendLine voltage(graph, 1);
    LegendLine current(graph, 2);
    EXPECT_LT(pixelsOf(current, QColor(0, 255, 0)), pixelsOf(voltage, QColor(0, 255, 0)));
}

TEST_F(LegendLineTest, TheLinesOfTwoChannelsDifferInMoreThanTheirColor)
{
    LegendLine first(graph, 1);
    LegendLine third(graph, 5);
    EXPECT_NE(first.grab().toImage(), third.grab().toImage());
    graph.plot(5).setLineColor(graph.plot(1).lineColor());
    EXPECT_NE(first.grab().toImage(), third.grab().toImage());
}

} // namespace
