// SPDX-License-Identifier: GPL-3.0-or-later
#include "command_page_test.h"

using namespace orb;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class CommandPageRunnerTest : public CommandPageTest {};

TEST_F(CommandPageRunnerTest, ARunRepeatsUntilTheBoxIsCleared)
{
    addLines({"1", "2", "3"});
    press(page.chkRepeat);
    clock.at(5 * 201, [&] { press(page.chkRepeat); });

    press(page.cmdStart);

    EXPECT_THAT(instrument.sent, ElementsAre("1", "2", "3", "1", "2", "3"));
    EXPECT_EQ(log(), "1\r\n2\r\n3\r\n1\r\n2\r\n3\r\n");
    EXPECT_FALSE(page.cmdStop.enabled());
    EXPECT_EQ(page.chkRepeat.caption(), "Single Step");
}

TEST_F(CommandPageRunnerTest, ARunYieldsAndSleepsAfterEachLineAndReadsTheReplyAtOnce)
{
    addLines({"1", "*IDN?", ":CHAN 1"});
    press(page.chkRepeat);
    clock.at(2 * 201, [&] { press(page.cmdStop); });

    press(page.cmdStart);

    EXPECT_THAT(journal.timedLines(), ElementsAre("0 read IsConnected True", "0 send 1", "0 yield", "1 sleep 200",
                                                  "201 send *IDN?", "201 read Reply \"ok\"", "201 yield",
                                                  "202 sleep 200", "402 send :CHAN 1", "402 yield", "403 sleep 200"));
}

TEST_F(CommandPageRunnerTest, AStepSleepsBeforeTheDisplayOfAChannelAndAfterTheReplyOfAQuery)
{
    addLines({":CHAN 1", ":CHAN:ID?", "*RST"});
    for (int i = 0; i < 3; ++i)
        press(page.cmdStart);

    EXPECT_THAT(journal.lines(), ElementsAre("read IsConnected True", "send :CHAN 1", "sleep 200", "send :CHAN:DISP",
                                             "read IsConnected True", "send :CHAN:ID?", "read Reply \"ok\"",
                                             "sleep 200", "read IsConnected True", "send *RST"));
    EXPECT_EQ(log(), ":CHAN 1\r\n:CHAN:ID? => ok\r\n*RST\r\n");
}

TEST_F(CommandPageRunnerTest, AStepOfTheHiddenTwinSleepsAndFollowsUpAsWell)
{
    addLines({":CHAN 1"});
    pick(page.lstCmdPool, ":CHAN 1");
    go();
    EXPECT_THAT(journal.lines(), ElementsAre("read IsConnected True", "send :CHAN 1", "sleep 200", "send :CHAN:DISP"));
}

TEST_F(CommandPageRunnerTest, AStepOnTheLastLineSendsItAndSelectsTheFirst)
{
    addLines({"1", "2", "3"});
    pick(page.lstCmdPool, "3");
    press(page.cmdStart);
    EXPECT_THAT(instrument.sent, ElementsAre("3"));
    EXPECT_EQ(page.lstCmdPool.listIndex(), 0);
}

TEST_F(CommandPageRunnerTest, SuccessiveStepsBeginAtTheFirstLineAndReturnToIt)
{
    addLines({"1", "2"});
    for (int i = 0; i < 3; ++i)
        press(page.cmdStart);
    EXPECT_THAT(instrument.sent, ElementsAre("1", "2", "1"));
}

TEST_F(CommandPageRunnerTest, TheHiddenTwinSendsTheSameLineAtEachClick)
{
    addLines({"1", "2"});
    pick(page.lstCmdPool, "2");
    go();
    go();
    EXPECT_THAT(instrument.sent, ElementsAre("2", "2"));
    EXPECT_EQ(page.lstCmdPool.listIndex(), 1);
}

TEST_F(CommandPageRunnerTest, TheTestForAChannelIsCaseSensitive)
{
    addLines({":chan 1"});
    press(page.cmdStart);
    EXPECT_THAT(instrument.sent, ElementsAre(":chan 1"));
}

TEST_F(CommandPageRunnerTest, AQuestionMarkInsideOfQuotesMakesAQuery)
{
    addLines({"*LRN \"?\""});
    press(page.cmdStart);
    EXPECT_EQ(log(), "*LRN \"?\" => ok\r\n");
}

TEST_F(CommandPageRunnerTest, ASlowInstrumentLeavesAnEmptyAnswerInTheLog)
{
    instrument.onCommand = [](const QString&) { return QString(); };
    addLines({"*IDN?"});
    press(page.cmdStart);
    EXPECT_EQ(log(), "*IDN? => \r\n");
}

