// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "glyphs.h"

#include <QPen>

#include <initializer_list>

/// The shapes that the glyphs are drawn with, in grid units.
namespace orb::drawing {

constexpr qreal strokeWidth = 2;

/// A pen with round ends and corners.
QPen stroke(const QColor& color, qreal width = strokeWidth);

void polyline(QPainter& painter, const QColor& color, std::initializer_list<QPointF> points, qreal width = strokeWidth);
void polygon(QPainter& painter, const QColor& line, const QColor& fill, std::initializer_list<QPointF> points);

/// An outlined box; `area` is the middle of its outline.
void box(QPainter& painter, const QColor& line, const QColor& fill, const QRectF& area, qreal radius = 2);

/// A filled box without an outline.
void solid(QPainter& painter, const QColor& color, const QRectF& area, qreal radius = 0);

void dot(QPainter& painter, const QColor& color, const QPointF& middle, qreal radius);

/// A filled polygon whose corners are rounded by a pen of the width `rounding`.
void solidPolygon(QPainter& painter, const QColor& color, std::initializer_list<QPointF> points, qreal rounding);

/// An arrow from `x0` to `x1` at the height `y`; its head is at `x1`.
void sideArrow(QPainter& painter, const QColor& color, qreal x0, qreal x1, qreal y);

/// Part of a circle with an arrow head at its end. Degrees run counter-clockwise from three o'clock.
void arcArrow(QPainter& painter, const QColor& color, const QPointF& middle, qreal radius, qreal from, qreal span,
              qreal width, qreal head);

/// The disc under the signs of run, stop, pause and record.
void disc(QPainter& painter, const Ink& ink);

/// A small instrument: a screen and keys.
void smallInstrument(QPainter& painter, const Ink& ink);

/// A sheet of paper with a folded corner.
void sheet(QPainter& painter, const Ink& ink);

} // namespace orb::drawing
