// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph_parts.h"

#include "contrast.h"

#include <QCoreApplication>
#include <QEvent>

#include <algorithm>
#include <cmath>

namespace orb {

namespace {

const QColor startPlotAreaColor(12, 15, 20);
const QColor startGridColor(54, 62, 74);
constexpr int surround = 10; // pixels between the bezel and what is inside

QCPAxis& drawnAxis(QCPAxisRect& area, AxisSide side)
{
    const QCPAxis::AxisType type = side == AxisSide::Bottom ? QCPAxis::atBottom
                                   : side == AxisSide::Left ? QCPAxis::atLeft
                                                            : QCPAxis::atRight;
    for (QCPAxis* axis : area.axes(type)) // of those made in advance each is used once
        if (axis->label().isNull())
            return *axis;
    return *area.addAxis(type);
}

} // namespace

Graph::Parts::Parts(const GraphPlan& plan, QWidget& graph) : drawing(&graph)
{
    if (plan.axes.size() < 2 || plan.axes.front().side != AxisSide::Bottom)
        throw RuntimeFailure(failure::InvalidPropertyValue);
    QCoreApplication::removePostedEvents(&drawing, QEvent::MetaCall); // a repaint of its own, before it is shown
    drawing.setAttribute(Qt::WA_TransparentForMouseEvents);
    drawing.setFocusPolicy(Qt::NoFocus);
    area.setBackground(QBrush(startPlotAreaColor));
    addAxes(plan);
    addPlots(plan);
    for (int i = 1; i <= plan.cursors; ++i)
        cursors.emplace_back(*new GraphCursor::Drawing(QStringLiteral("Cursor-%1").arg(i), axes[0], axes[1], repaints));
    recolor();
    QObject::connect(&drawing, &QCustomPlot::afterLayout, &drawing, [this] { settleLayout(); });
}

void Graph::Parts::addAxes(const GraphPlan& plan)
{
    for (const GraphAxisPlan& axis : plan.axes) {
        QCPAxis& drawn = drawnAxis(area, axis.side);
        drawn.setVisible(true);
        drawn.setTickLabelPadding(axis.side == AxisSide::Bottom ? 8 : 5);
        axes.emplace_back(GraphAxis::Drawing::of(drawn, axis, repaints));
        axes.back().setGridColor(startGridColor);
        drawn.grid()->setVisible(axes.size() <= 2);
    }
    closeBox();
}

void Graph::Parts::closeBox()
{
    for (QCPAxis* axis : {drawing.xAxis2, drawing.yAxis2}) {
        if (axis->visible())
            continue;
        axis->setVisible(true);
        axis->setTicks(false);
        axis->setTickLabels(false);
    }
}

void Graph::Parts::addPlots(const GraphPlan& plan)
{
    for (const GraphPlotPlan& plot : plan.plots) {
        GraphAxis& valueAxis = numbered(axes, plot.valueAxis);
        curves.plots.push_back({plot, valueAxis, repaints, [this] { fitAxes(); }});
        plots.emplace_back(curves.plots.back());
    }
}

void Graph::Parts::recolor()
{
    const QColor text = textOn(frameColor);
    const QPen line(mixed(text, frameColor, 0.6), 1);
    drawing.setBackground(QBrush(frameColor));
    bezel.ground = frameColor;
    for (QCPAxis* axis : area.axes()) {
        axis->setLabelColor(text);
        axis->setTickLabelColor(text);
        axis->setBasePen(line);
        axis->setTickPen(line);
        axis->setSubTickPen(line);
    }
    repaints.ask();
}

void Graph::Parts::settleLayout()
{
    // Which labels fit depends on the length of the axes, and that in turn on the room that the labels take.
    for (int pass = 0; pass < 3; ++pass) {
        const QRect before = area.rect();
        double half = 0;
        const QFontMetricsF metrics(drawing.xAxis->tickLabelFont());
        for (const QString& label : axes[0].drawing().labels())
            half = std::max(half, metrics.horizontalAdvance(label) / 2);
        const int side = static_cast<int>(std::ceil(half)) + surround / 2;
        area.setMinimumMargins({side, surround + static_cast<int>(metrics.height() / 2), side, surround});
        for (const auto phase :
             {QCPLayoutElement::upPreparation, QCPLayoutElement::upMargins, QCPLayoutElement::upLayout})
            drawing.plotLayout()->update(phase);
        if (area.rect() == before)
            return;
    }
}

void Graph::Parts::fitAxes()
{
    for (const GraphAxis& axis : axes) {
        if (!axis.drawing().plan.autoScale)
            continue;
        Extent extent{0, 0};
        for (const GraphPlot& plot : plots)
            if (&axis == &axes.front())
                extent.add(plot.drawing().curve.xExtent());
            else if (&axis == &plot.valueAxis())
                extent.add(plot.drawing().curve.extent());
        axis.drawing().fit(extent.lowest, extent.highest);
    }
}

void Graph::Parts::repaint(bool everything)
{
    if (!everything) {
        drawing.layer(overlayLayer)->replot();
        return;
    }
    drawing.replot(QCustomPlot::rpImmediateRefresh);
    ++repaintCount;
}

Extent Graph::Parts::times() const
{
    Extent extent;
    for (const GraphPlot& plot : plots)
        if (plot.visible())
            extent.add(plot.drawing().curve.xExtent());
    return extent;
}

Extent Graph::Parts::valuesInView(const GraphAxis& axis) const
{
    Extent extent;
    for (const GraphPlot& plot : plots)
        if (plot.visible() && &plot.valueAxis() == &axis)
            extent.add(plot.drawing().curve.extentWithin({axes[0].minimum(), axes[0].maximum()}));
    return extent;
}

} // namespace orb
