// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph_items.h"

#include "contrast.h"

namespace orb {

namespace {
constexpr double grip = 4; // half the side of the square at a cursor's crossing
}

CursorLines::CursorLines(QCPAxis& x, QCPAxis& y) : QCPLayerable(x.parentPlot(), overlayLayer), x_(x), y_(&y)
{
    setVisible(false);
}

void CursorLines::draw(QCPPainter* painter)
{
    const QRectF area = x_.axisRect()->rect();
    const QPointF at(x_.coordToPixel(place.x()), y_->coordToPixel(place.y()));
    if (!(std::abs(at.x()) < 1e6) || !(std::abs(at.y()) < 1e6))
        return;
    const QColor edge = edgeFor(color, x_.axisRect()->backgroundBrush().color());
    painter->setPen(QPen(edge.isValid() ? edge : color, 1));
    painter->drawLine(QLineF(at.x(), area.top(), at.x(), area.bottom()));
    painter->drawLine(QLineF(area.left(), at.y(), area.right(), at.y()));
    painter->setBrush(color);
    painter->drawRect(QRectF(at.x() - grip, at.y() - grip, 2 * grip, 2 * grip));
}

ZoomRectangle::ZoomRectangle(QCPAxisRect& area) : QCPLayerable(area.parentPlot(), overlayLayer), area_(area)
{
    setVisible(false);
}

void ZoomRectangle::draw(QCPPainter* painter)
{
    QColor color = textOn(area_.backgroundBrush().color());
    painter->setPen(QPen(color, 1, Qt::DashLine));
    color.setAlpha(32);
    painter->setBrush(color);
    painter->drawRect(rectangle);
}

Bezel::Bezel(QCPAxisRect& area) : QCPLayerable(area.parentPlot(), QStringLiteral("background")), area_(area) {}

void Bezel::draw(QCPPainter* painter)
{
    const QRectF rim = QRectF(mParentPlot->viewport()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(mixed(ground, Qt::black, 0.45), 1));
    painter->drawRect(rim);
    painter->setPen(QPen(mixed(ground, Qt::white, 0.75), 1));
    painter->drawRect(rim.adjusted(1, 1, -1, -1));
    painter->setPen(QPen(mixed(ground, Qt::black, 0.45), 3));
    painter->drawRect(QRectF(area_.rect()).adjusted(-2, -2, 2, 2));
}

} // namespace orb
