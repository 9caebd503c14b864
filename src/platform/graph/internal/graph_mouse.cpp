// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph_mouse.h"

#include "contrast.h"
#include "graph.h"
#include "repaint_queue.h"

#include <algorithm>
#include <cmath>

namespace orb {

namespace {

constexpr int clickTolerance = 3;     // pixels by which a click may move
constexpr int smallestRectangle = 6;  // pixels; a smaller one is a click that slipped
constexpr double zoomOfANotch = 0.85; // what is left of the range

bool isAcross(const GraphAxis& axis)
{
    return axis.drawing().axis.orientation() == Qt::Horizontal;
}

double coordinate(const GraphAxis& axis, const QPointF& at)
{
    return axis.drawing().axis.pixelToCoord(isAcross(axis) ? at.x() : at.y());
}

QCPItemRect& zoomRectangle(QCPAxisRect& area)
{
    auto* rectangle = new QCPItemRect(area.parentPlot());
    rectangle->setLayer(overlayLayer);
    rectangle->setVisible(false);
    rectangle->setAntialiased(false);
    rectangle->topLeft->setType(QCPItemPosition::ptAbsolute);
    rectangle->bottomRight->setType(QCPItemPosition::ptAbsolute);
    return *rectangle;
}

QPoint inside(const QPoint& at, const QRect& area)
{
    return {std::clamp(at.x(), area.left(), area.left() + area.width()),
            std::clamp(at.y(), area.top(), area.top() + area.height())};
}

} // namespace

GraphMouse::GraphMouse(const Axes& axes, const Cursors& cursors, QCPAxisRect& area, RepaintQueue& repaints)
    : axes_(axes),
      cursors_(cursors),
      area_(area),
      repaints_(repaints),
      rectangle_(zoomRectangle(area)),
      mode_(Graph::TrackNone)
{}

void GraphMouse::setMode(int mode)
{
    cancel();
    mode_ = mode;
}

Qt::CursorShape GraphMouse::pointer() const
{
    switch (mode_) {
    case Graph::TrackZoom:
        return Qt::CrossCursor;
    case Graph::TrackPan:
        return dragging_ ? Qt::ClosedHandCursor : Qt::OpenHandCursor;
    case Graph::TrackCursor:
        return Qt::SizeHorCursor;
    default:
        return Qt::ArrowCursor;
    }
}

const GraphCursor* GraphMouse::press(const QPoint& at)
{
    dragging_ = true;
    moved_ = false;
    start_ = at;
    startRanges_.clear();
    for (const GraphAxis& axis : axes_)
        startRanges_.push_back(axis.drawing().axis.range());
    if (mode_ != Graph::TrackCursor || !area_.rect().contains(at))
        return nullptr;
    grabbed_ = nearestCursor(at);
    return moveCursor(at);
}

const GraphCursor* GraphMouse::drag(const QPoint& at)
{
    if (!dragging_)
        return nullptr;
    moved_ = moved_ || (at - start_).manhattanLength() > clickTolerance;
    if (mode_ == Graph::TrackCursor)
        return moveCursor(at);
    if (!moved_ || !area_.rect().contains(start_))
        return nullptr;
    if (mode_ == Graph::TrackPan)
        pan(at);
    if (mode_ == Graph::TrackZoom)
        drawRectangle(inside(at, area_.rect()));
    return nullptr;
}

void GraphMouse::release(const QPoint& at)
{
    drag(at);
    if (dragging_ && mode_ == Graph::TrackZoom && rectangle_.visible())
        zoomToRectangle();
    cancel();
}

void GraphMouse::cancel()
{
    dragging_ = false;
    grabbed_ = nullptr;
    if (rectangle_.visible())
        repaints_.askOverlay();
    rectangle_.setVisible(false);
}

void GraphMouse::drawRectangle(const QPoint& to)
{
    QColor color = textOn(area_.backgroundBrush().color());
    rectangle_.setPen(QPen(color, 1, Qt::DashLine));
    color.setAlpha(32);
    rectangle_.setBrush(color);
    const QRectF rect = QRectF(start_, to).normalized();
    rectangle_.topLeft->setPixelPosition(rect.topLeft());
    rectangle_.bottomRight->setPixelPosition(rect.bottomRight());
    rectangle_.setVisible(true);
    repaints_.askOverlay();
}

void GraphMouse::pan(const QPoint& at)
{
    for (std::size_t i = 0; i < axes_.size(); ++i) {
        const QCPRange& from = startRanges_[i];
        const double moved = isAcross(axes_[i]) ? start_.x() - at.x() : at.y() - start_.y();
        const double length = isAcross(axes_[i]) ? area_.width() : area_.height();
        const double shift = moved / length * from.size();
        axes_[i].drawing().view(from.lower + shift, from.upper + shift);
    }
}

void GraphMouse::zoomToRectangle()
{
    const QPointF corner = rectangle_.topLeft->pixelPosition();
    const QPointF opposite = rectangle_.bottomRight->pixelPosition();
    if (opposite.x() - corner.x() < smallestRectangle || opposite.y() - corner.y() < smallestRectangle)
        return;
    for (const GraphAxis& axis : axes_)
        axis.drawing().view(coordinate(axis, {corner.x(), opposite.y()}), coordinate(axis, {opposite.x(), corner.y()}));
}

void GraphMouse::zoom(const QPoint& at, double turn)
{
    if (mode_ == Graph::TrackNone)
        return;
    const double factor = std::pow(zoomOfANotch, turn);
    for (const GraphAxis& axis : axes_) {
        if (!affects(axis, at))
            continue;
        const double fixed = coordinate(axis, inside(at, area_.rect()));
        axis.drawing().view(fixed + (axis.minimum() - fixed) * factor, fixed + (axis.maximum() - fixed) * factor);
    }
}

bool GraphMouse::affects(const GraphAxis& axis, const QPoint& at) const
{
    if (area_.rect().contains(at))
        return true;
    switch (axis.drawing().axis.axisType()) {
    case QCPAxis::atLeft:
        return at.x() < area_.left();
    case QCPAxis::atRight:
        return at.x() > area_.right();
    default:
        return at.y() > area_.bottom() && at.x() >= area_.left() && at.x() <= area_.right();
    }
}

void GraphMouse::restore()
{
    if (mode_ == Graph::TrackNone)
        return;
    for (const GraphAxis& axis : axes_)
        axis.drawing().restore();
}

const GraphCursor* GraphMouse::nearestCursor(const QPoint& at) const
{
    const GraphCursor* nearest = nullptr;
    double nearestDistance = 0;
    for (const GraphCursor& cursor : cursors_) {
        const double distance = std::abs(axes_.front().drawing().axis.coordToPixel(cursor.xPosition()) - at.x());
        if (cursor.visible() && (!nearest || distance < nearestDistance)) {
            nearest = &cursor;
            nearestDistance = distance;
        }
    }
    return nearest;
}

const GraphCursor* GraphMouse::moveCursor(const QPoint& at)
{
    if (!grabbed_)
        return nullptr;
    const QPoint place = inside(at, area_.rect());
    GraphCursor::Drawing& cursor = grabbed_->drawing();
    const double x = coordinate(axes_.front(), place);
    return cursor.snapTo(x, coordinate(cursor.valueAxis(), place)) ? grabbed_ : nullptr;
}

} // namespace orb
