// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QImage>

namespace orb::drawing {

/// The instrument's front panel, `scale` times as large as its file is at 96 dpi.
QImage panelPicture(int scale);

/// The panel map: a line for each key with its name and its edges in twips.
QByteArray panelMapText();

} // namespace orb::drawing
