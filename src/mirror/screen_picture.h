// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image.h"
#include "orb_ctrl.h"

namespace orb {

/// Loads the screen that `ORBCtrl::GrabScreen` has fetched; the path becomes the box's tag. Throws as
/// `Image::setPicture` does.
inline void loadScreen(PictureBox& Picture1)
{
    Picture1.setPicture(staging::screen);
    Picture1.setTag(staging::screen);
}

} // namespace orb
