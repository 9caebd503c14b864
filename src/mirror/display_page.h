// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "check_box.h"
#include "dialogs.h"
#include "form_full_screen.h"
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
    /// All references must outlive the page. `bFullScrMode`: new pictures go to the full-screen form.
    DisplayPage(Clock& clock, Dialogs& dialogs, const Paths& paths, ORBCtrl& CORB, bool& bFullScrMode);

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

    std::optional<FormFullScreen> oFullScreen; ///< created at its first use; hidden and shown again from then on

    /// Blanks the picture and sets the picture and Enabled of `dispPlay` from the link. Throws as `loadPicture` does.
    void RefreshDisplayPage();

    void dispPlayClick();
    void dispStopClick();
    void dispPauseClick();
    /// Saves the picture that the main form shows as a bitmap, under a name that the operator chooses. Does nothing
    /// before the first picture. Throws `RuntimeFailure` 380 where the form shows none, and what `OutputFile` throws.
    void dispSaveClick();
    /// From now on new pictures go to the full-screen form, which comes to the front.
    void dispEnlargeClick();
    void TimerDisplayTimer();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void createLayout();
    void layoutPanel(double scale);
    void layoutButtons();
    FormFullScreen& fullScreen();
    QString icon(const QString& name) const { return paths_.inApplication(name); }

    Run& run_;
    Dialogs& dialogs_;
    const Paths& paths_;
    ORBCtrl& CORB_;
    bool& bFullScrMode_;
};

} // namespace orb
