// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QString>

#include <vector>

namespace orb {

/// The side of the plot area at which an axis is.
enum class AxisSide { Bottom, Left, Right };

/// An axis as it is at the start.
struct GraphAxisPlan {
    QString name = {};
    AxisSide side = AxisSide::Bottom;
    QString caption = {};
    double minimum = 0;
    double maximum = 1;
    /// As for `GraphAxis::setFormatString`; empty for plain numbers.
    QString format = {};
    int divisions = 5;
    /// The range follows the data until `SetMinMax` gives it a fixed one.
    bool autoScale = false;
    /// What a value axis measures, for the operator's choices and for a description: "Voltage", in "V".
    QString quantity = {};
    QString unit = {};
};

/// A plot as it is at the start: visible, and without data.
struct GraphPlotPlan {
    QString name = {};
    /// The number of the axis that its values use.
    int valueAxis = 2;
    QColor color = {};
    /// Distinguishes it from a solid plot of the same color.
    bool dashed = false;
    /// What the operator calls the curve, as in "Ch1 V".
    QString title = {};
    /// A character that is drawn on the curve now and then, and on its line in a legend. It distinguishes curves for
    /// someone who does not distinguish their colors.
    QString mark = {};
};

/// What a graph is made of. Axes and plots get their numbers, from 1, by their place here. Axis 1 is at the bottom and
/// is the x axis of all plots, the others are left or right.
struct GraphPlan {
    std::vector<GraphAxisPlan> axes;
    std::vector<GraphPlotPlan> plots;
    /// How many cursors there are. All start hidden.
    int cursors = 0;
};

} // namespace orb