TEST_F(CommandPageRunnerTest, WithoutALinkEitherButtonShowsTheMessageAndSendsNothing)
{
    addLines({"1"});
    press(page.chkRepeat);
    instrument.connected = false;
    for (int i = 0; i < 2; ++i) {
        press(page.cmdStart);
        go();
        press(page.chkRepeat);
    }
    const QString notConnected = "message \"Please Connect Device first, and then try again!\" critical Ok";
    EXPECT_THAT(journal.linesWithout({"read"}), ElementsAre(notConnected, notConnected, notConnected, notConnected));
    EXPECT_FALSE(page.cmdStop.enabled());
}

TEST_F(CommandPageRunnerTest, WithoutALineOrASelectionAStepShowsItsMessageAndSendsNothing)
{
    press(page.cmdStart);
    go();
    addLines({"1"});
    go();
    const QString noSelection = "message \"Please choose an item of right side \" information Ok";
    EXPECT_THAT(
        journal.linesWithout({"read"}),
        ElementsAre("message \"Please choose an item of Left side and put it into Right side! \" information Ok",
                    noSelection, noSelection));
}

TEST_F(CommandPageRunnerTest, ARepeatOverAnEmptyListFailsAtTheSelectionOfItsFirstLine)
{
    press(page.chkRepeat);
    go();
    EXPECT_THAT(instrument.sent, IsEmpty());
    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '380':\n\nInvalid property value"));
}

TEST_F(CommandPageRunnerTest, CheckingTheBoxStartsNothing)
{
    addLines({"1"});
    press(page.chkRepeat);
    EXPECT_EQ(page.chkRepeat.caption(), "Repeat");
    EXPECT_THAT(journal.lines(), IsEmpty());
    EXPECT_FALSE(page.cmdStop.enabled());
}

TEST_F(CommandPageRunnerTest, ARunEnablesItsStopButtonWhichEndsItAndEnablesTheStartButton)
{
    addLines({"1"});
    journal.watch(page.cmdStart, "cmdStart");
    journal.watch(page.cmdStop, "cmdStop");
    repeatAnd([&] {
        instrument.connected = false;
        page.RefreshCommandPage();
        press(page.cmdStop);
    });

    press(page.cmdStart);

    EXPECT_THAT(journal.linesWithout({"read"}),
                ElementsAre("enable cmdStop", "picture cmdStop APP\\ICON\\B4STOP-A.JPG", "send 1", "yield",
                            "picture cmdStart APP\\ICON\\B1RUNSTOP.jpg", "disable cmdStart", "enable cmdStart",
                            "disable cmdStop", "picture cmdStop APP\\ICON\\B4STOP.JPG", "sleep 200"));
    EXPECT_EQ(page.chkRepeat.value(), CheckBox::Unchecked);
    EXPECT_EQ(page.chkRepeat.caption(), "Single Step");
}

TEST_F(CommandPageRunnerTest, ARunOfTheHiddenTwinLeavesTheStopButtonAloneAndEndsWithTheBox)
{
    addLines({"1"});
    repeatAnd([&] {
        EXPECT_FALSE(page.cmdStop.enabled());
        EXPECT_EQ(page.cmdStop.picture(), paths.inApplication("\\ICON\\B4STOP.JPG"));
        press(page.chkRepeat);
    });

    go();

    EXPECT_THAT(instrument.sent, ElementsAre("1"));
}

TEST_F(CommandPageRunnerTest, ASecondClickBeginsARunInsideTheFirstAndBothEndWithTheBox)
{
    addLines({"1", "2"});
    repeatAnd([&] { press(page.cmdStart); });
    clock.at(300, [&] { press(page.cmdStop); });

    press(page.cmdStart);

    EXPECT_THAT(instrument.sent, ElementsAre("1", "1", "2", "1"));
    EXPECT_FALSE(page.cmdStop.enabled());
}

TEST_F(CommandPageRunnerTest, ARunBeginsAtTheFirstLineWhateverIsSelected)
{
    addLines({"1", "2", "3"});
    pick(page.lstCmdPool, "3");
    repeatAnd([&] { press(page.cmdStop); });
    press(page.cmdStart);
    EXPECT_THAT(instrument.sent, ElementsAre("1"));
    EXPECT_EQ(page.lstCmdPool.listIndex(), 1);
}

