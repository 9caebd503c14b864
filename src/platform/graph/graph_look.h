// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>

namespace orb {

/// A time axis counts in days, so a second is 1/86400.
constexpr double secondInDays = 1.0 / 86400;

/// How many colors there are for curves.
constexpr int curveColorCount = 8;

/// The color of the curves of number `number`, from 1 to `curveColorCount`, on the background of a graph.
QColor curveColor(int number);

} // namespace orb
