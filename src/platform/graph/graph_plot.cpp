// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph_plot.h"

#include "axis_format.h"
#include "curve_layer.h"
#include "failure.h"
#include "graph_axis.h"
#include "repaint_queue.h"

#include <cmath>

namespace orb {

namespace {

void checkIncrement(double increment)
{
    if (!std::isfinite(increment))
        throw RuntimeFailure(failure::InvalidPropertyValue);
}

} // namespace

GraphPlot::GraphPlot(CurveLayer& curves, GraphAxis& y, const GraphPlotPlan& plan, RepaintQueue& repaints,
                     std::function<void()> dataChanged)
    : curves_(curves),
      y_(y),
      repaints_(repaints),
      dataChanged_(std::move(dataChanged)),
      name_(plan.name),
      drawn_(curves.add(curve_, y.drawn(), plan.color, plan.dashed))
{}

bool GraphPlot::visible() const
{
    return drawn_.visible;
}

void GraphPlot::setVisible(bool visible)
{
    drawn_.visible = visible;
    repaints_.ask();
}

QColor GraphPlot::lineColor() const
{
    return drawn_.color;
}

void GraphPlot::setLineColor(const QColor& color)
{
    drawn_.color = color;
    repaints_.ask();
}

bool GraphPlot::dashed() const
{
    return drawn_.dashed;
}

void GraphPlot::paintLegend(QPainter& painter, const QRectF& rect) const
{
    const double scale = painter.deviceTransform().m11();
    QImage canvas((rect.size() * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::transparent);
    Curve line;
    line.assign({0, 0}, 0, 1);
    const PixelScale x{0, static_cast<double>(canvas.width()), 0};
    const PixelScale y{0, 1, canvas.height() / 2.0};
    paintCurve(canvas, line, {x, y, canvas.width(), canvas.height()}, curves_.style(drawn_), scale);
    canvas.setDevicePixelRatio(scale);
    painter.drawImage(rect.topLeft(), canvas);
}

void GraphPlot::ChartY(double value, double xIncrement)
{
    checkIncrement(xIncrement);
    curve_.append(value, xIncrement);
    changed();
}

void GraphPlot::PlotY(std::vector<double> values, const QString& firstX, double xIncrement)
{
    checkIncrement(xIncrement);
    curve_.assign(std::move(values), axisTime(firstX), xIncrement);
    changed();
}

void GraphPlot::ClearData()
{
    curve_.clear();
    changed();
}

Curve::Point GraphPlot::point(std::size_t index) const
{
    if (index >= curve_.size())
        throw RuntimeFailure(failure::SubscriptOutOfRange);
    return curve_.point(index);
}

void GraphPlot::changed()
{
    if (dataChanged_)
        dataChanged_();
    repaints_.ask();
}

} // namespace orb
