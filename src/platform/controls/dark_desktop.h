// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPalette>

namespace orb {

/// True where the desktop is dark: light text on dark windows.
inline bool isDark(const QPalette& palette)
{
    constexpr int middle = 128;
    return palette.color(QPalette::Window).lightness() < middle;
}

/// Black or white, whichever reads better on that ground.
inline QColor textColorOn(const QColor& ground)
{
    constexpr int middle = 128;
    return qGray(ground.rgb()) < middle ? QColor(Qt::white) : QColor(Qt::black);
}

} // namespace orb
