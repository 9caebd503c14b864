// SPDX-License-Identifier: GPL-3.0-or-later
#include "strokes.h"

#include <QPainterPath>

namespace orb::drawing {

void plug(QPainter& painter, const Ink& ink)
{
    polyline(painter, ink.line, {{2, 16}, {5, 16}}, 3);
    polyline(painter, ink.line, {{28, 16}, {30, 16}}, 3);
    polyline(painter, ink.line, {{13, 12}, {18, 12}});
    polyline(painter, ink.line, {{13, 20}, {18, 20}});
    QPainterPath left(QPointF(13, 7));
    left.arcTo(QRectF(4, 7, 18, 18), 90, 180);
    left.closeSubpath();
    QPainterPath right(QPointF(20, 7));
    right.arcTo(QRectF(11, 7, 18, 18), 90, -180);
    right.closeSubpath();
    painter.setPen(stroke(ink.line));
    painter.setBrush(ink.accent);
    painter.drawPath(left);
    painter.setBrush(ink.fill);
    painter.drawPath(right);
}

void instrument(QPainter& painter, const Ink& ink)
{
    box(painter, ink.line, ink.fill, {3, 5, 26, 22}, 3);
    solid(painter, ink.accent, {6, 8, 12, 9}, 1);
    polyline(painter, ink.paper, {{8, 14}, {10, 14}, {12, 11}, {14, 13}, {16, 11}}, 1.25);
    dot(painter, ink.line, {24, 12.5}, 3.5);
    polyline(painter, ink.paper, {{24, 12.5}, {26, 10.5}}, 1.25);
    for (const qreal x : {6.0, 11.0, 16.0, 23.0})
        solid(painter, ink.line, {x, 20, 3, 3}, 0.75);
}

void console(QPainter& painter, const Ink& ink)
{
    box(painter, ink.line, ink.paper, {3, 5, 26, 22}, 3);
    solid(painter, ink.line, {4, 6, 24, 4}, 1);
    for (const qreal x : {6.5, 9.5, 12.5})
        dot(painter, ink.fill, {x, 8}, 0.9);
    polyline(painter, ink.accent, {{8, 14}, {12, 18}, {8, 22}}, 2.5);
    polyline(painter, ink.accent, {{15, 22}, {23, 22}}, 2.5);
}

void curves(QPainter& painter, const Ink& ink)
{
    polyline(painter, ink.line, {{4, 4}, {4, 28}, {29, 28}});
    QPainterPath first(QPointF(8, 22));
    first.cubicTo(13, 22, 13, 8, 18, 8);
    first.cubicTo(22, 8, 23, 14, 28, 13);
    QPainterPath second(QPointF(8, 13));
    second.cubicTo(14, 13, 14, 22, 19, 22);
    second.cubicTo(23, 22, 24, 20, 28, 20);
    painter.strokePath(second, stroke(ink.second, 2.5));
    painter.strokePath(first, stroke(ink.accent, 2.5));
}

void steps(QPainter& painter, const Ink& ink)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink.fill);
    const QPointF area[] = {{4, 28}, {4, 22}, {10, 22}, {10, 14}, {16, 14},
                            {16, 6}, {22, 6}, {22, 18}, {28, 18}, {28, 28}};
    painter.drawPolygon(area, std::size(area));
    polyline(painter, ink.line, {{3, 28}, {29, 28}});
    polyline(painter, ink.accent, {{4, 22}, {10, 22}, {10, 14}, {16, 14}, {16, 6}, {22, 6}, {22, 18}, {28, 18}}, 2.5);
}

void table(QPainter& painter, const Ink& ink)
{
    box(painter, ink.line, ink.paper, {3, 5, 26, 22}, 3);
    solid(painter, ink.line, {4, 6, 24, 5}, 1);
    solid(painter, ink.accent, {12, 12, 7, 7});
    solid(painter, ink.accent, {4, 20, 7, 6}, 1);
    solid(painter, ink.second, {20, 20, 8, 6}, 1);
    polyline(painter, ink.line, {{3, 19}, {29, 19}}, 1.5);
    polyline(painter, ink.line, {{11, 11}, {11, 27}}, 1.5);
    polyline(painter, ink.line, {{20, 11}, {20, 27}}, 1.5);
}

void information(QPainter& painter, const Ink& ink)
{
    disc(painter, ink);
    dot(painter, ink.paper, {16, 9.5}, 2);
    solid(painter, ink.paper, {14.25, 14, 3.5, 10}, 1.75);
}

void door(QPainter& painter, const Ink& ink)
{
    polygon(painter, ink.line, ink.fill, {{5, 4}, {19, 4}, {19, 28}, {5, 28}});
    polygon(painter, ink.line, ink.paper, {{5, 4}, {12, 7}, {12, 30}, {5, 28}});
    dot(painter, ink.line, {9.5, 18}, 1.1);
    sideArrow(painter, ink.accent, 16, 29, 16);
}

void monitor(QPainter& painter, const Ink& ink)
{
    polyline(painter, ink.line, {{16, 22}, {16, 28}});
    polyline(painter, ink.line, {{9, 28}, {23, 28}});
    box(painter, ink.line, ink.accent, {3, 4, 26, 18}, 3);
    polyline(painter, ink.paper, {{7, 15}, {11, 15}, {14, 9}, {18, 17}, {21, 12}, {25, 12}});
}

void applicationIcon(QPainter& painter, const Ink&)
{
    solid(painter, QColor(0x22405F), {1, 1, 30, 30}, 7);
    painter.setPen(stroke(QColor(0x5FA8E6), 2.5));
    painter.setBrush(QColor(0x183049));
    painter.drawEllipse(QPointF(16, 16), 10.5, 10.5);
    polyline(painter, QColor(0xFFFFFF),
             {{8, 19}, {12, 19}, {12, 12}, {17, 12}, {17, 21}, {20, 21}, {20, 16}, {24, 16}});
}

void emptyScreen(QPainter& painter)
{
    painter.fillRect(0, 0, 320, 240, QColor(0x18222C));
    const QColor faint(0x33424F);
    painter.setPen(stroke(faint, 4));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(124, 86, 72, 50), 6, 6);
    painter.drawLine(QPointF(160, 136), QPointF(160, 150));
    painter.drawLine(QPointF(142, 152), QPointF(178, 152));
    painter.drawLine(QPointF(120, 158), QPointF(200, 78));
}

} // namespace orb::drawing
