// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "curve.h"
#include "graph_plan.h"

#include <functional>

class QPainter;
class QRectF;

namespace orb {

class CurveLayer;
struct DrawnCurve;
class GraphAxis;
class RepaintQueue;

/// One curve of a graph.
class GraphPlot {
public:
    /// `y`, `curves` and `repaints` must outlive this. `dataChanged` runs behind every change of the data.
    GraphPlot(CurveLayer& curves, GraphAxis& y, const GraphPlotPlan& plan, RepaintQueue& repaints,
              std::function<void()> dataChanged);
    GraphPlot(const GraphPlot&) = delete;
    GraphPlot& operator=(const GraphPlot&) = delete;

    const QString& name() const { return name_; }

    bool visible() const;
    void setVisible(bool visible);

    QColor lineColor() const;
    void setLineColor(const QColor& color);
    bool dashed() const;
    /// A short piece of the curve's line across `rect`, for a legend.
    void paintLegend(QPainter& painter, const QRectF& rect) const;

    /// The axis that the values use.
    GraphAxis& valueAxis() const { return y_; }

    /// Appends one point, `xIncrement` behind the last one; the first point of all stands at x 0. A value that is no
    /// number is a gap. Throws `RuntimeFailure` 380 if the increment is not finite.
    void ChartY(double value, double xIncrement);
    /// Replaces the data: `values` from `firstX` on (a time, see `axisTime`), `xIncrement` apart. Moving the values in
    /// avoids a copy. Throws `RuntimeFailure` 13 for a text that is no time, 380 if the increment is not finite.
    void PlotY(std::vector<double> values, const QString& firstX, double xIncrement);
    /// Removes all points.
    void ClearData();

    const Curve& data() const { return curve_; }
    std::size_t pointCount() const { return curve_.size(); }
    /// The point with that index, from 0. Throws `RuntimeFailure` 9 outside of the points there are.
    Curve::Point point(std::size_t index) const;

private:
    void changed();

    CurveLayer& curves_;
    GraphAxis& y_;
    RepaintQueue& repaints_;
    std::function<void()> dataChanged_;
    QString name_;
    Curve curve_;
    DrawnCurve& drawn_;
};

} // namespace orb
