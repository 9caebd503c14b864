// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QString>

#include <vector>

class QPainter;
class QRectF;

namespace orb {

class GraphAxis;

/// One curve of a graph.
class GraphPlot {
public:
    struct Point {
        double x;
        double y;
        bool operator==(const Point&) const = default;
    };
    /// What the graph alone knows of the plot.
    class Drawing;

    explicit GraphPlot(Drawing& drawing) : drawing_(drawing) {}
    GraphPlot(const GraphPlot&) = delete;
    GraphPlot& operator=(const GraphPlot&) = delete;

    const QString& name() const;

    bool visible() const;
    void setVisible(bool visible);

    QColor lineColor() const;
    void setLineColor(const QColor& color);
    /// A short piece of the curve's line across `rect`, for a legend.
    void paintLegend(QPainter& painter, const QRectF& rect) const;

    /// The axis that the values use.
    GraphAxis& valueAxis() const;

    /// Appends one point at `xIncrement` from the last one; the first point of all is at x 0. A value that is no number
    /// is a gap. Throws `RuntimeFailure` 380 if the increment is not finite.
    void ChartY(double value, double xIncrement);
    /// Replaces the data: `values` from `firstX` on, a time as in `GraphAxis::SetMinMax`, `xIncrement` apart. Moving
    /// the values in avoids a copy. Throws `RuntimeFailure` 13 for a text that is no time, 380 if the increment is not
    /// finite.
    void PlotY(std::vector<double> values, const QString& firstX, double xIncrement);
    /// Removes all points.
    void ClearData();

    std::size_t pointCount() const;
    /// The point with that index, from 0. Throws `RuntimeFailure` 9 for an index that has none.
    Point point(std::size_t index) const;

    Drawing& drawing() const { return drawing_; }

private:
    void changed();

    Drawing& drawing_;
};

} // namespace orb
