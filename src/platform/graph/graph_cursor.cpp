// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph_cursor.h"

#include "graph_axis.h"
#include "graph_items.h"
#include "graph_plot.h"
#include "repaint_queue.h"

namespace orb {

GraphCursor::GraphCursor(GraphAxis& x, GraphAxis& y, RepaintQueue& repaints)
    : x_(x), y_(y), repaints_(repaints), drawn_(new CursorLines(x.drawn(), y.drawn()))
{
    drawn_->color = Qt::white;
}

bool GraphCursor::visible() const
{
    return drawn_->visible();
}

void GraphCursor::setVisible(bool visible)
{
    const bool inView = xPosition_ > x_.minimum() && xPosition_ < x_.maximum();
    if (visible && !drawn_->visible() && !inView)
        setXPosition((x_.minimum() + x_.maximum()) / 2);
    drawn_->setVisible(visible);
    repaints_.askOverlay();
}

void GraphCursor::setPlot(const GraphPlot& plot)
{
    plot_ = &plot;
    drawn_->setValueAxis(plot.valueAxis().drawn());
    repaints_.askOverlay();
}

QColor GraphCursor::color() const
{
    return drawn_->color;
}

void GraphCursor::setColor(const QColor& color)
{
    drawn_->color = color;
    repaints_.askOverlay();
}

void GraphCursor::setXPosition(double x)
{
    place(x, yPosition_);
}

void GraphCursor::setYPosition(double y)
{
    place(xPosition_, y);
}

bool GraphCursor::snapTo(double x, double y)
{
    if (plot_) {
        if (const auto index = plot_->data().nearest(x)) {
            x = plot_->data().x(*index);
            y = plot_->data().y(*index);
        }
    }
    if (x == xPosition_ && y == yPosition_)
        return false;
    place(x, y);
    return true;
}

GraphAxis& GraphCursor::valueAxis() const
{
    return plot_ ? plot_->valueAxis() : y_;
}

void GraphCursor::place(double x, double y)
{
    xPosition_ = x;
    yPosition_ = y;
    drawn_->place = {x, y};
    repaints_.askOverlay();
}

} // namespace orb
