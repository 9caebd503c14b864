// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>

namespace orb {

class CursorLines;
class GraphAxis;
class GraphPlot;
class RepaintQueue;

/// A cross of two lines that the operator drags to read a curve off. Starts hidden, at 0, on no plot.
class GraphCursor {
public:
    /// `x`, `y` and `repaints` must outlive this. `y` is the value axis while the cursor is on no plot.
    GraphCursor(GraphAxis& x, GraphAxis& y, RepaintQueue& repaints);
    GraphCursor(const GraphCursor&) = delete;
    GraphCursor& operator=(const GraphCursor&) = delete;

    bool visible() const;
    /// A cursor that is shown while it stands outside of the x range in view comes to the middle of it.
    void setVisible(bool visible);

    /// The plot whose samples the cursor follows, or null.
    const GraphPlot* plot() const { return plot_; }
    /// `plot` must outlive the cursor.
    void setPlot(const GraphPlot& plot);

    QColor color() const;
    void setColor(const QColor& color);

    /// The place, in the units of the x axis and of the plot's value axis.
    double xPosition() const { return xPosition_; }
    double yPosition() const { return yPosition_; }
    void setXPosition(double x);
    void setYPosition(double y);

    /// Moves to the sample of its plot nearest to `x`; to `x` and `y` themselves where it has no plot or no sample.
    /// Gives false if it stood there already.
    bool snapTo(double x, double y);
    /// The value axis that it stands on.
    GraphAxis& valueAxis() const;

private:
    void place(double x, double y);

    GraphAxis& x_;
    GraphAxis& y_;
    RepaintQueue& repaints_;
    const GraphPlot* plot_ = nullptr;
    double xPosition_ = 0;
    double yPosition_ = 0;
    CursorLines* drawn_; // belongs to the drawing
};

} // namespace orb
