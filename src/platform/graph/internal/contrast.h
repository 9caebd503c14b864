// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>

namespace orb {

/// How much two colors differ in lightness: from 1, not at all, to 21, black on white.
double contrast(const QColor& one, const QColor& other);

/// A color for text that can be read on `ground`: nearly white or nearly black.
QColor textOn(const QColor& ground);

/// The color of an edge that sets `line` off from `ground`, of the line's hue; an invalid color where the two differ
/// enough to need none.
QColor edgeFor(const QColor& line, const QColor& ground);

/// `share` of `one`, from 0 to 1, and the rest of `other`.
QColor mixed(const QColor& one, const QColor& other, double share);

} // namespace orb
