// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "axis_scale.h"
#include "graph_axis.h"
#include "graph_cursor.h"

#include <QPoint>

class QCPAxisRect;

namespace orb {

class ZoomRectangle;

/// What the operator's mouse does to the axes and cursors of a graph. All positions are pixels of the widget.
class GraphMouse {
public:
    using Axes = std::vector<std::unique_ptr<GraphAxis>>;
    using Cursors = std::vector<std::unique_ptr<GraphCursor>>;

    /// All must outlive this; `area` is the plot area.
    GraphMouse(const Axes& axes, const Cursors& cursors, QCPAxisRect& area, RepaintQueue& repaints);

    /// One of `Graph::TrackModes`.
    int mode() const { return mode_; }
    /// Gives up a drag under way.
    void setMode(int mode);
    /// The pointer that tells the operator what a drag would do.
    Qt::CursorShape pointer() const;

    /// Each gives the cursor that it moved, or null.
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
    void pan(const QPoint& at);
    void zoomToRectangle();
    bool affects(const GraphAxis& axis, const QPoint& at) const;
    const GraphCursor* moveCursor(const QPoint& at);
    GraphCursor* nearestCursor(const QPoint& at) const;

    const Axes& axes_;
    const Cursors& cursors_;
    QCPAxisRect& area_;
    RepaintQueue& repaints_;
    ZoomRectangle* rectangle_; // belongs to the drawing
    int mode_;
    bool dragging_ = false;
    bool moved_ = false;
    QPoint start_;
    std::vector<AxisRange> startRanges_;
    GraphCursor* grabbed_ = nullptr;
};

} // namespace orb
