// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph_log.h"

#include "printing.h"

#include <gmock/gmock.h>

using namespace orb;
using testing::ElementsAre;

namespace {

QStringList plots()
{
    QStringList lines;
    for (const GraphPlotPlan& plot : graphLogPlan().plots)
        lines << QStringLiteral("%1 on axis %2, %3 %4 %5%6")
                     .arg(plot.name)
                     .arg(plot.valueAxis)
                     .arg(plot.color.red())
                     .arg(plot.color.green())
                     .arg(plot.color.blue())
                     .arg(plot.dashed ? " dashed" : "");
    return lines;
}

TEST(GraphLogTest, TheAxesHaveTheirNamesCaptionsRangesAndFormats)
{
    QStringList axes;
    for (const GraphAxisPlan& axis : graphLogPlan().axes)
        axes << QStringLiteral("%1, %2, %3, %4...%5, '%6', %7")
                    .arg(axis.name)
                    .arg(static_cast<int>(axis.side))
                    .arg(axis.caption)
                    .arg(axis.minimum)
                    .arg(axis.maximum)
                    .arg(axis.format)
                    .arg(axis.divisions);
    EXPECT_THAT(axes, ElementsAre("X-Axis, 0, Elapsed Time, 0...0.0416667, 'h:nn', 6",
                                  "Y-Axis, 1, Voltage, 0...30, '', 5", "YAxis-A, 2, Amp, 0...30, '', 5"));
}

TEST(GraphLogTest, ThePlotsOfAChannelShareAColorAndTheCurrentIsDashed)
{
    EXPECT_THAT(plots(), ElementsAre("Plot-1 on axis 2, 0 255 0", "Plot-2 on axis 3, 0 255 0 dashed",          //
                                     "Plot-3 on axis 2, 0 0 255", "Plot-4 on axis 3, 0 0 255 dashed",          //
                                     "Plot-5 on axis 2, 128 0 128", "Plot-6 on axis 3, 128 0 128 dashed",      //
                                     "Plot-7 on axis 2, 255 255 0", "Plot-8 on axis 3, 255 255 0 dashed",      //
                                     "Plot-9 on axis 2, 255 255 255", "Plot-10 on axis 3, 255 255 255 dashed", //
                                     "Plot-11 on axis 2, 255 0 0", "Plot-12 on axis 3, 255 0 0 dashed",        //
                                     "Plot-13 on axis 2, 128 0 0", "Plot-14 on axis 3, 128 0 0 dashed",        //
                                     "Plot-15 on axis 2, 128 128 0", "Plot-16 on axis 3, 128 128 0 dashed"));
}

TEST(GraphLogTest, ThePlotsAreTitledAsTheirBoxesAndMarkedWithTheirChannel)
{
    QStringList lines;
    for (const GraphPlotPlan& plot : graphLogPlan().plots)
        lines << plot.title + u' ' + plot.mark;
    EXPECT_EQ(lines.join(", "), "Ch1 V 1, Ch1 A 1, Ch2 V 2, Ch2 A 2, Ch3 V 3, Ch3 A 3, Ch4 V 4, Ch4 A 4, "
                                "Ch5 V 5, Ch5 A 5, Ch6 V 6, Ch6 A 6, Ch7 V 7, Ch7 A 7, Ch8 V 8, Ch8 A 8");
}

TEST(GraphLogTest, TheValueAxesHaveAQuantityAndAUnit)
{
    const GraphPlan plan = graphLogPlan();
    EXPECT_EQ(plan.axes[1].quantity + u' ' + plan.axes[1].unit, "Voltage V");
    EXPECT_EQ(plan.axes[2].quantity + u' ' + plan.axes[2].unit, "Current A");
}

TEST(GraphLogTest, ThereAreSixteenCursors)
{
    EXPECT_EQ(graphLogPlan().cursors, 16);
}

TEST(GraphLogTest, EachTimeRangeHasItsCaptionFirstMaximumFormatDivisionsAndFinalRange)
{
    const auto row = [](const QString& text) {
        const TimeRange* range = timeRangeOf(text);
        return range ? QStringList{range->caption, QString::number(range->firstMaximum),
                                   range->format,  QString::number(range->divisions),
                                   range->minimum, range->maximum}
                           .join(" | ")
                     : QString("none");
    };
    EXPECT_EQ(row("5m"), "Elapsed Time [Sec] | 60 | h:n:ss | 5 | 0:0:0 | 0:5:00");
    EXPECT_EQ(row("10m"), "Elapsed Time [Sec] | 120 | h:n:ss | 5 | 0:0:0 | 0:10:00");
    EXPECT_EQ(row("20m"), "Elapsed Time [Sec] | 240 | h:n:ss | 5 | 0:0 | 0:20:00");
    EXPECT_EQ(row("30m"), "Elapsed Time [Sec] | 360 | h:n:ss | 5 | 0:00 | 0:30:00");
    EXPECT_EQ(row("60m"), "Elapsed Time [Sec] | 720 | h:n:ss | 6 | 0:0:0 | 1:0:00");
    EXPECT_EQ(row("1 Hr"), "Elapsed Time [min] | 60 | h:nn | 6 | 0:00 | 1:00");
    EXPECT_EQ(row("3 Hr"), "Elapsed Time [min] | 180 | h:nn | 6 | 0:00 | 3:00");
    EXPECT_EQ(row("6 Hr"), "Elapsed Time [Min] | 360 | h:nn | 6 | 0:0 | 6:00");
    EXPECT_EQ(row("12Hr"), "Elapsed Time [Min] | 720 | h:nn | 6 | 0:00 | 12:00");
    EXPECT_EQ(row("1Day"), "Elapsed Time [Min] | 1440 | hh:nn | 6 | 0:00 | 23:59");
    EXPECT_EQ(row("2Day"), "Elapsed Time [Min] | 2880 | dd h:nn | 6 |  | ");
    EXPECT_EQ(row("3Day"), "Elapsed Time [Min] | 4320 | dd h:n | 6 |  | ");
    EXPECT_EQ(row("4Day"), "Elapsed Time [Min] | 5760 | dd h:n | 6 |  | ");
    EXPECT_EQ(row("5Day"), "none");
}

TEST(GraphLogTest, TheCombosOfferTheirRanges)
{
    EXPECT_EQ(timeRangeItems().join(' '), "5m 10m 20m 30m 60m 1 Hr 3 Hr 6 Hr 12Hr 1Day");
    EXPECT_EQ(voltageRangeItems().join(' '), "Default 1 V 5V 10V 15V 20V 25V 30V 35V 40V 45V 50V 55V 60V 65V 70V 75V "
                                             "80V 85V 90V 95V 100V 105V");
    EXPECT_EQ(currentRangeItems().join(' '),
              "Default 0.1 A 0.5A 1A 1.5A 2A 2.5A 3A 3.5A 4A 4.5A 5A 10A 15A 20A 25A 30A "
              "35A 40A 45A 50A");
}

} // namespace
