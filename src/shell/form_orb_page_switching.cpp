// SPDX-License-Identifier: GPL-3.0-or-later
#include "attempt.h"
#include "form_orb.h"

#include <QScreen>

namespace orb {

namespace {

constexpr int groupLeft = 120;
constexpr int belowGroup = 400;
constexpr int controlTop = 1020;
constexpr int frameTop = 960;
constexpr int usualWidth = 9525;
constexpr int dataLogWidth = 10830;

/// A stop button is enabled exactly while its activity may need stopping.
void stopIfEnabled(PictureButton& button)
{
    if (button.enabled())
        button.onClick();
}

void hideGroups(std::initializer_list<QWidget*> groups)
{
    for (QWidget* group : groups)
        group->setVisible(false);
}

} // namespace

/// Puts a group in front, at the fixed place and in its design size, and marks the button of its page.
void FormORB::place(QWidget& group, int top, PictureButton& button)
{
    shown_ = nullptr;
    markPage(button);
    group.raise();
    group.resize(designSizes_.at(&group));
    group.move(pixels(groupLeft), pixels(top));
}

/// The button of the page that is shown is marked, and no other.
void FormORB::markPage(const PictureButton& shown)
{
    for (PictureButton* button :
         {&pageConnect, &pageControl, &pageCommand, &pageWave, &pageSequence, &PageProgram, &pageDisplay})
        button->setMarked(button == &shown);
}

void FormORB::fitHeight(const QWidget& group)
{
    resizeWindow({width(), group.y() + group.height() + pixels(belowGroup)});
}

void FormORB::fitWidth(int width)
{
    resizeWindow({pixels(width), height()});
}

/// A maximized window keeps its size.
void FormORB::resizeWindow(QSize size)
{
    setMinimumSize(0, 0);
    if (!(windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen)))
        resize(size.boundedTo(largestWindow()));
}

/// The size at which the window with its frame fills the screen.
QSize FormORB::largestWindow() const
{
    return screen()->availableSize() - (frameSize() - size());
}

/// From here on the group fills the window. In a large font it may need more than the size of its design.
void FormORB::finishSwitch(QWidget& group, int width)
{
    const QSize design(pixels(width), group.y() + group.height() + pixels(belowGroup));
    const QSize needed = group.minimumSizeHint() + around(group);
    setMinimumSize(design.expandedTo(needed).boundedTo(largestWindow()));
    shown_ = &group;
    growShownGroup();
}

/// How much larger than the group the window is.
QSize FormORB::around(const QWidget& group)
{
    return {2 * pixels(groupLeft), group.y() + pixels(belowGroup)};
}

/// On a screen too small for the page, the group is smaller than its design as far as its controls allow.
void FormORB::growShownGroup()
{
    if (shown_)
        shown_->resize((size() - around(*shown_)).expandedTo(shown_->minimumSizeHint()));
}

void FormORB::fit(QWidget& group, int width)
{
    fitHeight(group);
    fitWidth(width);
    finishSwitch(group, width);
}

void FormORB::pageControlClick()
{
    stopIfEnabled(fraDisplay.dispStop);
    stopIfEnabled(frmDatalog.logStop);
    stopIfEnabled(fraCommand.cmdStop);
    hideGroups({&frmDatalog, &fraDisplay, &fraSequence, &fraProgram});
    CORB_.setVisible(true);
    place(CORB_, controlTop, pageControl);
    hideGroups({&fraCommand});
    fitHeight(CORB_);
    CORB_.ShowControlPage();
    fitWidth(usualWidth);
    finishSwitch(CORB_, usualWidth);
}

void FormORB::pageConnectClick()
{
    stopIfEnabled(fraDisplay.dispStop);
    hideGroups({&frmDatalog, &fraDisplay, &fraSequence, &fraProgram});
    CORB_.setVisible(true);
    place(CORB_, controlTop, pageConnect);
    hideGroups({&fraCommand});
    fitHeight(CORB_);
    CORB_.ShowConnectPage();
    if (askToReconnect(CORB_, dialogs_)) // on No the width stays as it was
        fitWidth(usualWidth);
    finishSwitch(CORB_, usualWidth);
}

void FormORB::pageDisplayClick()
{
    attemptEach([this] { stopIfEnabled(frmDatalog.logStop); }, [this] { stopIfEnabled(fraCommand.cmdStop); },
                [this] {
                    CORB_.PanelActive(false);
                    hideGroups({&CORB_, &fraSequence, &frmDatalog, &fraProgram, &fraCommand});
                    fraDisplay.setVisible(true);
                    place(fraDisplay, frameTop, pageDisplay);
                },
                [this] { fraDisplay.RefreshDisplayPage(); }, [this] { fit(fraDisplay, usualWidth); });
}

void FormORB::pageCommandClick()
{
    stopIfEnabled(fraDisplay.dispStop);
    stopIfEnabled(frmDatalog.logStop);
    CORB_.PanelActive(false);
    hideGroups({&frmDatalog, &fraSequence, &fraProgram});
    fraCommand.setVisible(true);
    place(fraCommand, frameTop, pageCommand);
    hideGroups({&fraDisplay, &CORB_});
    fraCommand.RefreshCommandPage();
    fit(fraCommand, usualWidth);
}

void FormORB::pageWaveClick()
{
    frmDatalog.setVisible(true);
    stopIfEnabled(fraDisplay.dispStop);
    stopIfEnabled(fraCommand.cmdStop);
    CORB_.PanelActive(false);
    hideGroups({&fraSequence, &fraDisplay, &fraCommand, &fraProgram, &CORB_});
    frmDatalog.RefreshDataLogPage();
    place(frmDatalog, frameTop, pageWave);
    fit(frmDatalog, dataLogWidth);
}

void FormORB::pageSequenceClick()
{
    fraSequence.setVisible(true);
    stopIfEnabled(fraDisplay.dispStop);
    stopIfEnabled(frmDatalog.logStop);
    stopIfEnabled(fraCommand.cmdStop);
    CORB_.PanelActive(false);
    hideGroups({&frmDatalog, &fraDisplay, &fraCommand, &fraProgram, &CORB_});
    place(fraSequence, frameTop, pageSequence);
    fraSequence.ResetSequencePage();
    fit(fraSequence, usualWidth);
}

void FormORB::PageProgramClick()
{
    stopIfEnabled(fraDisplay.dispStop);
    stopIfEnabled(frmDatalog.logStop);
    stopIfEnabled(fraCommand.cmdStop);
    CORB_.PanelActive(false);
    hideGroups({&frmDatalog, &fraSequence, &fraCommand, &fraDisplay, &CORB_});
    fraProgram.setVisible(true);
    place(fraProgram, frameTop, PageProgram);
    fraProgram.InitProgramPage();
    fit(fraProgram, usualWidth);
}

void FormORB::pageAboutClick()
{
    AboutBox frmAbout(*this, run(), paths_, systemInfo);
    frmAbout.showModal();
}

} // namespace orb
