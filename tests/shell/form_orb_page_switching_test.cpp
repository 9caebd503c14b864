// SPDX-License-Identifier: GPL-3.0-or-later
#include "form_orb_test.h"

#include <QCoreApplication>
#include <QScreen>

using namespace orb;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const QString prompt = "message \"Do you want to reconnect ORB device?\" none YesNo";

/// The form after its start, on the screen, with the instrument connected.
class FormORBPageSwitchingTest : public FormORBTest {
protected:
    FormORBPageSwitchingTest()
    {
        load();
        form.show();
        instrument.connected = true;
    }

    /// What a click does, step by step, when all other groups are shown, every group stands elsewhere, all three
    /// activities run and the window is too large.
    QStringList stepsOf(void (FormORB::*page)(), QWidget& group)
    {
        const std::initializer_list<QWidget*> groups{&instrument,      &form.fraDisplay,  &form.fraCommand,
                                                     &form.frmDatalog, &form.fraSequence, &form.fraProgram};
        for (QWidget* other : groups) {
            other->setVisible(true); // each has its layout then
            other->setVisible(other != &group);
            other->move(300, 200);
        }
        form.Frame1.raise();
        for (PictureButton* stop : {&form.fraDisplay.dispStop, &form.frmDatalog.logStop, &form.fraCommand.cmdStop})
            stop->setEnabled(true);
        for (PictureButton* start : {&form.fraDisplay.dispPlay, &form.frmDatalog.logStart, &form.fraCommand.cmdStart})
            start->setEnabled(false);
        form.resize(700, 700);
        watchPages();
        click(page);
        return journal.linesWithout({"picture", "report"});
    }

    /// The place of a group, how much higher than its end and how wide the form is, all in twips.
    template <typename Group> QString placeOf(const Group& group) const
    {
        return QStringLiteral("%1 %2, %3 wide, %4 below")
            .arg(group.leftTwips())
            .arg(group.topTwips())
            .arg(form.widthTwips())
            .arg(form.heightTwips() - group.topTwips() - group.heightTwips());
    }
};

const QStringList stopDisplay{"enable dispPlay", "disable dispStop"};
const QStringList stopLog{"enable logStart", "disable logStop"};
const QStringList stopCommands{"enable cmdStart", "disable cmdStop"};

TEST_F(FormORBPageSwitchingTest, TheControlPageTakesItsStepsInOrder)
{
    const QStringList expected{"hide frmDatalog",
                               "hide fraDisplay",
                               "hide fraSequence",
                               "hide fraProgram",
                               "show CORB",
                               "raise CORB",
                               "resize CORB 8115 6675",
                               "move CORB 120 1020",
                               "hide fraCommand",
                               "resize FormORB 10500 8085",
                               "call ShowControlPage",
                               "resize FormORB 9525 8085",
                               "resize CORB 9285 6675"};
    EXPECT_EQ(stepsOf(&FormORB::pageControlClick, instrument), stopDisplay + stopLog + stopCommands + expected);
}

TEST_F(FormORBPageSwitchingTest, TheConnectPageTakesItsStepsInOrder)
{
    dialogs.answers = {Answer::Yes};
    const QStringList expected{"hide frmDatalog",
                               "hide fraDisplay",
                               "hide fraSequence",
                               "hide fraProgram",
                               "show CORB",
                               "raise CORB",
                               "resize CORB 8115 6675",
                               "move CORB 120 1020",
                               "hide fraCommand",
                               "resize FormORB 10500 8085",
                               "call ShowConnectPage",
                               "read IsConnected True",
                               prompt,
                               "call Reconnect",
                               "resize FormORB 9525 8085",
                               "resize CORB 9285 6675"};
    EXPECT_EQ(stepsOf(&FormORB::pageConnectClick, instrument), stopDisplay + expected);
}

TEST_F(FormORBPageSwitchingTest, TheDisplayPageTakesItsStepsInOrder)
{
    const QStringList expected{"call PanelActive False",
                               "hide CORB",
                               "hide fraSequence",
                               "hide frmDatalog",
                               "hide fraProgram",
                               "hide fraCommand",
                               "show fraDisplay",
                               "raise fraDisplay",
                               "move fraDisplay 120 960",
                               "read IsConnected True",
                               "read IsConnected True",
                               "enable dispPlay",
                               "resize FormORB 10500 10905",
                               "resize FormORB 9525 10905",
                               "resize fraDisplay 9285 9555"};
    EXPECT_EQ(stepsOf(&FormORB::pageDisplayClick, form.fraDisplay), stopLog + stopCommands + expected);
}

