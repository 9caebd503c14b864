// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph.h"

#include "bezel.h"
#include "contrast.h"
#include "curve_layer.h"
#include "failure.h"
#include "graph_mouse.h"
#include "repaint_queue.h"

#include <QCoreApplication>
#include <QEvent>

#include <algorithm>
#include <cmath>

namespace orb {

namespace {

const QColor startFrameColor(44, 50, 59);
const QColor startPlotAreaColor(12, 15, 20);
const QColor startGridColor(54, 62, 74);
constexpr double imageScale = 2; // device pixels to a pixel of `ControlImage` at least
constexpr int surround = 10;     // pixels between the bezel and what is inside

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

template <typename Part> Part& numbered(std::deque<Part>& parts, int number)
{
    if (number < 1 || number > static_cast<int>(parts.size()))
        throw RuntimeFailure(failure::SubscriptOutOfRange);
    return parts[static_cast<std::size_t>(number - 1)];
}

} // namespace

struct Graph::Parts {
    Parts(const GraphPlan& plan, QWidget& graph);

    void addAxes(const GraphPlan& plan);
    void addPlots(const GraphPlan& plan);
    void closeBox();
    void recolor();
    void settleLayout();
    void fitAxes();
    void repaint(bool everything);

    QCustomPlot drawing; // before what is drawn in it
    QCPAxisRect& area = *drawing.axisRect();
    RepaintQueue repaints{[this](bool everything) { repaint(everything); }};
    CurveLayer& curves = *new CurveLayer(*drawing.xAxis); // the drawing owns what is in it
    GraphMouse::Axes axes;
    std::deque<GraphPlot> plots;
    GraphMouse::Cursors cursors;
    GraphMouse mouse{axes, cursors, area, repaints};
    Bezel& bezel = *new Bezel(area);
    QColor frameColor = startFrameColor;
    int repaintCount = 0;
};

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

Graph::Graph(const GraphPlan& plan, QWidget* parent)
    : Control<QWidget>(parent), parts_(std::make_unique<Parts>(plan, *this))
{
    parts_->drawing.setGeometry(rect());
}

Graph::~Graph() = default;

int Graph::axisCount() const
{
    return static_cast<int>(parts_->axes.size());
}

int Graph::plotCount() const
{
    return static_cast<int>(parts_->plots.size());
}

int Graph::cursorCount() const
{
    return static_cast<int>(parts_->cursors.size());
}

GraphAxis& Graph::axis(int number) const
{
    return numbered(parts_->axes, number);
}

GraphPlot& Graph::plot(int number) const
{
    return numbered(parts_->plots, number);
}

GraphCursor& Graph::cursor(int number) const
{
    return numbered(parts_->cursors, number);
}

void Graph::ClearData()
{
    for (GraphPlot& plot : parts_->plots)
        plot.ClearData();
}

int Graph::TrackMode() const
{
    return parts_->mouse.mode();
}

void Graph::setTrackMode(int mode)
{
    if (mode != TrackNone && mode != TrackCursor && mode != TrackPan && mode != TrackZoom)
        throw RuntimeFailure(failure::InvalidPropertyValue);
    parts_->mouse.setMode(mode);
    setCursor(parts_->mouse.pointer());
}

QColor Graph::frameColor() const
{
    return parts_->frameColor;
}

void Graph::setFrameColor(const QColor& color)
{
    parts_->frameColor = color;
    parts_->recolor();
}

QColor Graph::plotAreaColor() const
{
    return parts_->area.backgroundBrush().color();
}

void Graph::setPlotAreaColor(const QColor& color)
{
    parts_->area.setBackground(QBrush(color));
    parts_->repaints.ask();
}

bool Graph::elementVisible(const QString& name) const
{
    if (name != QLatin1String("Graph Frame"))
        throw RuntimeFailure(failure::SubscriptOutOfRange);
    return parts_->bezel.visible();
}

void Graph::setElementVisible(const QString& name, bool visible)
{
    if (elementVisible(name) == visible)
        return;
    parts_->bezel.setVisible(visible);
    parts_->repaints.ask();
}

QImage Graph::ControlImage() const
{
    const QSize size = width() < 100 || height() < 80 ? sizeHint() : this->size();
    const double scale = std::max(imageScale, devicePixelRatioF());
    QImage image = parts_->drawing.toPixmap(size.width(), size.height(), scale).toImage();
    image.setDevicePixelRatio(scale);
    return image;
}

void Graph::repaintNow()
{
    parts_->repaints.paintNow();
}

int Graph::repaintCount() const
{
    return parts_->repaintCount;
}

QRect Graph::plotArea() const
{
    return parts_->area.rect();
}

void Graph::resizeEvent(QResizeEvent* event)
{
    Control<QWidget>::resizeEvent(event);
    parts_->drawing.setGeometry(rect());
}

void Graph::showEvent(QShowEvent* event)
{
    Control<QWidget>::showEvent(event);
    parts_->repaints.ask();
    parts_->repaints.setAsleep(false);
}

void Graph::hideEvent(QHideEvent* event)
{
    Control<QWidget>::hideEvent(event);
    parts_->mouse.cancel();
    parts_->repaints.setAsleep(true);
}

void Graph::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        parts_->mouse.cancel();
        return;
    }
    reportCursor(parts_->mouse.press(event->pos()));
    setCursor(parts_->mouse.pointer());
}

void Graph::mouseMoveEvent(QMouseEvent* event)
{
    reportCursor(parts_->mouse.drag(event->pos()));
}

void Graph::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !parts_->mouse.isDragging())
        return;
    reportCursor(parts_->mouse.drag(event->pos()));
    const bool isClick = parts_->mouse.isClick();
    parts_->mouse.release(event->pos());
    setCursor(parts_->mouse.pointer());
    if (isClick)
        enter(onClick);
}

void Graph::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        parts_->mouse.restore();
}

void Graph::wheelEvent(QWheelEvent* event)
{
    parts_->mouse.zoom(event->position().toPoint(), event->angleDelta().y() / 120.0);
    event->accept();
}

void Graph::reportCursor(const GraphCursor* cursor)
{
    if (cursor && onCursorChange)
        enter([&] { onCursorChange(cursor->xPosition(), cursor->yPosition()); });
}

} // namespace orb
