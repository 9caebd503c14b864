// SPDX-License-Identifier: GPL-3.0-or-later
#include "form_orb.h"

namespace orb {

namespace {

constexpr int pageButtonWidth = 1005;
constexpr int pageButtonHeight = 975;
constexpr int groupLeft = 120;
constexpr int rowEndMargin = 4;

} // namespace

FormORB::FormORB(Clock& clock, Dialogs& dialogs, const Paths& paths, ORBCtrl& CORB, SystemTools& systemTools)
    : Form(clock.run()),
      wsMain([&clock] { return clock.now(); }),
      fraDisplay(clock, dialogs, paths, CORB, bFullScrMode),
      fraCommand(clock, dialogs, paths, CORB, fraDisplay.optDispDev),
      frmDatalog(clock, dialogs, paths, CORB, wsMain, dbMain),
      fraSequence(clock, dialogs, paths, CORB, wsMain, dbMain, sPendingSeqFile, frmDatalog.adLogSeries[0]),
      fraProgram(clock, dialogs, paths, CORB, dbMain, frmDatalog.FrameDataFileOperate, sPendingProgFile),
      Frame1(paths, fraCommand.lstCommand),
      panel(paths, CORB, *this, fraDisplay.Image2, fraDisplay.Picture1, fraDisplay.Image1, fraDisplay.TimerDisplay,
            Frame1),
      supervisor(clock, paths, CORB, *this, pageControl, pageDisplay, pageCommand),
      systemInfo(systemTools, dialogs),
      dialogs_(dialogs),
      paths_(paths),
      CORB_(CORB)
{
    setCaption(ConnectionSupervisor::disconnectedTitle());
    layoutPageButtons();
    layoutGroups();
    wire();
    createKeys();
}

/// The form does not own the instrument control, nor what stands at the end of the row.
FormORB::~FormORB()
{
    if (rowEnd_)
        rowEnd_->setParent(nullptr);
    CORB_.setParent(nullptr);
}

void FormORB::layoutPageButtons()
{
    const std::array<std::pair<PictureButton*, const char*>, 9> row{{{&pageConnect, "\\ICON\\PageConnect.png"},
                                                                     {&pageControl, "\\ICON\\A3RMTCTRLSTOP.JPG"},
                                                                     {&pageCommand, "\\ICON\\PageCommand.png"},
                                                                     {&pageWave, "\\ICON\\PageDataLog.png"},
                                                                     {&pageSequence, "\\ICON\\PageSequence.png"},
                                                                     {&PageProgram, "\\ICON\\PageProgram.png"},
                                                                     {&pageAbout, "\\ICON\\PageAbout.png"},
                                                                     {&pageExit, "\\ICON\\PageExit.png"},
                                                                     {&pageDisplay, "\\ICON\\PageDisplay.png"}}};
    int left = groupLeft;
    for (const auto& [button, picture] : row) {
        button->setParent(this);
        button->setIconSize({32, 32});
        button->setPicture(paths_.inApplication(QLatin1String(picture)));
        button->moveTwips(left, 0);
        button->resizeTwips(pageButtonWidth, pageButtonHeight);
        left += pageButtonWidth;
    }
    setCaptionFont();
    pageDisplay.setVisible(false); // nothing shows it
}

/// All captions of the row in one size, the largest at which the longest of them has its room.
void FormORB::setCaptionFont()
{
    const std::array buttons{&pageConnect, &pageControl, &pageCommand, &pageWave,   &pageSequence,
                             &PageProgram, &pageAbout,   &pageExit,    &pageDisplay};
    QFont common = pageConnect.font();
    for (const PictureButton* button : buttons)
        if (const QFont fitted = button->captionFont(); QFontInfo(fitted).pointSizeF() < QFontInfo(common).pointSizeF())
            common = fitted;
    for (PictureButton* button : buttons)
        button->setFont(common);
}

void FormORB::setRowEnd(QWidget& widget)
{
    rowEnd_ = &widget;
    widget.setParent(this);
    widget.show();
    layoutRowEnd();
}

/// After the last button that is shown.
void FormORB::layoutRowEnd()
{
    if (!rowEnd_)
        return;
    const PictureButton& last = pageDisplay.visible() ? pageDisplay : pageExit;
    const int left = last.geometry().right() + rowEndMargin - 1;
    rowEnd_->setGeometry(left, rowEndMargin, width() - left - 2 * rowEndMargin, pageExit.height() - 2 * rowEndMargin);
}

void FormORB::layoutGroups()
{
    for (QWidget* group : std::initializer_list<QWidget*>{&CORB_, &frmDatalog, &fraDisplay, &fraCommand, &fraSequence,
                                                          &fraProgram, &Frame1}) {
        group->setParent(this);
        group->setVisible(false);
        designSizes_[group] = group->size();
    }
    fraDisplay.setMouseTracking(true);
}

void FormORB::wire()
{
    pageConnect.onClick = [this] { pageConnectClick(); };
    pageControl.onClick = [this] { pageControlClick(); };
    pageCommand.onClick = [this] { pageCommandClick(); };
    pageWave.onClick = [this] { pageWaveClick(); };
    pageSequence.onClick = [this] { pageSequenceClick(); };
    PageProgram.onClick = [this] { PageProgramClick(); };
    pageAbout.onClick = [this] { pageAboutClick(); };
    pageExit.onClick = [this] { pageExitClick(); };
    pageDisplay.onClick = [this] { pageDisplayClick(); };
    CORB_.onConnectPage = [this] { markPage(pageConnect); };
    frmDatalog.ApplyProgramHistory = [this] { fraProgram.ApplyProgramHistory(); };
    fraDisplay.onMouseMove = [this] { setCursor(Qt::ArrowCursor); };
    onActivate = [this] { bFullScrMode = false; };
    onResize = [this] {
        layoutRowEnd();
        growShownGroup();
    };
    onUnload = [this] { unload(); };
}

void FormORB::FormLoad()
{
    dbMain = wsMain.openDatabase(paths_.inApplication(QStringLiteral("\\orb.mdb")));
    sPendingSeqFile.clear();
    bFullScrMode = false;
    panel.InitDevButton();
    fraCommand.InitListCommand();
    frmDatalog.InitDataLog();
    fraProgram.InitProgramPage();
    pageControlClick();
}

/// The form is closed by its frame. Running activities are not stopped: their loops end at their next yield.
void FormORB::unload()
{
    dbMain.close();
    wsMain.close();
    run().endAtNextYield();
}

void FormORB::ClearGraphSeq()
{
    frmDatalog.adLogSeries[0].clear();
    frmDatalog.adLogSeries[1].clear();
    frmDatalog.graphLog.ClearData();
}

/// Ends the process at once: nothing is stopped, and the database is not closed.
void FormORB::pageExitClick()
{
    run().end();
}

} // namespace orb
