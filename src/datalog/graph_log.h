// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "graph_look.h"
#include "graph_plan.h"

namespace orb {

constexpr int graphChannels = curveColorCount;

/// The elements of `graphLog`: elapsed time, volts on the left, amperes on the right, two curves and two cursors for
/// each channel. Odd plots show volts, even plots amperes; both plots of a channel have the same color,
/// and the channel's number as their mark.
GraphPlan graphLogPlan();

/// One choice of `cmbXLength`: what it sets on the time axis.
struct TimeRange {
    QString text;
    QString caption;
    double firstMaximum; ///< a bare number, so it counts days; in effect where no second range follows
    QString format;
    int divisions;
    QString minimum; ///< a time, empty where no second range follows
    QString maximum;
};

/// The range with that text, or null.
const TimeRange* timeRangeOf(const QString& text);

/// The texts that the three combos offer, in their order.
QStringList timeRangeItems();
QStringList voltageRangeItems();
QStringList currentRangeItems();

} // namespace orb
