// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "stroke_font.h"

#include <QColor>
#include <QImage>
#include <QPainter>

namespace orb {

/// The colors of the instrument's screen.
namespace screen_color {
inline constexpr QRgb ground = 0xff0B1420;
inline constexpr QRgb bar = 0xff1C2F44;
inline constexpr QRgb line = 0xff34506C;
inline constexpr QRgb text = 0xffE8EEF4;
inline constexpr QRgb dim = 0xff8FA3B8;
inline constexpr QRgb voltage = 0xffFFD75E;
inline constexpr QRgb current = 0xff63D8FF;
inline constexpr QRgb power = 0xffB79CFF;
inline constexpr QRgb good = 0xff4BD68A;
inline constexpr QRgb bad = 0xffFF6B5E;
inline constexpr QRgb active = 0xff2C72B8;
} // namespace screen_color

inline constexpr StrokeFont smallFont{1, 1};
inline constexpr StrokeFont mediumFont{2, 2};
inline constexpr StrokeFont largeFont{5, 4};

enum class Align { Left, Middle, Right };

/// The picture of the screen while it is drawn. Positions are pixels.
class ScreenCanvas {
public:
    static constexpr int width = 320;
    static constexpr int height = 240;

    ScreenCanvas() : image_(width, height, QImage::Format_RGB32), painter_(&image_)
    {
        image_.fill(screen_color::ground);
    }

    /// `x` is the left edge, the middle or the right edge of the text, `y` its top.
    void text(double x, double y, const QString& text, QRgb color, const StrokeFont& font = smallFont,
              Align align = Align::Left)
    {
        const double textWidth = font.width(text);
        x -= align == Align::Left ? 0 : align == Align::Middle ? static_cast<int>(textWidth / 2) : textWidth;
        painter_.setPen(QColor(color));
        font.draw(painter_, {x, y}, text);
    }

    void fill(const QRect& area, QRgb color) { painter_.fillRect(area, QColor(color)); }

    void frame(const QRect& area, QRgb color)
    {
        painter_.setPen(QColor(color));
        painter_.drawRect(area.adjusted(0, 0, -1, -1));
    }

    /// A filled field with a text in its middle.
    void field(const QRect& area, const QString& caption, QRgb ground, QRgb color, const StrokeFont& font = smallFont)
    {
        fill(area, ground);
        text(area.x() + area.width() / 2.0, area.y() + (area.height() - font.height()) / 2, caption, color, font,
             Align::Middle);
    }

    void polyline(const QPolygonF& points, QRgb color)
    {
        painter_.setPen(QColor(color));
        painter_.drawPolyline(points);
    }

    /// Ends the drawing.
    QImage finish()
    {
        painter_.end();
        return image_;
    }

private:
    QImage image_;
    QPainter painter_;
};

} // namespace orb
