// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "dialogs.h"
#include "form.h"
#include "orb_ctrl.h"
#include "paths.h"
#include "picture_button.h"
#include "timer.h"

namespace orb {

/// Waits for the instrument control to report the link, then opens the pages that need it. It watches only until it
/// has seen the link once: the title and the buttons stay as they are from then on, whatever becomes of the link.
class ConnectionSupervisor {
public:
    /// All references must outlive the supervisor. The timer runs from the start.
    ConnectionSupervisor(Clock& clock, const Paths& paths, ORBCtrl& CORB, Form& form, PictureButton& pageControl,
                         PictureButton& pageDisplay, PictureButton& pageCommand);

    /// Enabled from the start, every 1200 ms, until the first link seen.
    Timer TimerChkConnected;

    void TimerChkConnectedTimer();

    /// What the title says while the link has not been seen.
    static QString disconnectedTitle();

private:
    void showConnected();
    void showDisconnected();

    const Paths& paths_;
    ORBCtrl& CORB_;
    Form& form_;
    PictureButton& pageControl_;
    PictureButton& pageDisplay_;
    PictureButton& pageCommand_;
};

/// While the link stands, asks whether to establish it anew, and does so on Yes. False on No alone.
bool askToReconnect(ORBCtrl& CORB, Dialogs& dialogs);

} // namespace orb
