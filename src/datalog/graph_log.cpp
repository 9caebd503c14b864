// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph_log.h"

#include "values.h"

namespace orb {

namespace {

// The captions differ in case on purpose. The last three rows have no second range and are not offered in the list.
const std::array<TimeRange, 13> timeRanges{{
    {"5m", "Elapsed Time [Sec]", 60, "h:n:ss", 5, "0:0:0", "0:5:00"},
    {"10m", "Elapsed Time [Sec]", 120, "h:n:ss", 5, "0:0:0", "0:10:00"},
    {"20m", "Elapsed Time [Sec]", 240, "h:n:ss", 5, "0:0", "0:20:00"},
    {"30m", "Elapsed Time [Sec]", 360, "h:n:ss", 5, "0:00", "0:30:00"},
    {"60m", "Elapsed Time [Sec]", 720, "h:n:ss", 6, "0:0:0", "1:0:00"},
    {"1 Hr", "Elapsed Time [min]", 60, "h:nn", 6, "0:00", "1:00"},
    {"3 Hr", "Elapsed Time [min]", 180, "h:nn", 6, "0:00", "3:00"},
    {"6 Hr", "Elapsed Time [Min]", 360, "h:nn", 6, "0:0", "6:00"},
    {"12Hr", "Elapsed Time [Min]", 720, "h:nn", 6, "0:00", "12:00"},
    {"1Day", "Elapsed Time [Min]", 1440, "hh:nn", 6, "0:00", "23:59"},
    {"2Day", "Elapsed Time [Min]", 2880, "dd h:nn", 6, "", ""},
    {"3Day", "Elapsed Time [Min]", 4320, "dd h:n", 6, "", ""},
    {"4Day", "Elapsed Time [Min]", 5760, "dd h:n", 6, "", ""},
}};
constexpr int offeredTimeRanges = 10;

void addMultiples(QStringList& items, double step, int count, const char* unit)
{
    for (int i = 1; i <= count; ++i)
        items << text(step * i) + QLatin1String(unit);
}

} // namespace

GraphPlan graphLogPlan()
{
    GraphPlan plan;
    plan.axes = {{"X-Axis", AxisSide::Bottom, "Elapsed Time", 0, 1.0 / 24, "h:nn", 6},
                 {"Y-Axis", AxisSide::Left, "Voltage", 0, 30, "", 5, false, "Voltage", "V"},
                 {"YAxis-A", AxisSide::Right, "Amp", 0, 30, "", 5, false, "Current", "A"}};
    for (int plot = 0; plot < 2 * graphChannels; ++plot) {
        const bool isCurrent = plot % 2 == 1;
        const int channel = plot / 2 + 1;
        plan.plots.push_back({QStringLiteral("Plot-%1").arg(plot + 1), isCurrent ? 3 : 2, curveColor(channel),
                              isCurrent, QStringLiteral("Ch%1 %2").arg(channel).arg(isCurrent ? "A" : "V"),
                              QString::number(channel)});
    }
    plan.cursors = 2 * graphChannels;
    return plan;
}

const TimeRange* timeRangeOf(const QString& text)
{
    const auto row =
        std::find_if(timeRanges.begin(), timeRanges.end(), [&](const TimeRange& range) { return range.text == text; });
    return row == timeRanges.end() ? nullptr : &*row;
}

QStringList timeRangeItems()
{
    QStringList items;
    for (std::size_t i = 0; i < offeredTimeRanges; ++i)
        items << timeRanges[i].text;
    return items;
}

QStringList voltageRangeItems()
{
    QStringList items{"Default", "1 V"};
    addMultiples(items, 5, 21, "V");
    return items;
}

QStringList currentRangeItems()
{
    QStringList items{"Default", "0.1 A"};
    addMultiples(items, 0.5, 9, "A");
    addMultiples(items, 5, 10, "A");
    return items;
}

} // namespace orb
