// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph_mouse.h"

#include "graph.h"
#include "graph_items.h"
#include "repaint_queue.h"

#include <algorithm>
#include <cmath>

namespace orb {

namespace {

constexpr int clickTolerance = 3;     // pixels that a hand shakes
constexpr int smallestRectangle = 6;  // pixels; less is a slip and no wish to zoom
constexpr double zoomOfANotch = 0.85; // what is left of the range

bool isAcross(const GraphAxis& axis)
{
    return axis.drawn().orientation() == Qt::Horizontal;
}

double coordinate(const GraphAxis& axis, const QPointF& at)
{
    return axis.drawn().pixelToCoord(isAcross(axis) ? at.x() : at.y());
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
      rectangle_(new ZoomRectangle(area)),
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
    for (const auto& axis : axes_)
        startRanges_.push_back({axis->minimum(), axis->maximum()});
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
    if (mode_ == Graph::TrackZoom) {
        rectangle_->rectangle = QRectF(start_, inside(at, area_.rect())).normalized();
        rectangle_->setVisible(true);
        repaints_.askOverlay();
    }
    return nullptr;
}

void GraphMouse::release(const QPoint& at)
{
    drag(at);
    if (dragging_ && mode_ == Graph::TrackZoom && rectangle_->visible())
        zoomToRectangle();
    cancel();
}

void GraphMouse::cancel()
{
    dragging_ = false;
    grabbed_ = nullptr;
    if (rectangle_->visible())
        repaints_.askOverlay();
    rectangle_->setVisible(false);
}

void GraphMouse::pan(const QPoint& at)
{
    for (std::size_t i = 0; i < axes_.size(); ++i) {
        const GraphAxis& axis = *axes_[i];
        const AxisRange& from = startRanges_[i];
        const double moved = isAcross(axis) ? start_.x() - at.x() : at.y() - start_.y();
        const double length = isAcross(axis) ? area_.width() : area_.height();
        const double shift = moved / length * from.span();
        axes_[i]->view(from.minimum + shift, from.maximum + shift);
    }
}

void GraphMouse::zoomToRectangle()
{
    const QRectF& rect = rectangle_->rectangle;
    if (rect.width() < smallestRectangle || rect.height() < smallestRectangle)
        return;
    for (const auto& axis : axes_)
        axis->view(coordinate(*axis, rect.bottomLeft()), coordinate(*axis, rect.topRight()));
}

void GraphMouse::zoom(const QPoint& at, double turn)
{
    if (mode_ == Graph::TrackNone)
        return;
    const double factor = std::pow(zoomOfANotch, turn);
    for (const auto& axis : axes_) {
        if (!affects(*axis, at))
            continue;
        const double fixed = coordinate(*axis, inside(at, area_.rect()));
        axis->view(fixed + (axis->minimum() - fixed) * factor, fixed + (axis->maximum() - fixed) * factor);
    }
}

bool GraphMouse::affects(const GraphAxis& axis, const QPoint& at) const
{
    if (area_.rect().contains(at))
        return true;
    switch (axis.drawn().axisType()) {
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
    for (const auto& axis : axes_)
        axis->restore();
}

GraphCursor* GraphMouse::nearestCursor(const QPoint& at) const
{
    GraphCursor* nearest = nullptr;
    double nearestDistance = 0;
    for (const auto& cursor : cursors_) {
        const double distance = std::abs(axes_.front()->drawn().coordToPixel(cursor->xPosition()) - at.x());
        if (cursor->visible() && (!nearest || distance < nearestDistance)) {
            nearest = cursor.get();
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
    const double x = coordinate(*axes_.front(), place);
    return grabbed_->snapTo(x, coordinate(grabbed_->valueAxis(), place)) ? grabbed_ : nullptr;
}

} // namespace orb
