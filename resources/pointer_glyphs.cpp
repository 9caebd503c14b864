// SPDX-License-Identifier: GPL-3.0-or-later
#include "strokes.h"

#include <QPainterPath>

namespace orb::drawing {

namespace {

const QColor white(0xFFFFFF);

QPainterPath rounded(const QRectF& area, qreal radius)
{
    QPainterPath path;
    path.addRoundedRect(area, radius, radius);
    return path;
}

/// A hand whose first finger points up, with the finger's tip at the origin.
QPainterPath hand()
{
    QPainterPath path = rounded({-2, 0, 4, 16}, 2);
    path |= rounded({2, 8, 4, 9}, 2);
    path |= rounded({6, 9, 4, 9}, 2);
    path |= rounded({10, 10.5, 3.5, 8}, 1.75);
    path |= rounded({-2, 13, 15.5, 11}, 4);
    QPainterPath thumb(QPointF(-1, 19.5));
    thumb.cubicTo(-4, 15, -7.5, 11.5, -6.5, 10.5);
    thumb.cubicTo(-5, 9, -3, 11, -1, 14);
    thumb.closeSubpath();
    return path | thumb;
}

void drawHand(QPainter& painter)
{
    painter.setPen(stroke(QColor(0x1C2733), 1.5));
    painter.setBrush(white);
    painter.drawPath(hand().simplified());
    for (const qreal x : {2.0, 6.0, 10.0})
        painter.drawLine(QPointF(x, 12), QPointF(x, 16));
}

/// Light under dark, so that the pointer shows on any ground.
void drawTurn(QPainter& painter, qreal from, qreal span)
{
    arcArrow(painter, white, {16, 16}, 9, from, span, 5, 6.5);
    arcArrow(painter, QColor(0x1C2733), {16, 16}, 9, from, span, 2.5, 4.5);
    dot(painter, white, {16, 16}, 2.5);
    dot(painter, QColor(0x1C2733), {16, 16}, 1.5);
}

} // namespace

void pointingHand(QPainter& painter)
{
    painter.translate(11, 2);
    drawHand(painter);
}

void leaningHand(QPainter& painter)
{
    painter.translate(3, 3);
    painter.rotate(-45);
    drawHand(painter);
}

void turnLeft(QPainter& painter)
{
    drawTurn(painter, -70, 235);
}

void turnRight(QPainter& painter)
{
    drawTurn(painter, 250, -235);
}

} // namespace orb::drawing
