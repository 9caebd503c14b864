// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "bezel.h"
#include "curve_layer.h"
#include "failure.h"
#include "graph.h"
#include "graph_mouse.h"
#include "repaint_queue.h"

namespace orb {

/// The part with that number, from 1. Throws `RuntimeFailure` 9 where none has.
template <typename Part> Part& numbered(std::deque<Part>& parts, int number)
{
    if (number < 1 || number > static_cast<int>(parts.size()))
        throw RuntimeFailure(failure::SubscriptOutOfRange);
    return parts[static_cast<std::size_t>(number - 1)];
}

/// What a graph consists of.
struct Graph::Parts {
    Parts(const GraphPlan& plan, QWidget& graph);

    void addAxes(const GraphPlan& plan);
    void addPlots(const GraphPlan& plan);
    void closeBox();
    void recolor();
    void settleLayout();
    void fitAxes();
    void repaint(bool everything);
    /// Of the x of all visible plots.
    Extent times() const;
    /// Of what the visible plots of a value axis have in the x range in view.
    Extent valuesInView(const GraphAxis& axis) const;

    QCustomPlot drawing; // before what is drawn in it
    QCPAxisRect& area = *drawing.axisRect();
    RepaintQueue repaints{[this](bool everything) { repaint(everything); }};
    CurveLayer& curves = *new CurveLayer(*drawing.xAxis); // the drawing owns what is in it
    GraphMouse::Axes axes;
    std::deque<GraphPlot> plots;
    GraphMouse::Cursors cursors;
    GraphMouse mouse{axes, cursors, area, repaints};
    Bezel& bezel = *new Bezel(area);
    QColor frameColor{44, 50, 59};
    int repaintCount = 0;
    bool pressGaveUpDrag = false; // the last press of another button than the left one
};

} // namespace orb
