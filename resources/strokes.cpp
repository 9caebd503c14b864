// SPDX-License-Identifier: GPL-3.0-or-later
#include "strokes.h"

#include <QPainterPath>

namespace orb::drawing {

QPen stroke(const QColor& color, qreal width)
{
    return QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

void polyline(QPainter& painter, const QColor& color, std::initializer_list<QPointF> points, qreal width)
{
    painter.setPen(stroke(color, width));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(points.begin(), static_cast<int>(points.size()));
}

void polygon(QPainter& painter, const QColor& line, const QColor& fill, std::initializer_list<QPointF> points)
{
    painter.setPen(stroke(line));
    painter.setBrush(fill);
    painter.drawPolygon(points.begin(), static_cast<int>(points.size()));
}

void box(QPainter& painter, const QColor& line, const QColor& fill, const QRectF& area, qreal radius)
{
    painter.setPen(stroke(line));
    painter.setBrush(fill);
    painter.drawRoundedRect(area, radius, radius);
}

void solid(QPainter& painter, const QColor& color, const QRectF& area, qreal radius)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawRoundedRect(area, radius, radius);
}

void dot(QPainter& painter, const QColor& color, const QPointF& middle, qreal radius)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawEllipse(middle, radius, radius);
}

void solidPolygon(QPainter& painter, const QColor& color, std::initializer_list<QPointF> points, qreal rounding)
{
    painter.setPen(stroke(color, rounding));
    painter.setBrush(color);
    painter.drawPolygon(points.begin(), static_cast<int>(points.size()));
}

void sideArrow(QPainter& painter, const QColor& color, qreal x0, qreal x1, qreal y)
{
    const qreal back = x1 > x0 ? -5 : 5;
    polyline(painter, color, {{x0, y}, {x1, y}}, 3);
    polyline(painter, color, {{x1 + back, y - 5}, {x1, y}, {x1 + back, y + 5}}, 3);
}

void arcArrow(QPainter& painter, const QColor& color, const QPointF& middle, qreal radius, qreal from, qreal span,
              qreal width, qreal head)
{
    const QRectF circle(middle.x() - radius, middle.y() - radius, 2 * radius, 2 * radius);
    QPainterPath arc;
    arc.arcMoveTo(circle, from);
    arc.arcTo(circle, from, span);
    QPen pen = stroke(color, width);
    pen.setCapStyle(Qt::FlatCap);
    painter.strokePath(arc, pen);

    painter.save();
    painter.translate(arc.currentPosition());
    painter.rotate(-(from + span)); // the x axis now leads outwards
    const qreal tip = span > 0 ? -head : head;
    solidPolygon(painter, color, {{-head, 0}, {head, 0}, {0, tip * 1.2}}, 1);
    painter.restore();
}

void disc(QPainter& painter, const Ink& ink)
{
    dot(painter, ink.accent, {16, 16}, 14);
}

void smallInstrument(QPainter& painter, const Ink& ink)
{
    box(painter, ink.line, ink.fill, {13, 4, 16, 24}, 3);
    solid(painter, ink.line, {16, 7, 10, 7}, 1);
    for (const qreal x : {17.0, 21.0, 25.0})
        dot(painter, ink.line, {x, 24}, 1.25);
}

void sheet(QPainter& painter, const Ink& ink)
{
    polygon(painter, ink.line, ink.paper, {{5, 4}, {17, 4}, {23, 10}, {23, 28}, {5, 28}});
    polygon(painter, ink.line, ink.fill, {{17, 4}, {17, 10}, {23, 10}});
}

} // namespace orb::drawing
