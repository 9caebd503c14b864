// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPalette>

namespace orb {

/// The colors of a dark desktop.
inline QPalette darkPalette()
{
    const QColor window(0x2b, 0x2d, 0x30);
    const QColor text(0xe8, 0xe8, 0xe8);
    const QColor disabled(0x8a, 0x8d, 0x91);
    QPalette colors(window.lighter(130), window);
    colors.setColor(QPalette::Window, window);
    colors.setColor(QPalette::Base, QColor(0x1e, 0x1f, 0x22));
    colors.setColor(QPalette::AlternateBase, QColor(0x26, 0x28, 0x2b));
    colors.setColor(QPalette::ToolTipBase, window);
    colors.setColor(QPalette::Highlight, QColor(0x35, 0x84, 0xe4));
    colors.setColor(QPalette::HighlightedText, Qt::white);
    colors.setColor(QPalette::PlaceholderText, disabled);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        colors.setColor(role, text);
        colors.setColor(QPalette::Disabled, role, disabled);
    }
    return colors;
}

} // namespace orb
