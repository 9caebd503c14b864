// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "graph_axis.h"
#include "graph_plot.h"

#include <deque>

namespace orb {

/// What a graph of these axes and plots shows, in a sentence: "Curves from 0:00:00 to 0:09:59: Ch1 V from 11.98 V to 12.01
/// V, Ch1 A from 0.5 A to 2 A." The values are those of the x range in view. A plot without points in it is not named.
QString graphDescription(const std::deque<GraphAxis>& axes, const std::deque<GraphPlot>& plots);

} // namespace orb
