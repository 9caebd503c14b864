// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "check_box.h"
#include "dialogs.h"
#include "image.h"
#include "label.h"
#include "orb_ctrl.h"
#include "paths.h"
#include "picture_button.h"
#include "timer.h"

namespace orb {

/// The page that shows the instrument's screen, fetched on a timer, over a picture of its front panel.
class DisplayPage final : public Frame {
public:
    /// All references must outlive the page.
    DisplayPage(Clock& clock, Dialogs& dialogs, const Paths& paths, ORBCtrl& CORB);

    Image Image2;        ///< the panel picture
    PictureBox Picture1; ///< receives every new bitmap; its tag is the path of the last one
    Image Image1;        ///< what the operator sees
    Image Image3;        ///< decoration

    PictureButton dispPlay;
    PictureButton dispStop;
    PictureButton dispPause;
    PictureButton dispRec;
    PictureButton dispSave;
    PictureButton dispEnlarge;
    ProgressBar barRec;
    OptionButton optDispDev{QStringLiteral("Device Screen")};
    OptionButton optDispFull{QStringLiteral("Full Screen")};

    Timer TimerDisplay;

    /// Blanks the picture and sets the picture and Enabled of `dispPlay` from the link. Throws as `loadPicture` does.
    void RefreshDisplayPage();

    void dispPlayClick();
    void dispStopClick();
    void dispPauseClick();
    void TimerDisplayTimer();

private:
    void createLayout();
    QString icon(const QString& name) const { return paths_.inApplication(name); }

    Dialogs& dialogs_;
    const Paths& paths_;
    ORBCtrl& CORB_;
};

} // namespace orb
