// SPDX-License-Identifier: GPL-3.0-or-later
#include "display_page.h"

#include "attempt.h"
#include "run_picture.h"

namespace orb {

namespace {
constexpr int firstPeriodMs = 200;
constexpr int periodMs = 500;
constexpr int slowLinkPeriodMs = 2000;
constexpr int slowLink = 1;
} // namespace

DisplayPage::DisplayPage(Clock& clock, Dialogs& dialogs, const Paths& paths, ORBCtrl& CORB)
    : Frame(QStringLiteral("DISPLAY")), TimerDisplay(clock), dialogs_(dialogs), paths_(paths), CORB_(CORB)
{
    createLayout();
    dispPlay.onClick = [this] { dispPlayClick(); };
    dispStop.onClick = [this] { dispStopClick(); };
    dispPause.onClick = [this] { dispPauseClick(); };
    TimerDisplay.onTick = [this] { TimerDisplayTimer(); };
    TimerDisplay.setInterval(firstPeriodMs);
    TimerDisplay.setEnabled(true);
}

void DisplayPage::createLayout()
{
    resizeTwips(7455, 9555);
    for (QWidget* child :
         std::initializer_list<QWidget*>{&Image2, &Image3, &Picture1, &dispPlay, &dispStop, &dispPause, &dispRec,
                                         &dispEnlarge, &dispSave, &optDispDev, &optDispFull, &barRec})
        child->setParent(this);
    Image2.moveTwips(120, 300);
    Image2.resizeTwips(5700, 9180);
    Picture1.moveTwips(540, 840);
    Picture1.resizeTwips(4815, 3615);
    Image1.setParent(&Picture1);
    Image1.moveTwips(0, 0);
    Image1.resizeTwips(4815, 3615);
    int top = 300;
    for (PictureButton* button : {&dispPlay, &dispStop, &dispPause, &dispRec, &dispSave, &dispEnlarge}) {
        button->setIconSize({32, 32});
        button->moveTwips(5970, top);
        button->resizeTwips(1335, 975);
        top += 1095;
    }
    dispPause.setVisible(false);
    dispRec.setVisible(false);
    dispRec.setEnabled(false);
    barRec.setVisible(false);
    dispEnlarge.setEnabled(false);
    optDispDev.setValue(true);
    optDispDev.setVisible(false);
    optDispFull.setVisible(false);
    optDispFull.setEnabled(false);
}

void DisplayPage::RefreshDisplayPage()
{
    Image1.setPicture(icon(QStringLiteral("\\OrbEmpty.jpg")));
    followLink(dispPlay, CORB_, paths_);
}

void DisplayPage::dispPlayClick()
{
    attemptEach([] {
        if (!folderExists(staging::folder))
            createFolder(staging::folder);
    });
    if (!CORB_.IsConnected()) {
        TimerDisplay.setEnabled(false);
        dialogs_.message(QStringLiteral("Please Connect ORB Device first!\r\nGoto Control Page and Connect ORB"),
                         Icon::Information);
        return;
    }
    TimerDisplay.setInterval(CORB_.LinkType() == slowLink ? slowLinkPeriodMs : periodMs);
    TimerDisplay.setEnabled(true);
    dispStop.setEnabled(true);
    dispEnlarge.setEnabled(true);
    attemptEach([this] { dispStop.setPicture(icon(QStringLiteral("\\ICON\\B4STOP-A.JPG"))); });
    dispPause.setEnabled(true);
    attemptEach([this] { dispPause.setPicture(icon(QStringLiteral("\\ICON\\B2PAUSE.JPG"))); });
    dispPlay.setEnabled(false);
}

void DisplayPage::dispStopClick()
{
    TimerDisplay.setEnabled(false);
    dispPlay.setEnabled(true);
    dispPause.setEnabled(false);
    dispStop.setEnabled(false);
    dispStop.setPicture(icon(QStringLiteral("\\ICON\\B4STOP.JPG")));
    dispEnlarge.setEnabled(false);
}

void DisplayPage::dispPauseClick()
{
    const bool pause = TimerDisplay.enabled();
    TimerDisplay.setEnabled(!pause);
    dispPause.setPicture(icon(pause ? QStringLiteral("\\icon\\B2PAUSE2.JPG") : QStringLiteral("\\icon\\B2PAUSE.JPG")));
}

void DisplayPage::TimerDisplayTimer()
{
    if (!CORB_.IsConnected()) {
        TimerDisplay.setEnabled(false);
        return;
    }
    if (!CORB_.GrabScreen())
        return;
    Picture1.setPicture(staging::screen);
    Picture1.setTag(staging::screen);
    Image1.setPixmap(Picture1.pixmap());
}

} // namespace orb