TEST_F(FormORBPageSwitchingTest, TheCommandPageTakesItsStepsInOrder)
{
    const QStringList expected{"call PanelActive False",    "hide frmDatalog",         "hide fraSequence",
                               "hide fraProgram",           "show fraCommand",         "raise fraCommand",
                               "move fraCommand 120 960",   "hide fraDisplay",         "hide CORB",
                               "read IsConnected True",     "read IsConnected True",   "enable cmdStart",
                               "resize FormORB 10500 8685", "resize FormORB 9525 8685"};
    EXPECT_EQ(stepsOf(&FormORB::pageCommandClick, form.fraCommand), stopDisplay + stopLog + expected);
}

TEST_F(FormORBPageSwitchingTest, TheDataLogPageTakesItsStepsInOrder)
{
    const QStringList expected{"call PanelActive False",    "hide fraSequence",        "hide fraDisplay",
                               "hide fraCommand",           "hide fraProgram",         "hide CORB",
                               "read IsConnected True",     "read IsConnected True",   "enable logStart",
                               "raise frmDatalog",          "move frmDatalog 120 960", "resize FormORB 10500 10650",
                               "resize FormORB 10830 10650"};
    EXPECT_EQ(stepsOf(&FormORB::pageWaveClick, form.frmDatalog),
              QStringList("show frmDatalog") + stopDisplay + stopCommands + expected);
}

TEST_F(FormORBPageSwitchingTest, TheSequencePageTakesItsStepsInOrder)
{
    const QStringList expected{"call PanelActive False", "hide frmDatalog",           "hide fraDisplay",
                               "hide fraCommand",        "hide fraProgram",           "hide CORB",
                               "raise fraSequence",      "move fraSequence 120 960",  "read IsConnected True",
                               "read IsConnected True",  "resize FormORB 10500 9750", "resize FormORB 9525 9750"};
    EXPECT_EQ(stepsOf(&FormORB::pageSequenceClick, form.fraSequence),
              QStringList("show fraSequence") + stopDisplay + stopLog + stopCommands + expected);
}

TEST_F(FormORBPageSwitchingTest, LeavingTheSequencePageKeepsTheSequenceAndComingBackLosesIt)
{
    press(form.pageSequence);
    alterDatabase("insert into ORBSeqHead values('a',1,1)");

    press(form.pageWave);
    EXPECT_EQ(table("select count(*) from ORBSeqHead"), "1\n");
    press(form.pageSequence);
    EXPECT_EQ(table("select count(*) from ORBSeqHead"), "0\n");
}

TEST_F(FormORBPageSwitchingTest, TheProgramPageTakesItsStepsInOrder)
{
    const QStringList expected{"call PanelActive False",   "hide frmDatalog",       "hide fraSequence",
                               "hide fraCommand",          "hide fraDisplay",       "hide CORB",
                               "show fraProgram",          "raise fraProgram",      "move fraProgram 120 960",
                               "read IsConnected True",    "read IsConnected True", "resize FormORB 10500 11250",
                               "resize FormORB 9525 11250"};
    EXPECT_EQ(stepsOf(&FormORB::PageProgramClick, form.fraProgram), stopDisplay + stopLog + stopCommands + expected);
}

TEST_F(FormORBPageSwitchingTest, APageThatStopsNothingRunsNoStopHandler)
{
    press(form.pageSequence);
    watchPages();
    form.frmDatalog.logStart.setEnabled(false);
    form.fraCommand.cmdStart.setEnabled(false);
    form.fraDisplay.dispPlay.setEnabled(false);
    journal.clear();
    press(form.pageSequence);
    EXPECT_THAT(journal.linesOf({"enable", "disable"}), IsEmpty());
}

TEST_F(FormORBPageSwitchingTest, EachPageButtonBringsUpItsGroupAloneAtItsPlaceAndFitsTheForm)
{
    const auto page = [&](PictureButton& button, const auto& group) {
        press(button);
        return button.caption() + ": " + shownGroups() + " " + placeOf(group);
    };
    const QStringList pages{
        page(form.pageCommand, form.fraCommand),   page(form.pageWave, form.frmDatalog),
        page(form.pageSequence, form.fraSequence), page(form.PageProgram, form.fraProgram),
        page(form.pageControl, instrument),        page(form.pageConnect, instrument),
    };
    const QStringList expected{
        "Command: fraCommand 120 960, 9525 wide, 390 below",   "Data Log: frmDatalog 120 960, 10830 wide, 390 below",
        "Sequence: fraSequence 120 960, 9525 wide, 390 below", "Program: fraProgram 120 960, 9525 wide, 390 below",
        "Control: CORB 120 1020, 9525 wide, 390 below",        "Connect: CORB 120 1020, 9525 wide, 390 below"};
    EXPECT_EQ(pages, expected);
}

