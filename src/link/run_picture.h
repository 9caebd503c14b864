// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "orb_ctrl.h"
#include "paths.h"
#include "picture_button.h"

namespace orb {

/// The picture of a start button: ready while the link stands, greyed while it does not.
inline QString runPicture(ORBCtrl& CORB, const Paths& paths)
{
    return paths.inApplication(CORB.IsConnected() ? QStringLiteral("\\ICON\\B1RUNSTART.JPG")
                                                  : QStringLiteral("\\ICON\\B1RUNSTOP.jpg"));
}

/// Makes picture and Enabled of a start button follow the link, in this order.
inline void followLink(PictureButton& start, ORBCtrl& CORB, const Paths& paths)
{
    start.setPicture(runPicture(CORB, paths));
    start.setEnabled(CORB.IsConnected());
}

} // namespace orb
