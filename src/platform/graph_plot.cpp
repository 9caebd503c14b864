// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph_plot.h"

#include "axis_format.h"
#include "curve_plottable.h"
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

GraphPlot::GraphPlot(GraphAxis& x, GraphAxis& y, const GraphPlotPlan& plan, RepaintQueue& repaints,
                     std::function<void()> dataChanged)
    : y_(y),
      repaints_(repaints),
      dataChanged_(std::move(dataChanged)),
      name_(plan.name),
      drawn_(new CurvePlottable(x.drawn(), y.drawn(), curve_, plan.colour, plan.dashed))
{}

bool GraphPlot::visible() const
{
    return drawn_->visible();
}

void GraphPlot::setVisible(bool visible)
{
    drawn_->setVisible(visible);
    repaints_.ask();
}

QColor GraphPlot::lineColour() const
{
    return drawn_->colour();
}

void GraphPlot::setLineColour(const QColor& colour)
{
    drawn_->setColour(colour);
    repaints_.ask();
}

bool GraphPlot::dashed() const
{
    return drawn_->dashed();
}

void GraphPlot::paintLegend(QPainter& painter, const QRectF& rect) const
{
    Curve line;
    line.assign({0, 0}, 0, 1);
    const double scale = painter.deviceTransform().m11();
    SketchArea area;
    area.width = static_cast<int>(rect.width() * scale);
    area.height = static_cast<int>(rect.height() * scale);
    area.x = {0, static_cast<double>(area.width), 0};
    area.y = {0, 1, area.height / 2.0};
    painter.save();
    painter.setClipRect(rect);
    painter.translate(rect.topLeft());
    painter.scale(1 / scale, 1 / scale);
    paintCurve(painter, line, area, drawn_->style(), scale);
    painter.restore();
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
