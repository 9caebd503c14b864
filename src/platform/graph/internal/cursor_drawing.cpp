// SPDX-License-Identifier: GPL-3.0-or-later
#include "cursor_drawing.h"

#include "axis_drawing.h"
#include "contrast.h"
#include "plot_drawing.h"
#include "repaint_queue.h"

namespace orb {

namespace {
constexpr double grip = 4; // half the side of the square at the crossing
}

GraphCursor::Drawing::Drawing(const QString& cursorName, GraphAxis& time, GraphAxis& value, RepaintQueue& queue)
    : QCPLayerable(time.drawing().axis.parentPlot(), overlayLayer),
      name(cursorName),
      x(time),
      repaints(queue),
      y_(value)
{
    setVisible(false);
}

GraphAxis& GraphCursor::Drawing::valueAxis() const
{
    return plot ? plot->valueAxis() : y_;
}

void GraphCursor::Drawing::place(double toX, double toY)
{
    xPosition = toX;
    yPosition = toY;
    repaints.askOverlay();
}

bool GraphCursor::Drawing::snapTo(double toX, double toY)
{
    if (const auto index = plot ? plot->drawing().curve.nearest(toX) : std::nullopt) {
        toX = plot->drawing().curve.x(*index);
        toY = plot->drawing().curve.y(*index);
    }
    if (toX == xPosition && toY == yPosition)
        return false;
    place(toX, toY);
    return true;
}

QRect GraphCursor::Drawing::clipRect() const
{
    return x.drawing().axis.axisRect()->rect();
}

void GraphCursor::Drawing::draw(QCPPainter* painter)
{
    const QRect area = clipRect();
    const QPointF at(x.drawing().axis.coordToPixel(xPosition), valueAxis().drawing().axis.coordToPixel(yPosition));
    if (!(std::abs(at.x()) < 1e6) || !(std::abs(at.y()) < 1e6))
        return;
    const QColor edge = edgeFor(color, x.drawing().axis.axisRect()->backgroundBrush().color());
    painter->setPen(QPen(edge.isValid() ? edge : color, 1));
    painter->drawLine(QLineF(at.x(), area.top(), at.x(), area.bottom()));
    painter->drawLine(QLineF(area.left(), at.y(), area.right(), at.y()));
    painter->setBrush(color);
    painter->drawRect(QRectF(at.x() - grip, at.y() - grip, 2 * grip, 2 * grip));
}

} // namespace orb
