// SPDX-License-Identifier: GPL-3.0-or-later
#include "display_page.h"

#include "attempt.h"
#include "run_picture.h"
#include "screen_picture.h"
#include "text_file.h"

#include <QBuffer>

#include <algorithm>

namespace orb {

namespace {
constexpr int firstPeriodMs = 200;
constexpr int periodMs = 500;
constexpr int slowLinkPeriodMs = 2000;
constexpr int slowLink = 1;
constexpr QSize screenSize(320, 240);
constexpr int panelLeft = 120; // in twips, as what follows
constexpr int panelTop = 300;
constexpr int panelWidth = 5700;
constexpr int panelHeight = 9180;
constexpr double smallestScale = 0.5;

QByteArray asBitmap(const QPixmap& picture)
{
    if (picture.isNull())
        throw RuntimeFailure(failure::InvalidPropertyValue);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    picture.toImage().convertToFormat(QImage::Format_RGB32).save(&buffer, "BMP");
    return bytes;
}

void describe(PictureButton& button, const QString& name)
{
    button.setAccessibleName(name);
    button.setToolTip(name);
}
} // namespace

DisplayPage::DisplayPage(Clock& clock, Dialogs& dialogs, const Paths& paths, ORBCtrl& CORB, bool& bFullScrMode)
    : Frame(QStringLiteral("DISPLAY")),
      TimerDisplay(clock),
      run_(clock.run()),
      dialogs_(dialogs),
      paths_(paths),
      CORB_(CORB),
      bFullScrMode_(bFullScrMode)
{
    createLayout();
    dispPlay.onClick = [this] { dispPlayClick(); };
    dispStop.onClick = [this] { dispStopClick(); };
    dispPause.onClick = [this] { dispPauseClick(); };
    dispSave.onClick = [this] { dispSaveClick(); };
    dispEnlarge.onClick = [this] { dispEnlargeClick(); };
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
    Image2.setPicture(icon(QStringLiteral("\\ICON\\Panel.png")));
    Image2.setDesignSize({pixels(panelWidth), pixels(panelHeight)});
    QPixmap blank(screenSize);
    blank.fill(Qt::black);
    Picture1.setPixmap(blank);
    Image1.setParent(&Picture1);
    Image1.moveTwips(0, 0);
    Image3.resizeTwips(720, 720);
    Image3.setPicture(icon(QStringLiteral("\\ICON\\orb.png")));
    layoutButtons();
    layoutPanel(1);
    barRec.setVisible(false);
    barRec.setAccessibleName(QStringLiteral("Recording"));
    optDispDev.setValue(true);
    optDispDev.setVisible(false);
    optDispFull.setVisible(false);
    optDispFull.setEnabled(false);
}

/// The panel in a part of its design size, and the rest beside it.
void DisplayPage::layoutPanel(double scale)
{
    const auto scaled = [scale](int twips) { return qRound(scale * twips); };
    Image2.moveTwips(panelLeft, panelTop);
    Image2.resizeTwips(scaled(panelWidth), scaled(panelHeight));
    Picture1.moveTwips(panelLeft + scaled(540 - panelLeft), panelTop + scaled(840 - panelTop));
    Picture1.resizeTwips(scaled(4815), scaled(3615));
    Image1.resizeTwips(scaled(4815), scaled(3615));
    const int beside = panelLeft + scaled(panelWidth) + 150;
    Image3.moveTwips(beside + 300, panelTop + scaled(8700 - panelTop));
    int top = panelTop;
    for (PictureButton* button : {&dispPlay, &dispStop, &dispPause, &dispRec, &dispSave, &dispEnlarge}) {
        button->moveTwips(beside, top);
        top += scale < 1 ? 1020 : 1095;
    }
}

/// On a low screen the panel is as high as the page.
void DisplayPage::resizeEvent(QResizeEvent* event)
{
    Frame::resizeEvent(event);
    constexpr int below = 75;
    const double room = heightTwips() - panelTop - below;
    layoutPanel(std::clamp(room / panelHeight, smallestScale, 1.0));
}

void DisplayPage::layoutButtons()
{
    for (PictureButton* button : {&dispPlay, &dispStop, &dispPause, &dispRec, &dispSave, &dispEnlarge}) {
        button->setIconSize({32, 32});
        button->resizeTwips(1335, 975);
    }
    describe(dispPlay, QStringLiteral("Start the mirror"));
    describe(dispStop, QStringLiteral("Stop the mirror"));
    describe(dispPause, QStringLiteral("Pause or resume the mirror"));
    describe(dispRec, QStringLiteral("Record"));
    describe(dispSave, QStringLiteral("Save the picture"));
    describe(dispEnlarge, QStringLiteral("Full screen"));
    dispPause.setPicture(icon(QStringLiteral("\\ICON\\B2PAUSE.JPG")));
    dispRec.setPicture(icon(QStringLiteral("\\ICON\\Record.png")));
    dispSave.setPicture(icon(QStringLiteral("\\ICON\\Save.png")));
    dispEnlarge.setPicture(icon(QStringLiteral("\\ICON\\Enlarge.png")));
    dispPause.setVisible(false);
    dispRec.setVisible(false);
    dispRec.setEnabled(false);
    dispEnlarge.setEnabled(false);
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
    loadScreen(Picture1);
    (bFullScrMode_ ? fullScreen().Image1 : Image1).setPixmap(Picture1.pixmap());
}

FormFullScreen& DisplayPage::fullScreen()
{
    if (!oFullScreen)
        oFullScreen.emplace(run_);
    return *oFullScreen;
}

void DisplayPage::dispEnlargeClick()
{
    bFullScrMode_ = true;
    fullScreen().show();
    fullScreen().raise();
    fullScreen().activateWindow();
}

void DisplayPage::dispSaveClick()
{
    if (Picture1.tag().isEmpty() || !optDispDev.value())
        return;
    CommonDialog& dialog = dialogs_.CommonDialog1;
    dialog.filter = QStringLiteral("圖檔 (*.bmp;*.gif)|*.bmp;*.gif");
    dialogs_.showSave();
    dialog.initialDirectory = paths_.applicationDirectory(); // in force only for the next use
    if (dialog.fileName.isEmpty())
        return;
    const QByteArray bitmap = asBitmap(Image1.pixmap());
    OutputFile file(dialog.fileName);
    file.write({bitmap.constData(), static_cast<std::size_t>(bitmap.size())});
    file.close();
}

} // namespace orb