TEST_F(CommandPageRunnerTest, ALineMovedDuringARunLeavesNoSelectionAndAnEmptyLineIsSent)
{
    addLines({"1", "2", "3"});
    repeatAnd([&] { press(page.cmdUp); });
    clock.at(2 * 201, [&] { press(page.cmdStop); });

    press(page.cmdStart);

    EXPECT_THAT(instrument.sent, ElementsAre("1", "", "3"));
    EXPECT_EQ(log(), "1\r\n\r\n3\r\n");
    EXPECT_THAT(processExit.reports, IsEmpty());
}

TEST_F(CommandPageRunnerTest, AListOpenedDuringARunLeavesNoSelectionAndAnEmptyLineIsSent)
{
    write("list.scp", "A\r\nB\r\nC\r\n");
    dialogs.files = {file("list.scp")};
    addLines({"1", "2", "3"});
    repeatAnd([&] { press(page.cmdOpenSCPI); });
    clock.at(2 * 201, [&] { press(page.cmdStop); });

    press(page.cmdStart);

    EXPECT_THAT(instrument.sent, ElementsAre("1", "", "C"));
    EXPECT_THAT(processExit.reports, IsEmpty());
}

TEST_F(CommandPageRunnerTest, ALineAddedDuringARunIsNotReached)
{
    addLines({"1", "2"});
    repeatAnd([&] { addLines({"3"}); });
    clock.at(3 * 201, [&] { press(page.cmdStop); });
    press(page.cmdStart);
    EXPECT_THAT(instrument.sent, ElementsAre("1", "2", "1", "2"));
}

TEST_F(CommandPageRunnerTest, ALineRemovedDuringARunMakesTheSelectionOfAMissingLineFail)
{
    addLines({"1", "2"});
    repeatAnd([&] { press(page.cmdDelete); });
    clock.at(201, [&] { press(page.chkShowLog); });

    press(page.cmdStart);

    EXPECT_THAT(instrument.sent, ElementsAre("1", "", "1"));
    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '380':\n\nInvalid property value"));
}

TEST_F(CommandPageRunnerTest, ALinkLostDuringARunIsNotNoticed)
{
    addLines({"1"});
    repeatAnd([&] { instrument.connected = false; });
    clock.at(300, [&] { press(page.cmdStop); });
    press(page.cmdStart);
    EXPECT_THAT(instrument.sent, ElementsAre("1", "1", "1"));
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(CommandPageRunnerTest, TheLogScrollsToItsEndWithEachLineOfARun)
{
    addLines({"1", "2"});
    repeatAnd([&] {
        EXPECT_TRUE(page.txtExecLog.textCursor().atEnd());
        page.txtExecLog.moveCursor(QTextCursor::Start); // the operator reads the beginning
    });
    clock.at(202, [&] {
        EXPECT_TRUE(page.txtExecLog.textCursor().atEnd());
        press(page.cmdStop);
    });
    press(page.cmdStart);
    EXPECT_EQ(instrument.sent.size(), 2);
}

TEST_F(CommandPageRunnerTest, ARunOverMoreLinesThanAPositionCountsOverflows)
{
    QStringList many;
    for (int i = 0; i <= 32768; ++i)
        many << "x";
    addLines(many);
    press(page.chkRepeat);
    clock.allow(24 * 3'600'000LL);

    press(page.cmdStart);

    EXPECT_EQ(instrument.sent.size(), 32768);
    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '6':\n\nOverflow"));
}

TEST_F(CommandPageRunnerTest, TheLogIsSavedWithOneFurtherLineEndAndStaysOnTheScreen)
{
    addLines({"*IDN?"});
    press(page.cmdStart);
    dialogs.files = {file("run.log")};
    dialogs.onMessage = [&](const Shown&) { EXPECT_EQ(contentOf(file("run.log")), "*IDN? => ok\r\n\r\n"); };

    press(page.cmdSaveResult);

    EXPECT_EQ(dialogs.shown.size(), 1);
    EXPECT_EQ(log(), "*IDN? => ok\r\n");
}

TEST_F(CommandPageRunnerTest, AnEmptyLogIsNotSavedAndACancelShowsItsMessage)
{
    dialogs.CommonDialog1.fileName = file("run.log");
    press(page.cmdSaveResult);
    EXPECT_THAT(dialogs.fileDialogs, IsEmpty());
    page.txtExecLog.setText("1");
    press(page.cmdSaveResult);
    EXPECT_THAT(journal.linesOf({"message"}),
                ElementsAre("message \"Please Run Commandsfirst!\" information Ok",
                            "message \"ORB Command Log saved Failed as User Cancel Opeation!\" none Ok"));
    EXPECT_EQ(contentOf(file("run.log")), "no such file");
}

} // namespace
