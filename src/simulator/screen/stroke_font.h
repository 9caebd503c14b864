// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QPainter;
class QPointF;

namespace orb {

/// A font of straight strokes, drawn by itself so that a text has the same pixels on every machine. It has the digits,
/// the capital letters, the usual signs and the ohm; small letters are drawn as capital ones, except for m and s. What
/// it lacks is a box.
struct StrokeFont {
    /// Pixels to a unit. A capital letter is 6 units high, and a full one 4 units wide with 2 after it.
    double scale = 1;
    /// The width of the strokes in pixels. Strokes of one pixel are not smoothed.
    double weight = 1;

    double height() const { return 6 * scale; }
    /// From the first to the last stroke, in pixels.
    double width(const QString& text) const;
    /// Draws in the color of the painter's pen; `topLeft` is where the first stroke of a capital letter may begin.
    void draw(QPainter& painter, const QPointF& topLeft, const QString& text) const;
};

} // namespace orb
