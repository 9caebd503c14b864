// SPDX-License-Identifier: GPL-3.0-or-later
#include "panel_picture.h"

#include "panel_layout.h"
#include "stroke_font.h"
#include "strokes.h"

namespace orb::drawing {

namespace {

const QColor slate(0x3B4C5F);
const QColor mist(0xDDE5ED);
const QColor white(0xFFFFFF);
const QColor blue(0x2C72B8);
const QColor green(0x2E9B68);
const QColor screenGround(0x0B1420);

constexpr int twipsOfPixel = 15;

struct Face {
    QColor fill;
    QColor line;
    QColor caption;
    double scale; ///< of the caption
};

Face faceOf(KeyLook look)
{
    switch (look) {
    case KeyLook::Soft:
        return {slate, slate, white, 1.7};
    case KeyLook::Digit:
        return {white, slate, slate, 2.6};
    case KeyLook::Accent:
        return {blue, blue.darker(130), white, 1.6};
    case KeyLook::Load:
        return {green, green.darker(130), white, 2.4};
    case KeyLook::Plain:
    case KeyLook::Knob:
        break;
    }
    return {white, slate, slate, 1.25};
}

void caption(QPainter& painter, const QRectF& area, const QString& text, const QColor& color, double scale)
{
    const StrokeFont font{scale, std::max(1.4, scale * 0.85)};
    painter.setPen(color);
    font.draw(painter, area.center() - QPointF(font.width(text), font.height()) / 2, text);
}

void key(QPainter& painter, const PanelKey& each)
{
    const Face face = faceOf(each.look);
    painter.setPen(stroke(face.line, 1.5));
    painter.setBrush(face.fill);
    painter.drawRoundedRect(QRectF(each.area).adjusted(0.75, 0.75, -0.75, -0.75), 5, 5);
    if (each.caption[0] == '.') // larger than the font's
        dot(painter, face.caption, QRectF(each.area).center(), 3);
    else
        caption(painter, each.area, QString::fromLatin1(each.caption), face.caption, face.scale);
}

/// A ring to turn, with an arrow on either side, and a button in its middle to press.
void knob(QPainter& painter)
{
    constexpr QPointF middle(285, 432);
    painter.setPen(stroke(slate, 1.5));
    painter.setBrush(QColor(0xC3CED9));
    painter.drawEllipse(middle, 49, 49);
    painter.setBrush(white);
    painter.drawEllipse(middle, 18, 18);
    arcArrow(painter, slate, middle, 34, 130, 100, 4, 7);
    arcArrow(painter, slate, middle, 34, 50, -100, 4, 7);
    dot(painter, blue, middle, 5);
}

void body(QPainter& painter)
{
    painter.setPen(stroke(slate, 2));
    painter.setBrush(mist);
    painter.drawRoundedRect(QRectF(QPointF(0, 0), panelSize).adjusted(1, 1, -1, -1), 14, 14);
    solid(painter, screenGround, QRectF(panelScreen).adjusted(-8, -8, 8, 8), 6);
    painter.setPen(slate);
    StrokeFont{2, 2.4}.draw(painter, {28, 9}, QStringLiteral("ORB"));
    constexpr StrokeFont small{1.3, 1.4};
    const QString kind = QStringLiteral("DC ELECTRONIC LOAD");
    small.draw(painter, {349 - small.width(kind), 12}, kind);
}

} // namespace

QImage panelPicture(int scale)
{
    QImage image(panelFileSize * scale, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(double(image.width()) / panelSize.width(), double(image.height()) / panelSize.height());
    body(painter);
    knob(painter);
    for (const PanelKey& each : panelKeys)
        if (each.look != KeyLook::Knob)
            key(painter, each);
    return image;
}

QByteArray panelMapText()
{
    QByteArray text;
    for (const PanelKey& each : panelKeys) {
        const QRect& area = each.area;
        text += each.name;
        for (const int edge : {area.x(), area.y(), area.x() + area.width(), area.y() + area.height()})
            text += ',' + QByteArray::number(edge * twipsOfPixel);
        text += "\r\n";
    }
    return text;
}

} // namespace orb::drawing
