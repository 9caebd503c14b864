// SPDX-License-Identifier: GPL-3.0-or-later
#include "strokes.h"

#include <QPainterPath>

namespace orb::drawing {

void play(QPainter& painter, const Ink& ink)
{
    disc(painter, ink);
    solidPolygon(painter, ink.paper, {{13, 10.5}, {22, 16}, {13, 21.5}}, 2);
}

void stop(QPainter& painter, const Ink& ink)
{
    disc(painter, ink);
    solid(painter, ink.paper, {11, 11, 10, 10}, 1.5);
}

void pause(QPainter& painter, const Ink& ink)
{
    disc(painter, ink);
    solid(painter, ink.paper, {11, 10, 4, 12}, 1);
    solid(painter, ink.paper, {17, 10, 4, 12}, 1);
}

void resume(QPainter& painter, const Ink& ink)
{
    disc(painter, ink);
    solid(painter, ink.paper, {9, 10, 3, 12}, 1);
    solidPolygon(painter, ink.paper, {{16, 11}, {23.5, 16}, {16, 21}}, 2);
}

void record(QPainter& painter, const Ink& ink)
{
    painter.setPen(stroke(ink.line));
    painter.setBrush(ink.paper);
    painter.drawEllipse(QPointF(16, 16), 13, 13);
    dot(painter, ink.accent, {16, 16}, 8);
}

void disk(QPainter& painter, const Ink& ink)
{
    polygon(painter, ink.line, ink.accent, {{4, 4}, {23, 4}, {28, 9}, {28, 28}, {4, 28}});
    solid(painter, ink.paper, {9, 5, 12, 7});
    solid(painter, ink.line, {17, 6, 2, 5});
    solid(painter, ink.paper, {8, 17, 16, 10});
    polyline(painter, ink.line, {{11, 20.5}, {21, 20.5}}, 1.5);
    polyline(painter, ink.line, {{11, 24}, {18, 24}}, 1.5);
}

void folder(QPainter& painter, const Ink& ink)
{
    polygon(painter, ink.line, ink.fill, {{3, 27}, {3, 6}, {12, 6}, {15, 10}, {26, 10}, {26, 27}});
    polygon(painter, ink.line, ink.accent, {{3, 27}, {8, 15}, {30, 15}, {25, 27}});
}

void bin(QPainter& painter, const Ink& ink)
{
    polygon(painter, ink.line, ink.fill, {{7, 9}, {25, 9}, {23, 28}, {9, 28}});
    polyline(painter, ink.line, {{12, 8}, {12, 4}, {20, 4}, {20, 8}});
    polyline(painter, ink.accent, {{4, 9}, {28, 9}}, 3);
    for (const qreal x : {13.0, 19.0})
        polyline(painter, ink.line, {{x, 14}, {x, 23}});
}

void printer(QPainter& painter, const Ink& ink)
{
    box(painter, ink.line, ink.paper, {9, 4, 14, 9}, 1);
    box(painter, ink.line, ink.accent, {3, 11, 26, 12}, 2);
    dot(painter, ink.paper, {25, 15}, 1.25);
    box(painter, ink.line, ink.paper, {9, 18, 14, 10}, 1);
    polyline(painter, ink.line, {{12, 22}, {20, 22}}, 1.5);
    polyline(painter, ink.line, {{12, 25}, {17, 25}}, 1.5);
}

void sheetOut(QPainter& painter, const Ink& ink)
{
    sheet(painter, ink);
    for (const qreal y : {11.0, 15.0})
        polyline(painter, ink.line, {{9, y}, {13, y}}, 1.5);
    sideArrow(painter, ink.accent, 12, 30, 21);
}

void insertLine(QPainter& painter, const Ink& ink)
{
    for (const qreal y : {5.0, 11.0})
        polyline(painter, ink.line, {{4, y}, {28, y}}, 3);
    for (const qreal y : {19.0, 27.0})
        polyline(painter, ink.line, {{4, y}, {13, y}}, 3);
    dot(painter, ink.accent, {23, 23}, 7.5);
    polyline(painter, ink.paper, {{19, 23}, {27, 23}}, 2.5);
    polyline(painter, ink.paper, {{23, 19}, {23, 27}}, 2.5);
}

void arrowUp(QPainter& painter, const Ink& ink)
{
    polyline(painter, ink.accent, {{16, 27}, {16, 6}}, 4);
    polyline(painter, ink.accent, {{7, 14}, {16, 5}, {25, 14}}, 4);
}

void arrowDown(QPainter& painter, const Ink& ink)
{
    polyline(painter, ink.accent, {{16, 5}, {16, 26}}, 4);
    polyline(painter, ink.accent, {{7, 18}, {16, 27}, {25, 18}}, 4);
}

void turnRound(QPainter& painter, const Ink& ink)
{
    arcArrow(painter, ink.accent, {16, 16}, 10.5, 170, -130, 3.5, 5);
    arcArrow(painter, ink.accent, {16, 16}, 10.5, 350, -130, 3.5, 5);
}

void enlarge(QPainter& painter, const Ink& ink)
{
    box(painter, ink.line, ink.fill, {11, 11, 10, 10}, 1);
    polyline(painter, ink.accent, {{4, 11}, {4, 4}, {11, 4}}, 3);
    polyline(painter, ink.accent, {{21, 4}, {28, 4}, {28, 11}}, 3);
    polyline(painter, ink.accent, {{28, 21}, {28, 28}, {21, 28}}, 3);
    polyline(painter, ink.accent, {{11, 28}, {4, 28}, {4, 21}}, 3);
}

void store(QPainter& painter, const Ink& ink)
{
    QPainterPath drum(QPointF(5, 8));
    drum.lineTo(5, 24);
    drum.arcTo(QRectF(5, 20, 22, 8), 180, 180);
    drum.lineTo(27, 8);
    painter.setPen(stroke(ink.line));
    painter.setBrush(ink.accent);
    painter.drawPath(drum);
    painter.setBrush(ink.fill);
    painter.drawEllipse(QRectF(5, 4, 22, 8));
    painter.setPen(stroke(ink.paper, 1.5));
    painter.drawArc(QRectF(6.5, 12, 19, 7), 180 * 16, 180 * 16);
}

void clearSheet(QPainter& painter, const Ink& ink)
{
    sheet(painter, ink);
    dot(painter, ink.accent, {23, 23}, 7.5);
    polyline(painter, ink.paper, {{20, 20}, {26, 26}}, 2.5);
    polyline(painter, ink.paper, {{26, 20}, {20, 26}}, 2.5);
}

void chain(QPainter& painter, const Ink& ink)
{
    painter.save();
    painter.translate(16, 16);
    painter.rotate(-45);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(stroke(ink.line, 3.5));
    painter.drawRoundedRect(QRectF(-15, -4.5, 15, 9), 4.5, 4.5);
    painter.setPen(stroke(ink.accent, 3.5));
    painter.drawRoundedRect(QRectF(0, -4.5, 15, 9), 4.5, 4.5);
    painter.setPen(stroke(ink.line, 3.5));
    painter.drawLine(QPointF(-5, 0), QPointF(5, 0));
    painter.restore();
}

void intoInstrument(QPainter& painter, const Ink& ink)
{
    smallInstrument(painter, ink);
    sideArrow(painter, ink.accent, 3, 18, 18);
}

void outOfInstrument(QPainter& painter, const Ink& ink)
{
    smallInstrument(painter, ink);
    sideArrow(painter, ink.accent, 18, 3, 18);
}

void simulate(QPainter& painter, const Ink& ink)
{
    box(painter, ink.line, ink.paper, {3, 4, 26, 20}, 3);
    polyline(painter, ink.second, {{7, 18}, {11, 18}, {11, 13}, {16, 13}, {16, 9}, {25, 9}}, 2.5);
    dot(painter, ink.accent, {23, 23}, 7.5);
    solidPolygon(painter, ink.paper, {{21.5, 20.25}, {26, 23}, {21.5, 25.75}}, 1.25);
}

} // namespace orb::drawing
