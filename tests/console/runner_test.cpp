// SPDX-License-Identifier: GPL-3.0-or-later
#include "command_test.h"

using namespace orb;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const Shown notConnected{"Please Connect Device first, and then try again!", Icon::Critical, Buttons::Ok};

class RunnerTest : public CommandPageTest {
protected:
    RunnerTest()
    {
        run.enter([this] { page.RefreshCommandPage(); });
    }

    void lines(const QStringList& items) { page.lstCmdPool.addItems(items); }
    void go()
    {
        run.enter([this] { page.cmdGoClick(); });
    }
    QString log() const { return page.txtExecLog.text(); }
};

TEST_F(RunnerTest, RepeatGoesRoundUntilTheBoxIsCleared)
{
    lines({"1", "2", "3"});
    press(page.chkRepeat);
    clock.at(5 * 201, [&] { press(page.chkRepeat); });

    press(page.cmdStart);

    EXPECT_THAT(instrument.sent, ElementsAre("1", "2", "3", "1", "2", "3"));
    EXPECT_EQ(log(), "1\r\n2\r\n3\r\n1\r\n2\r\n3\r\n");
    EXPECT_FALSE(page.cmdStop.enabled());
    EXPECT_EQ(page.chkRepeat.caption(), "Single Step");
}

TEST_F(RunnerTest, RepeatPausesTwoHundredMillisecondsBehindEveryLine)
{
    lines({"1", "*IDN?", ":CHAN 1"});
    press(page.chkRepeat);
    clock.at(2 * 201, [&] { press(page.cmdStop); });

    press(page.cmdStart);

    EXPECT_THAT(clock.sleeps, ElementsAre(200, 200, 200));
}

TEST_F(RunnerTest, ASingleStepOnTheLastLineSendsItAndSelectsTheFirst)
{
    lines({"1", "2", "3"});
    pick(page.lstCmdPool, "3");
    press(page.cmdStart);
    EXPECT_THAT(instrument.sent, ElementsAre("3"));
    EXPECT_EQ(page.lstCmdPool.listIndex(), 0);
}

TEST_F(RunnerTest, SuccessiveStepsWalkRoundTheListFromItsFirstLine)
{
    lines({"1", "2"});
    for (int i = 0; i < 3; ++i)
        press(page.cmdStart);
    EXPECT_THAT(instrument.sent, ElementsAre("1", "2", "1"));
    EXPECT_THAT(clock.sleeps, IsEmpty());
}

TEST_F(RunnerTest, TheTwinSendsTheSameLineAtEachClick)
{
    lines({"1", "2"});
    pick(page.lstCmdPool, "2");
    go();
    go();
    EXPECT_THAT(instrument.sent, ElementsAre("2", "2"));
    EXPECT_EQ(page.lstCmdPool.listIndex(), 1);
}

TEST_F(RunnerTest, ALineThatChoosesAChannelIsFollowedByItsDisplayInSingleStepAlone)
{
    lines({":CHAN 1"});
    press(page.cmdStart);
    EXPECT_THAT(instrument.sent, ElementsAre(":CHAN 1", ":CHAN:DISP"));
    EXPECT_THAT(clock.sleeps, ElementsAre(200));
    EXPECT_EQ(log(), ":CHAN 1\r\n");

    instrument.sent.clear();
    press(page.chkRepeat);
    clock.at(clock.elapsed() + 1, [&] { press(page.cmdStop); });
    press(page.cmdStart);
    EXPECT_THAT(instrument.sent, ElementsAre(":CHAN 1"));
}

TEST_F(RunnerTest, ALineWithAQuestionMarkAndAChannelCountsAsAQuery)
{
    lines({":CHAN:ID?"});
    press(page.cmdStart);
    EXPECT_THAT(instrument.sent, ElementsAre(":CHAN:ID?"));
    EXPECT_EQ(log(), ":CHAN:ID? => ok\r\n");
    EXPECT_THAT(clock.sleeps, ElementsAre(200));
}

TEST_F(RunnerTest, TheTestForAChannelTellsLetterCase)
{
    lines({":chan 1"});
    press(page.cmdStart);
    EXPECT_THAT(instrument.sent, ElementsAre(":chan 1"));
}

TEST_F(RunnerTest, ASlowInstrumentLeavesAnEmptyAnswerInTheLog)
{
    instrument.onCommand = [](const QString&) { return QString(); };
    lines({"*IDN?"});
    press(page.cmdStart);
    EXPECT_EQ(log(), "*IDN? => \r\n");
}

TEST_F(RunnerTest, WithoutALinkEitherButtonSaysSoAndSendsNothing)
{
    lines({"1"});
    instrument.connected = false;
    press(page.cmdStart);
    go();
    EXPECT_THAT(dialogs.shown, ElementsAre(notConnected, notConnected));
    EXPECT_THAT(instrument.sent, IsEmpty());
}

TEST_F(RunnerTest, AnEmptyListAndNoSelectionAreTold)
{
    press(page.cmdStart);
    go();
    EXPECT_THAT(dialogs.shown, ElementsAre(Shown{"Please choose an item of Left side and put it into Right side! ",
                                                 information, Buttons::Ok},
                                           Shown{"Please choose an item of right side ", information, Buttons::Ok}));
}

