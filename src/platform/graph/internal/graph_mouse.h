// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "axis_drawing.h"
#include "cursor_drawing.h"

#include <QPoint>

#include <deque>

namespace orb {

/// What the operator's mouse does to the axes and cursors of a graph. All positions are pixels of the widget.
class GraphMouse {
public:
    using Axes = std::deque<GraphAxis>;
    using Cursors = std::deque<GraphCursor>;

    /// All must outlive this; `area` is the plot area.
    GraphMouse(const Axes& axes, const Cursors& cursors, QCPAxisRect& area, RepaintQueue& repaints);

    /// One of `Graph::TrackModes`.
    int mode() const { return mode_; }
    /// Gives up a drag under way.
    void setMode(int mode);
    /// The shape of the pointer, which shows what a drag would do.
    Qt::CursorShape pointer() const;

    /// Both return the cursor that they moved, or null.
    const GraphCursor* press(const QPoint& at);
    const GraphCursor* drag(const QPoint& at);
    void release(const QPoint& at);
    /// Ends a drag without its effect.
    void cancel();
    /// True between a press and its release.
    bool isDragging() const { return dragging_; }
    /// True while the mouse has stayed where it was pressed.
    bool isClick() const { return !moved_; }

    /// Shows less for a `turn` above 0 and more below, a notch of the wheel being 1. What was under the mouse stays.
    void zoom(const QPoint& at, double turn);
    /// All axes back to the ranges last set.
    void restore();

private:
    void drawRectangle(const QPoint& to);
    void pan(const QPoint& at);
    void zoomToRectangle();
    bool affects(const GraphAxis& axis, const QPoint& at) const;
    const GraphCursor* moveCursor(const QPoint& at);
    const GraphCursor* nearestCursor(const QPoint& at) const;

    const Axes& axes_;
    const Cursors& cursors_;
    QCPAxisRect& area_;
    RepaintQueue& repaints_;
    QCPItemRect& rectangle_; // belongs to the drawing
    int mode_;
    bool dragging_ = false;
    bool moved_ = false;
    QPoint start_;
    std::vector<QCPRange> startRanges_;
    const GraphCursor* grabbed_ = nullptr;
};

} // namespace orb
