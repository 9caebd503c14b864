// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph_look.h"

#include "failure.h"

#include <array>

namespace orb {

QColor curveColor(int number)
{
    static const std::array<QColor, curveColorCount> colors{
        QColor(0, 255, 0),     QColor(0, 0, 255), QColor(128, 0, 128), QColor(255, 255, 0),
        QColor(255, 255, 255), QColor(255, 0, 0), QColor(128, 0, 0),   QColor(128, 128, 0)};
    if (number < 1 || number > curveColorCount)
        throw RuntimeFailure(failure::SubscriptOutOfRange);
    return colors[static_cast<std::size_t>(number - 1)];
}

} // namespace orb
