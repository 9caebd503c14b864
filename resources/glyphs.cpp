// SPDX-License-Identifier: GPL-3.0-or-later
#include "glyphs.h"

#include <QPainterPath>

#include <initializer_list>

namespace orb::drawing {

namespace {

const QColor slate(0x3B4C5F);
const QColor mist(0xDDE5ED);
const QColor white(0xFFFFFF);
const QColor blue(0x2C72B8);
const QColor green(0x2E9B68);
const QColor red(0xD8433F);
const QColor amber(0xE39A26);

constexpr qreal strokeWidth = 2;

QPen stroke(const QColor& color, qreal width = strokeWidth)
{
    return QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

void polyline(QPainter& painter, const QColor& color, std::initializer_list<QPointF> points, qreal width = strokeWidth)
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

/// An outlined box; `area` is the middle of its outline.
void box(QPainter& painter, const QColor& line, const QColor& fill, const QRectF& area, qreal radius = 2)
{
    painter.setPen(stroke(line));
    painter.setBrush(fill);
    painter.drawRoundedRect(area, radius, radius);
}

void solid(QPainter& painter, const QColor& color, const QRectF& area, qreal radius = 0)
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

/// An arrow from `x0` to `x1` at the height `y`; its head is at `x1`.
void sideArrow(QPainter& painter, const QColor& color, qreal x0, qreal x1, qreal y)
{
    const qreal back = x1 > x0 ? -5 : 5;
    polyline(painter, color, {{x0, y}, {x1, y}}, 3);
    polyline(painter, color, {{x1 + back, y - 5}, {x1, y}, {x1 + back, y + 5}}, 3);
}

/// Part of a circle with an arrow head at its end. Degrees run counter-clockwise from three o'clock.
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

/// The instrument as it looks from far: a screen, a knob, keys.
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

Ink ink(const QColor& accent, const QColor& second)
{
    return {slate, mist, white, accent, second};
}

} // namespace

Ink blueInk()
{
    return ink(blue, amber);
}

Ink greenInk()
{
    return ink(green, blue);
}

Ink redInk()
{
    return ink(red, blue);
}

Ink amberInk()
{
    return ink(amber, blue);
}

Ink greyInk()
{
    return {QColor(0xB3BCC6), QColor(0xE8ECF0), QColor(0xF9FAFB), QColor(0xC3CBD3), QColor(0xD3D9DF)};
}

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

namespace {

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
