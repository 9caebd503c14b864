// SPDX-License-Identifier: GPL-3.0-or-later
#include "attempt.h"
#include "form_orb.h"

namespace orb {

namespace {
constexpr int groupLeft = 120;
constexpr int belowGroup = 400;
constexpr int controlTop = 1020;
constexpr int frameTop = 960;
constexpr int usualWidth = 9525;
constexpr int dataLogWidth = 10830;
} // namespace

// A stop button is enabled exactly while its activity may need stopping.
void FormORB::stopDisplay()
{
    if (fraDisplay.dispStop.enabled())
        fraDisplay.dispStopClick();
}

void FormORB::stopLog()
{
    if (frmDatalog.logStop.enabled())
        frmDatalog.logStopClick();
}

void FormORB::stopCommands()
{
    if (fraCommand.cmdStop.enabled())
        fraCommand.cmdStopClick();
}

void FormORB::hideAllBut(const QWidget& group)
{
    for (QWidget* other : groups())
        if (other != &group && other != &Frame1)
            other->setVisible(false);
}

/// Shows a group in front, at the fixed place and in the size of its design.
void FormORB::bringUp(QWidget& group, int top)
{
    shown_ = nullptr;
    group.setVisible(true);
    group.raise();
    group.resize(designSizes_.at(&group));
    group.move(pixels(groupLeft), pixels(top));
}

void FormORB::fitHeight(const QWidget& group)
{
    setMinimumSize(0, 0);
    setHeightTwips(twips(group.y() + group.height()) + belowGroup);
}

/// From here on the group grows with the window.
void FormORB::finishSwitch(QWidget& group)
{
    fitted_ = size();
    setMinimumSize(fitted_);
    shown_ = &group;
}

void FormORB::growShownGroup()
{
    if (shown_)
        shown_->resize(designSizes_.at(shown_) + (size() - fitted_).expandedTo({0, 0}));
}

void FormORB::pageControlClick()
{
    stopDisplay();
    stopLog();
    stopCommands();
    hideAllBut(CORB_);
    bringUp(CORB_, controlTop);
    fitHeight(CORB_);
    CORB_.ShowControlPage();
    setWidthTwips(usualWidth);
    finishSwitch(CORB_);
}

void FormORB::pageConnectClick()
{
    stopDisplay();
    hideAllBut(CORB_);
    bringUp(CORB_, controlTop);
    fitHeight(CORB_);
    CORB_.ShowConnectPage();
    if (askToReconnect(CORB_, dialogs_)) // on No the width stays as it was
        setWidthTwips(usualWidth);
    finishSwitch(CORB_);
}

void FormORB::pageDisplayClick()
{
    attemptEach([this] { stopLog(); }, [this] { stopCommands(); }, [this] { CORB_.PanelActive(false); },
                [this] { hideAllBut(fraDisplay); }, [this] { bringUp(fraDisplay, frameTop); },
                [this] { fraDisplay.RefreshDisplayPage(); }, [this] { fitHeight(fraDisplay); },
                [this] { setWidthTwips(usualWidth); }, [this] { finishSwitch(fraDisplay); });
}

void FormORB::pageCommandClick()
{
    stopDisplay();
    stopLog();
    CORB_.PanelActive(false);
    hideAllBut(fraCommand);
    bringUp(fraCommand, frameTop);
    fraCommand.RefreshCommandPage();
    fitHeight(fraCommand);
    setWidthTwips(usualWidth);
    finishSwitch(fraCommand);
}

void FormORB::pageWaveClick()
{
    frmDatalog.setVisible(true);
    stopDisplay();
    stopCommands();
    CORB_.PanelActive(false);
    hideAllBut(frmDatalog);
    frmDatalog.RefreshDataLogPage();
    bringUp(frmDatalog, frameTop);
    fitHeight(frmDatalog);
    setWidthTwips(dataLogWidth);
    finishSwitch(frmDatalog);
}

void FormORB::pageSequenceClick()
{
    fraSequence.setVisible(true);
    stopDisplay();
    stopLog();
    stopCommands();
    CORB_.PanelActive(false);
    hideAllBut(fraSequence);
    bringUp(fraSequence, frameTop);
    fitHeight(fraSequence);
    setWidthTwips(usualWidth);
    finishSwitch(fraSequence);
}

void FormORB::PageProgramClick()
{
    stopDisplay();
    stopLog();
    stopCommands();
    CORB_.PanelActive(false);
    hideAllBut(fraProgram);
    bringUp(fraProgram, frameTop);
    fitHeight(fraProgram);
    setWidthTwips(usualWidth);
    finishSwitch(fraProgram);
}

void FormORB::pageAboutClick() {}

} // namespace orb
