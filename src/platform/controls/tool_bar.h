// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "picture_button.h"

namespace orb {

/// The buttons side by side over a page, with captions small enough for eight of them to fit. The row belongs to
/// the layout that it is added to.
QWidget* toolBarOf(const std::vector<PictureButton*>& buttons);

} // namespace orb
