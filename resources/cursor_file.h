// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QImage>
#include <QPoint>

namespace orb::drawing {

/// The bytes of a Windows cursor file (.cur) with one picture in 32-bit color and the mask that goes with it.
/// `image` is at most 256 pixels wide and high, `hotSpot` the pixel in it that points.
QByteArray cursorFile(const QImage& image, const QPoint& hotSpot);

/// The bytes of a Windows icon file (.ico) that holds each of `images` as a PNG stream, 256 by 256 at most.
QByteArray iconFile(const QList<QImage>& images);

} // namespace orb::drawing
