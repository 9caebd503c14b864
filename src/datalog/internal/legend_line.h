// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "graph.h"

#include <QPainter>
#include <QWidget>

namespace orb {

/// A short piece of a plot's line as the graph draws it, on the graph's own background, for the plot's check box.
class LegendLine final : public QWidget {
public:
    /// `graph` must outlive the line.
    LegendLine(const Graph& graph, int plot) : graph_(graph), plot_(plot) { setFixedSize(38, 16); }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(graph_.plotAreaColor());
        painter.drawRoundedRect(rect(), 3, 3);
        graph_.plot(plot_).paintLegend(painter, rect().adjusted(3, 0, -3, 0));
    }

private:
    const Graph& graph_;
    int plot_;
};

} // namespace orb