TEST_F(RunnerTest, ARepeatOverAnEmptyListFailsAtTheSelectionOfItsFirstLine)
{
    press(page.chkRepeat);
    go();
    EXPECT_THAT(instrument.sent, IsEmpty());
    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '380':\n\nInvalid property value"));
}

TEST_F(RunnerTest, CheckingTheBoxStartsNothing)
{
    lines({"1"});
    press(page.chkRepeat);
    EXPECT_EQ(page.chkRepeat.caption(), "Repeat");
    EXPECT_THAT(instrument.sent, IsEmpty());
    EXPECT_FALSE(page.cmdStop.enabled());
}

TEST_F(RunnerTest, ARunThatTheButtonBeganHasAStopAndOneOfTheTwinHasNone)
{
    lines({"1"});
    press(page.chkRepeat);
    clock.at(1, [&] {
        EXPECT_TRUE(page.cmdStop.enabled());
        EXPECT_EQ(page.cmdStop.picture(), paths.inApplication("\\ICON\\B4STOP-A.JPG"));
        EXPECT_TRUE(page.cmdStart.enabled());
        press(page.cmdStop);
    });
    press(page.cmdStart);
    EXPECT_EQ(page.cmdStop.picture(), paths.inApplication("\\ICON\\B4STOP.JPG"));

    press(page.chkRepeat);
    clock.at(clock.elapsed() + 1, [&] {
        EXPECT_FALSE(page.cmdStop.enabled());
        press(page.chkRepeat);
    });
    go();
    EXPECT_EQ(instrument.sent.size(), 2);
}

TEST_F(RunnerTest, ASecondClickNestsALoopAndBothEndWithTheBox)
{
    lines({"1", "2"});
    press(page.chkRepeat);
    clock.at(1, [&] { press(page.cmdStart); });
    clock.at(300, [&] { press(page.cmdStop); });

    press(page.cmdStart);

    EXPECT_THAT(instrument.sent, ElementsAre("1", "1", "2", "1"));
    EXPECT_FALSE(page.cmdStop.enabled());
}

TEST_F(RunnerTest, LinesAddedInARunAreNotReachedAndARemovedOneFails)
{
    lines({"1", "2"});
    press(page.chkRepeat);
    clock.at(1, [&] { page.lstCmdPool.addItem("3"); });
    clock.at(3 * 201,
             [&] { page.lstCmdPool.removeItem(2), page.lstCmdPool.removeItem(1), page.lstCmdPool.removeItem(0); });

    press(page.cmdStart);

    EXPECT_THAT(instrument.sent, ElementsAre("1", "2", "1", "2"));
    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '380':\n\nInvalid property value"));
}

TEST_F(RunnerTest, ALinkLostInARunIsNotNoticed)
{
    lines({"1"});
    press(page.chkRepeat);
    clock.at(1, [&] { instrument.connected = false; });
    clock.at(300, [&] { press(page.cmdStop); });
    press(page.cmdStart);
    EXPECT_EQ(instrument.sent.size(), 3);
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(RunnerTest, AListOfMoreLinesThanAPositionCountsOverflows)
{
    QStringList many;
    for (int i = 0; i <= 32768; ++i)
        many << "x";
    lines(many);
    press(page.chkRepeat);
    clock.allow(24 * 3'600'000LL);

    press(page.cmdStart);

    EXPECT_EQ(instrument.sent.size(), 32768);
    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '6':\n\nOverflow"));
}

TEST_F(RunnerTest, TheLogIsSavedWithOneFurtherLineEndAndStays)
{
    lines({"*IDN?"});
    press(page.cmdStart);
    dialogs.files = {application.filePath("run.log")};

    press(page.cmdSaveResult);

    EXPECT_EQ(contentOf(application.filePath("run.log")), "*IDN? => ok\r\n\r\n");
    EXPECT_EQ(log(), "*IDN? => ok\r\n");
    EXPECT_THAT(dialogs.shown,
                ElementsAre(Shown{"ORB Command Log saved OK (FileName:" + application.filePath("run.log") + ")!",
                                  information, Buttons::Ok}));
    EXPECT_EQ(dialogs.CommonDialog1.filter, QStringLiteral("ORB Command Log文件(*.log)|*.log"));
}

TEST_F(RunnerTest, AnEmptyLogIsNotSavedAndACancelIsTold)
{
    press(page.cmdSaveResult);
    lines({"1"});
    press(page.cmdStart);
    press(page.cmdSaveResult);
    EXPECT_THAT(dialogs.shown,
                ElementsAre(Shown{"Please Run Commandsfirst!", information, Buttons::Ok},
                            Shown{"ORB Command Log saved Failed as User Cancel Opeation!", noIcon, Buttons::Ok}));
}

TEST_F(RunnerTest, TheStartButtonFollowsTheLinkWhenThePageIsEntered)
{
    EXPECT_EQ(page.cmdStart.picture(), paths.inApplication("\\ICON\\B1RUNSTART.JPG"));
    instrument.connected = false;
    run.enter([&] { page.RefreshCommandPage(); });
    EXPECT_EQ(page.cmdStart.picture(), paths.inApplication("\\ICON\\B1RUNSTOP.jpg"));
    EXPECT_FALSE(page.cmdStart.enabled());
}

} // namespace
