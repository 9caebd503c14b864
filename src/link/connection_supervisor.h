// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "dialogs.h"
#include "form.h"
#include "orb_ctrl.h"
#include "paths.h"
#include "picture_button.h"
#include "timer.h"

namespace orb {

/// Waits for the instrument control to report a link, then enables the pages that need one. It ends at the first link
/// seen: from then on the title and the buttons stay as they are, also when the link is lost.
class ConnectionSupervisor {
public:
    /// All references must outlive the supervisor. The timer runs from the start.
    ConnectionSupervisor(Clock& clock, const Paths& paths, ORBCtrl& CORB, Form& form, PictureButton& pageControl,
                         PictureButton& pageDisplay, PictureButton& pageCommand);

    /// Ticks every 1200 ms until the first link is seen.
    Timer TimerChkConnected;

    void TimerChkConnectedTimer();

    /// The title of the form until the first link is seen.
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

/// While connected, asks whether to reconnect, and does so on Yes. False only on No.
bool askToReconnect(ORBCtrl& CORB, Dialogs& dialogs);

} // namespace orb
