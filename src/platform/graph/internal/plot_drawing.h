// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "axis_drawing.h"
#include "curve.h"
#include "graph_plan.h"
#include "graph_plot.h"

#include <functional>

namespace orb {

/// A plot as `CurveLayer` draws it.
class GraphPlot::Drawing {
public:
    GraphPlotPlan plan;
    GraphAxis& y;
    RepaintQueue& repaints;
    std::function<void()> onDataChange;
    Curve curve = {};
    bool visible = true;
};

} // namespace orb
