// SPDX-License-Identifier: GPL-3.0-or-later
#include "form_orb_test.h"

#include <QCoreApplication>
#include <QMouseEvent>

using namespace orb;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace {

TEST_F(FormORBTest, AfterTheStartTheControlPageIsShownAndAllThreeStopButtonsAreDisabled)
{
    instrument.resizeTwips(8115, 6675);
    load();

    EXPECT_EQ(shownGroups(), "CORB");
    EXPECT_THAT(instrument.calls, ElementsAre("ShowControlPage"));
    EXPECT_FALSE(form.fraDisplay.dispStop.enabled());
    EXPECT_FALSE(form.frmDatalog.logStop.enabled());
    EXPECT_FALSE(form.fraCommand.cmdStop.enabled());
}

TEST_F(FormORBTest, BeforeTheFirstTickOfTheSupervisorControlAndCommandAreStillEnabled)
{
    load();
    clock.advance(1199);
    EXPECT_TRUE(form.pageControl.enabled());
    EXPECT_TRUE(form.pageCommand.enabled());

    clock.advance(1);
    EXPECT_FALSE(form.pageControl.enabled());
    EXPECT_FALSE(form.pageCommand.enabled());
    for (const PictureButton* always :
         {&form.pageConnect, &form.pageWave, &form.pageSequence, &form.PageProgram, &form.pageAbout, &form.pageExit})
        EXPECT_TRUE(always->enabled()) << always->caption().toStdString();
}

TEST_F(FormORBTest, TheRowOfPageButtonsHasItsOrderItsSizesAndAHiddenLastOne)
{
    QStringList row;
    int left = -1;
    for (const PictureButton* button :
         {&form.pageConnect, &form.pageControl, &form.pageCommand, &form.pageWave, &form.pageSequence,
          &form.PageProgram, &form.pageAbout, &form.pageExit, &form.pageDisplay}) {
        EXPECT_GT(button->leftTwips(), left);
        left = button->leftTwips();
        EXPECT_EQ(button->widthTwips(), 1005);
        EXPECT_EQ(button->heightTwips(), 975);
        EXPECT_TRUE(button->enabled());
        row << button->caption() + (button->visible() ? "" : " hidden");
    }
    EXPECT_EQ(row.join(", "), "Connect, Control, Command, Data Log, Sequence, Program, About, Exit, Display hidden");
}

TEST_F(FormORBTest, TheTitleAtTheStartSaysDisconnectedAndTheThreeTimersExist)
{
    EXPECT_EQ(form.caption(), "ZN ORB Device[DisConnected]");
    EXPECT_TRUE(form.supervisor.TimerChkConnected.enabled());
    EXPECT_EQ(form.supervisor.TimerChkConnected.interval(), 1200);
    EXPECT_TRUE(form.fraDisplay.TimerDisplay.enabled());
    EXPECT_EQ(form.fraDisplay.TimerDisplay.interval(), 200);
    EXPECT_EQ(form.frmDatalog.TimerDataLog.interval(), 0);
}

TEST_F(FormORBTest, TheMirrorDoesNotTickAfterTheStart)
{
    load();
    instrument.connected = true;
    clock.advance(5000);
    EXPECT_THAT(instrument.calls, Not(Contains("GrabScreen")));
}

TEST_F(FormORBTest, EachPageStopsWhatMustNotRunBesideIt)
{
    load();
    EXPECT_EQ(stoppedBy([&] { form.pageControlClick(); }), "yes yes yes no");
    EXPECT_EQ(stoppedBy([&] { form.pageConnectClick(); }), "yes no no no");
    EXPECT_EQ(stoppedBy([&] { form.pageDisplayClick(); }), "no yes yes yes");
    EXPECT_EQ(stoppedBy([&] { form.pageCommandClick(); }), "yes yes no yes");
    EXPECT_EQ(stoppedBy([&] { form.pageWaveClick(); }), "yes no yes yes");
    EXPECT_EQ(stoppedBy([&] { form.pageSequenceClick(); }), "yes yes yes yes");
    EXPECT_EQ(stoppedBy([&] { form.PageProgramClick(); }), "yes yes yes yes");
    EXPECT_EQ(stoppedBy([&] { form.pageAboutClick(); }), "no no no no");
}

TEST_F(FormORBTest, EachPageShowsItsGroupAloneAtItsPlaceAndFitsTheForm)
{
    instrument.resizeTwips(8115, 6675);
    FormORB sized(clock, dialogs, paths, instrument);
    run.enter([&] { sized.FormLoad(); });
    const auto placed = [&](auto click, const auto& group) {
        run.enter(click);
        return QStringLiteral("%1 %2, form %3 higher than the group's end, %4 wide")
            .arg(group.leftTwips())
            .arg(group.topTwips())
            .arg((sized.heightTwips() - group.topTwips() - group.heightTwips()) / 15)
            .arg(sized.widthTwips());
    };
    const QString fit = "120 960, form 26 higher than the group's end, 9525 wide";
    EXPECT_EQ(placed([&] { sized.pageCommandClick(); }, sized.fraCommand), fit);
    EXPECT_EQ(placed([&] { sized.pageSequenceClick(); }, sized.fraSequence), fit);
    EXPECT_EQ(placed([&] { sized.PageProgramClick(); }, sized.fraProgram), fit);
    EXPECT_EQ(placed([&] { sized.pageDisplayClick(); }, sized.fraDisplay), fit);
    EXPECT_EQ(placed([&] { sized.pageWaveClick(); }, sized.frmDatalog),
              "120 960, form 26 higher than the group's end, 10830 wide");
    EXPECT_EQ(placed([&] { sized.pageControlClick(); }, instrument),
              "120 1020, form 26 higher than the group's end, 9525 wide");
    EXPECT_EQ(instrument.widthTwips(), 8115);
}

TEST_F(FormORBTest, APageSwitchShowsOneGroup)
{
    load();
    const std::array<std::pair<void (FormORB::*)(), const char*>, 7> pages{
        {{&FormORB::pageControlClick, "CORB"},
         {&FormORB::pageCommandClick, "fraCommand"},
         {&FormORB::pageWaveClick, "frmDatalog"},
         {&FormORB::pageSequenceClick, "fraSequence"},
         {&FormORB::PageProgramClick, "fraProgram"},
         {&FormORB::pageDisplayClick, "fraDisplay"},
         {&FormORB::pageConnectClick, "CORB"}}};
    for (const auto& [click, group] : pages) {
        run.enter([&, page = click] { (form.*page)(); });
        EXPECT_EQ(shownGroups(), group);
    }
}

TEST_F(FormORBTest, AnEnlargedWindowGivesTheShownPageTheRoomAndTheNextSwitchTheToldSizeAgain)
{
    load();
    run.enter([&] { form.pageWaveClick(); });
    form.show();
    const QSize group = form.frmDatalog.size();
    const QSize window = form.size();

    form.resize(window + QSize(200, 100));
    EXPECT_EQ(form.frmDatalog.size(), group + QSize(200, 100));

    press(form.pageWave);
    EXPECT_EQ(form.size(), window);
    EXPECT_EQ(form.frmDatalog.size(), group);
}

TEST_F(FormORBTest, TheDisplayPagePressedWhileTheMirrorRunsBlanksThePictureAndLetsTheMirrorRun)
{
    createFolder("c:\\temp");
    QPixmap screen(320, 240);
    screen.fill(Qt::green);
    ASSERT_TRUE(screen.save(realPath("c:\\temp\\ORB.bmp")));
    load();
    instrument.connected = true;
    instrument.screenGrabbed = true;
    run.enter([&] { form.pageDisplayClick(); });
    press(form.fraDisplay.dispPlay);
    clock.advance(600);
    EXPECT_EQ(form.fraDisplay.Image1.picture(), "") << "the picture of the mirror";
    EXPECT_FALSE(form.fraDisplay.dispPlay.enabled());

    run.enter([&] { form.pageDisplayClick(); });

    EXPECT_TRUE(form.fraDisplay.TimerDisplay.enabled());
    EXPECT_TRUE(form.fraDisplay.dispStop.enabled());
    EXPECT_EQ(form.fraDisplay.Image1.picture(), paths.inApplication("\\OrbEmpty.jpg"));
    EXPECT_TRUE(form.fraDisplay.dispPlay.enabled());
    clock.advance(500);
    EXPECT_EQ(form.fraDisplay.Image1.picture(), "") << "the next picture has come";
}

TEST_F(FormORBTest, TheDisplayPageCarriesOnPastAFailingStep)
{
    load();
    QFile::remove(application.filePath("OrbEmpty.jpg"));
    instrument.connected = true;

    run.enter([&] { form.pageDisplayClick(); });

    EXPECT_THAT(processExit.reports, IsEmpty());
    EXPECT_TRUE(form.fraDisplay.dispPlay.enabled());
    EXPECT_EQ(form.widthTwips(), 9525);
}

TEST_F(FormORBTest, ANoToTheReconnectPromptFromTheDataLogPageLeavesTheFormWideWithTheControlShown)
{
    load();
    run.enter([&] { form.pageWaveClick(); });
    instrument.connected = true;
    dialogs.answers = {Answer::No};

    press(form.pageConnect);

    EXPECT_EQ(form.widthTwips(), 10830);
    EXPECT_EQ(shownGroups(), "CORB");
    EXPECT_THAT(instrument.calls, Not(Contains("Reconnect")));
}

TEST_F(FormORBTest, AYesToTheReconnectPromptReconnectsAndSetsTheWidth)
{
    load();
    run.enter([&] { form.pageWaveClick(); });
    instrument.connected = true;
    dialogs.answers = {Answer::Yes};

    press(form.pageConnect);

    EXPECT_EQ(form.widthTwips(), 9525);
    EXPECT_THAT(instrument.calls, Contains("Reconnect"));
}

TEST_F(FormORBTest, ThePromptComesOnEveryPressOfConnectWhileTheLinkStands)
{
    load();
    press(form.pageConnect);
    EXPECT_THAT(dialogs.shown, IsEmpty());
    instrument.connected = true;

    press(form.pageConnect);
    press(form.pageConnect);

    const Shown prompt{"Do you want to reconnect ORB device?", noIcon, Buttons::YesNo};
    EXPECT_THAT(dialogs.shown, ElementsAre(prompt, prompt));
}

TEST_F(FormORBTest, TheStartReadsTheCatalogueOfCommands)
{
    load();
    EXPECT_GT(form.fraCommand.lstCommand.listCount(), 100);
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(FormORBTest, WithoutTheCatalogueTheStartTellsSoAndGoesOn)
{
    QFile::remove(application.filePath("orbCommands.dat"));
    load();
    EXPECT_THAT(dialogs.shown, ElementsAre(Shown{"Error Number:53:File not found", noIcon, Buttons::Ok}));
    EXPECT_EQ(shownGroups(), "CORB");
}

TEST_F(FormORBTest, ActivatingTheFormLeavesTheFullScreenMode)
{
    load();
    form.bFullScrMode = true;
    QEvent activate(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&form, &activate);
    EXPECT_FALSE(form.bFullScrMode);
}

TEST_F(FormORBTest, AMouseMoveOverTheDisplayPageTakesBackThePointer)
{
    form.setCursor(Qt::PointingHandCursor);
    QMouseEvent move(QEvent::MouseMove, QPointF(2, 2), QPointF(2, 2), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&form.fraDisplay, &move);
    EXPECT_EQ(form.cursor().shape(), Qt::ArrowCursor);
}

class DamagedStartTest : public FormORBTest {
protected:
    void spoil(const QByteArray& bytes) const
    {
        QFile file(databasePath());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(bytes);
    }
};

TEST_F(DamagedStartTest, AMissingDatabaseEndsTheStartWithTheReportAndNothingIsCreated)
{
    ASSERT_TRUE(QFile::remove(databasePath()));

    load();

    ASSERT_EQ(processExit.reports.size(), 1);
    EXPECT_TRUE(processExit.reports[0].startsWith("Run-time error '3024':")) << processExit.reports[0].toStdString();
    EXPECT_FALSE(QFile::exists(databasePath()));
    EXPECT_THAT(dialogs.shown, IsEmpty()) << "no message of the application's own comes first";
    EXPECT_THAT(instrument.calls, IsEmpty());
}

TEST_F(DamagedStartTest, AnUnreadableDatabaseEndsTheStartAndStaysAsItIs)
{
    const QByteArray bytes = "this is no database\n";
    spoil(bytes);

    load();

    ASSERT_EQ(processExit.reports.size(), 1);
    EXPECT_TRUE(processExit.reports[0].startsWith("Run-time error '3343':")) << processExit.reports[0].toStdString();
    EXPECT_EQ(contentOf(databasePath()), QString::fromUtf8(bytes));
}

TEST_F(DamagedStartTest, ADatabaseWithoutItsTablesEndsTheStart)
{
    alterDatabase("drop table DataMeasure");

    load();

    ASSERT_EQ(processExit.reports.size(), 1);
    EXPECT_TRUE(processExit.reports[0].contains("no such table: DataMeasure")) << processExit.reports[0].toStdString();
}

} // namespace
