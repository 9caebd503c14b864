// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QString>

#include <array>

namespace orb {

/// A run mode of a step: its text, and the color of its cells.
struct RunMode {
    QString text;
    QColor color;

    /// The letter that marks its cells, so that the color is not the only sign.
    QString mark() const { return text.left(1); }
};

/// In the order of the values in a program file.
inline const std::array<RunMode, 3>& runModes()
{
    static const std::array<RunMode, 3> modes{{{QStringLiteral("SKIP"), QColor(128, 0, 0)},
                                               {QStringLiteral("AUTO"), QColor(0, 0, 128)},
                                               {QStringLiteral("MANUAL"), QColor(0, 0, 0)}}};
    return modes;
}

} // namespace orb
