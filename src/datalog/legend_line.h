// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "graph_plot.h"

#include <QPainter>
#include <QWidget>

namespace orb {

/// A short piece of a plot's line, as the graph draws it, to stand before the plot's check box.
class LegendLine final : public QWidget {
public:
    /// `plot` must outlive the line.
    explicit LegendLine(const GraphPlot& plot, QWidget* parent = nullptr) : QWidget(parent), plot_(plot)
    {
        setFixedSize(20, 14);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        plot_.paintLegend(painter, rect());
    }

private:
    const GraphPlot& plot_;
};

} // namespace orb
