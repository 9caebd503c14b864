// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph_plot.h"

#include "axis_format.h"
#include "curve_layer.h"
#include "failure.h"
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

const QString& GraphPlot::name() const
{
    return drawing_.plan.name;
}

bool GraphPlot::visible() const
{
    return drawing_.visible;
}

void GraphPlot::setVisible(bool visible)
{
    drawing_.visible = visible;
    drawing_.repaints.ask();
}

QColor GraphPlot::lineColor() const
{
    return drawing_.plan.color;
}

void GraphPlot::setLineColor(const QColor& color)
{
    drawing_.plan.color = color;
    drawing_.repaints.ask();
}

void GraphPlot::paintLegend(QPainter& painter, const QRectF& rect) const
{
    CurveLayer::paintLegend(drawing_, painter, rect);
}

GraphAxis& GraphPlot::valueAxis() const
{
    return drawing_.y;
}

void GraphPlot::ChartY(double value, double xIncrement)
{
    checkIncrement(xIncrement);
    drawing_.curve.append(value, xIncrement);
    changed();
}

void GraphPlot::PlotY(std::vector<double> values, const QString& firstX, double xIncrement)
{
    checkIncrement(xIncrement);
    drawing_.curve.assign(std::move(values), axisTime(firstX), xIncrement);
    changed();
}

void GraphPlot::ClearData()
{
    drawing_.curve = {};
    changed();
}

std::size_t GraphPlot::pointCount() const
{
    return drawing_.curve.size();
}

GraphPlot::Point GraphPlot::point(std::size_t index) const
{
    if (index >= pointCount())
        throw RuntimeFailure(failure::SubscriptOutOfRange);
    return {drawing_.curve.x(index), drawing_.curve.y(index)};
}

void GraphPlot::changed()
{
    drawing_.onDataChange();
    drawing_.repaints.ask();
}

} // namespace orb