TEST_F(FormORBPageSwitchingTest, TheDisplayPageGoesOnPastEveryFailingStep)
{
    QFile::remove(application.filePath("ICON"));
    QFile::remove(application.filePath("OrbEmpty.jpg"));
    for (PictureButton* stop : {&form.frmDatalog.logStop, &form.fraCommand.cmdStop})
        stop->setPicture({}); // so that the stop must load one

    const QStringList steps = stepsOf(&FormORB::pageDisplayClick, form.fraDisplay);

    const QStringList expected{"call PanelActive False",    "hide CORB",
                               "hide fraSequence",          "hide frmDatalog",
                               "hide fraProgram",           "hide fraCommand",
                               "show fraDisplay",           "raise fraDisplay",
                               "move fraDisplay 120 960",   "resize FormORB 10500 10905",
                               "resize FormORB 9525 10905", "resize fraDisplay 9285 9555"};
    EXPECT_EQ(steps, stopLog + stopCommands + expected);
    EXPECT_THAT(processExit.reports, IsEmpty());
}

TEST_F(FormORBPageSwitchingTest, EveryOtherPageEndsTheProgramAtAFailingStep)
{
    QFile::remove(application.filePath("ICON"));
    form.frmDatalog.logStop.setPicture({});
    EXPECT_EQ(stepsOf(&FormORB::pageCommandClick, form.fraCommand), stopDisplay + stopLog);
    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '53':\n\nFile not found"));
}

TEST_F(FormORBPageSwitchingTest, TheDisplayPagePressedWhileTheMirrorRunsBlanksThePictureAndLetsTheMirrorRun)
{
    createFolder("c:\\temp");
    QPixmap screen(320, 240);
    screen.fill(Qt::green);
    ASSERT_TRUE(screen.save(realPath("c:\\temp\\ORB.bmp")));
    instrument.screenGrabbed = true;
    click(&FormORB::pageDisplayClick);
    press(form.fraDisplay.dispPlay);
    clock.advance(600);
    EXPECT_EQ(form.fraDisplay.Image1.picture(), "") << "the picture of the mirror";
    EXPECT_FALSE(form.fraDisplay.dispPlay.enabled());

    click(&FormORB::pageDisplayClick);

    EXPECT_TRUE(form.fraDisplay.TimerDisplay.enabled());
    EXPECT_TRUE(form.fraDisplay.dispStop.enabled());
    EXPECT_EQ(form.fraDisplay.Image1.picture(), paths.inApplication("\\OrbEmpty.jpg"));
    EXPECT_TRUE(form.fraDisplay.dispPlay.enabled());
    clock.advance(500);
    EXPECT_EQ(form.fraDisplay.Image1.picture(), "") << "the next picture has come";
}

TEST_F(FormORBPageSwitchingTest, ANoToTheReconnectPromptFromTheDataLogPageLeavesTheFormWideWithTheControlShown)
{
    press(form.pageWave);
    dialogs.answers = {Answer::No};
    journal.clear();

    press(form.pageConnect);

    EXPECT_EQ(form.widthTwips(), 10830);
    EXPECT_EQ(shownGroups(), "CORB");
    EXPECT_THAT(journal.linesOf({"call", "message"}), ElementsAre("call ShowConnectPage", prompt));
}

TEST_F(FormORBPageSwitchingTest, ThePromptComesOnEveryPressOfConnectWhileTheLinkStands)
{
    instrument.connected = false;
    press(form.pageConnect);
    EXPECT_THAT(dialogs.shown, IsEmpty());
    instrument.connected = true;
    press(form.pageConnect);
    press(form.pageConnect);
    EXPECT_THAT(journal.linesOf({"message"}), ElementsAre(prompt, prompt));
}

TEST_F(FormORBPageSwitchingTest, AnEnlargedWindowGivesTheShownPageTheRoomUntilTheNextSwitch)
{
    press(form.pageWave);
    const QSize group = form.frmDatalog.size();
    const QSize window = form.size();

    form.resize(window + QSize(200, 100));
    EXPECT_EQ(form.frmDatalog.size(), group + QSize(200, 100));
    EXPECT_EQ(form.minimumSize(), window);

    press(form.pageWave);
    EXPECT_EQ(form.size(), window);
    EXPECT_EQ(form.frmDatalog.size(), group);
}

