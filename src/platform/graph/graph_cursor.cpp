// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph_cursor.h"

#include "cursor_drawing.h"
#include "graph_axis.h"
#include "repaint_queue.h"

namespace orb {

const QString& GraphCursor::name() const
{
    return drawing_.name;
}

bool GraphCursor::visible() const
{
    return drawing_.visible();
}

void GraphCursor::setVisible(bool visible)
{
    const GraphAxis& x = drawing_.x;
    const bool inView = xPosition() > x.minimum() && xPosition() < x.maximum();
    if (visible && !drawing_.visible() && !inView)
        setXPosition((x.minimum() + x.maximum()) / 2);
    drawing_.setVisible(visible);
    drawing_.repaints.askOverlay();
}

const GraphPlot* GraphCursor::plot() const
{
    return drawing_.plot;
}

void GraphCursor::setPlot(const GraphPlot& plot)
{
    drawing_.plot = &plot;
    drawing_.repaints.askOverlay();
}

QColor GraphCursor::color() const
{
    return drawing_.color;
}

void GraphCursor::setColor(const QColor& color)
{
    drawing_.color = color;
    drawing_.repaints.askOverlay();
}

double GraphCursor::xPosition() const
{
    return drawing_.xPosition;
}

double GraphCursor::yPosition() const
{
    return drawing_.yPosition;
}

void GraphCursor::setXPosition(double x)
{
    drawing_.place(x, yPosition());
}

void GraphCursor::setYPosition(double y)
{
    drawing_.place(xPosition(), y);
}

} // namespace orb
