// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "orb_ctrl.h"
#include "paths.h"
#include "picture_button.h"

namespace orb {

/// Sets the picture and then Enabled of a start button: ready while the instrument is connected, otherwise gray.
inline void followLink(PictureButton& start, ORBCtrl& CORB, const Paths& paths)
{
    start.setPicture(paths.inApplication(CORB.IsConnected() ? QStringLiteral("\\ICON\\B1RUNSTART.JPG")
                                                            : QStringLiteral("\\ICON\\B1RUNSTOP.jpg")));
    start.setEnabled(CORB.IsConnected());
}

} // namespace orb