TEST_F(FormORBPageSwitchingTest, AMaximizedWindowKeepsItsSizeAndEachPageFillsIt)
{
    form.showMaximized();
    QCoreApplication::processEvents();
    const QSize window = form.size();
    ASSERT_GT(window.width(), 722) << "wider than any page";
    const auto margins = [&](PictureButton& button, const QWidget& group) {
        press(button);
        EXPECT_EQ(form.size(), window) << button.caption().toStdString();
        return QStringLiteral("%1 %2")
            .arg(window.width() - group.geometry().right() - 1)
            .arg(window.height() - group.geometry().bottom() - 1);
    };
    EXPECT_EQ(margins(form.pageWave, form.frmDatalog), "8 26");
    EXPECT_EQ(margins(form.pageCommand, form.fraCommand), "8 26");
    EXPECT_EQ(margins(form.pageControl, instrument), "8 26");
    dialogs.answers = {Answer::No};
    EXPECT_EQ(margins(form.pageConnect, instrument), "8 26");
}

TEST_F(FormORBPageSwitchingTest, NoPageMakesTheWindowLargerThanTheScreen)
{
    const QSize screen = form.screen()->availableSize();
    instrument.resize(screen); // the window needs more than the control
    FormORB large(clock, dialogs, paths, instrument, systemTools);
    run.enter([&] { large.FormLoad(); });
    large.show();
    EXPECT_EQ(large.height(), screen.height());
    EXPECT_EQ(large.minimumHeight(), screen.height());
    EXPECT_EQ(instrument.geometry().bottom(), screen.height() - 27);
}

TEST_F(FormORBPageSwitchingTest, ComingBackToTheProgramPageThrowsAllItsStepsAndItsChainAway)
{
    press(form.PageProgram);
    form.fraProgram.txtMemSetting[34].setTag("4,5,AUTO,5,1,2.5,0,Off,1,0.01,1,1.0,17");
    form.fraProgram.cmbProgChain[0].setText("P03");
    form.fraProgram.progSend.setEnabled(true);
    press(form.pageCommand);
    EXPECT_NE(form.fraProgram.txtMemSetting[34].tag(), "");

    press(form.PageProgram);

    EXPECT_EQ(form.fraProgram.txtMemSetting[34].tag(), "");
    EXPECT_EQ(form.fraProgram.cmbProgChain[0].text(), "OFF");
    EXPECT_FALSE(form.fraProgram.progSend.enabled());
    EXPECT_TRUE(form.fraProgram.progLoad.enabled());
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(FormORBPageSwitchingTest, ThePagesShareTheListDialogAndEachTakesItBack)
{
    DataFileDialog& dialog = form.frmDatalog.FrameDataFileOperate;
    press(form.PageProgram);
    press(form.fraProgram.progSave);
    press(form.fraProgram.progOpenDB);
    EXPECT_EQ(dialog.parentWidget(), &form.fraProgram);
    EXPECT_TRUE(isReachable(dialog.lstProgFile));

    press(form.pageWave);
    press(form.frmDatalog.logOpen);
    EXPECT_EQ(dialog.parentWidget(), &form.frmDatalog);
    EXPECT_TRUE(isReachable(dialog.lstLogMain));
    EXPECT_EQ(dialog.cmdOKDataLogFile.tag(), "OPENDATALOG");

    press(form.PageProgram);
    press(form.fraProgram.progOpenDB); // closes the list that was left open
    press(form.fraProgram.progOpenDB);
    EXPECT_TRUE(isReachable(dialog.lstProgFile));
    EXPECT_EQ(dialog.cmdOKDataLogFile.tag(), "PROCROGRAM");
}

TEST_F(FormORBPageSwitchingTest, TheOkOfTheListDialogOpensAStoredProgramAndHidesTheDialog)
{
    DataFileDialog& dialog = form.frmDatalog.FrameDataFileOperate;
    press(form.PageProgram);
    for (MemoryCell& cell : form.fraProgram.txtMemSetting)
        cell.setTag("4,5,AUTO,5,1,2.5,0,Off,1,0.01,1,1.0,17");
    press(form.fraProgram.progSave);
    press(form.PageProgram);
    press(form.fraProgram.progOpenDB);
    pick(dialog.lstProgFile, dialog.lstProgFile.list(0));

    press(dialog.cmdOKDataLogFile);

    EXPECT_EQ(form.fraProgram.txtMemSetting[119].text(), "17");
    EXPECT_FALSE(dialog.visible());
    EXPECT_TRUE(form.fraProgram.progSend.enabled());
}

TEST_F(FormORBPageSwitchingTest, ACancelOfTheListDialogLeavesTheListOfProgramsOpenSoThatTheNextClickClosesIt)
{
    DataFileDialog& dialog = form.frmDatalog.FrameDataFileOperate;
    press(form.PageProgram);
    press(form.fraProgram.progOpenDB);
    press(dialog.cmdCancelDataLogFile);
    EXPECT_FALSE(dialog.visible());

    press(form.fraProgram.progOpenDB);
    EXPECT_FALSE(dialog.visible());
    press(form.fraProgram.progOpenDB);
    EXPECT_TRUE(isReachable(dialog.lstProgFile));
}

} // namespace
