// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph.h"

#include "accessible_graph.h"
#include "graph_description.h"
#include "graph_parts.h"

#include <algorithm>
#include <utility>

namespace orb {

Graph::Graph(const GraphPlan& plan, QWidget* parent)
    : Control<QWidget>(parent), parts_(std::make_unique<Parts>(plan, *this))
{
    parts_->drawing.setGeometry(rect());
    setFocusPolicy(Qt::TabFocus); // a click moves no focus, and the menu key opens the menu
    registerAccessibleGraph();
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
    constexpr double imageScale = 2; // device pixels to a pixel of the picture at least
    const QSize size = width() < 100 || height() < 80 ? sizeHint() : this->size();
    const double scale = std::max(imageScale, devicePixelRatioF());
    const QColor focusLine = std::exchange(parts_->bezel.focusLine, QColor()); // a picture has no focus
    QImage image = parts_->drawing.toPixmap(size.width(), size.height(), scale).toImage();
    image.setDevicePixelRatio(scale);
    parts_->bezel.focusLine = focusLine;
    return image;
}

QString Graph::description() const
{
    return graphDescription(parts_->axes, parts_->plots);
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
        parts_->pressGaveUpDrag = parts_->mouse.isDragging();
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

void Graph::focusInEvent(QFocusEvent* event)
{
    Control<QWidget>::focusInEvent(event);
    showFocus(true);
}

void Graph::focusOutEvent(QFocusEvent* event)
{
    Control<QWidget>::focusOutEvent(event);
    showFocus(false);
}

void Graph::showFocus(bool focused)
{
    parts_->bezel.focusLine = focused ? palette().color(QPalette::Highlight) : QColor();
    parts_->repaints.ask();
}

void Graph::reportCursor(const GraphCursor* cursor)
{
    if (cursor && onCursorChange)
        enter([&] { onCursorChange(cursor->xPosition(), cursor->yPosition()); });
}

} // namespace orb
