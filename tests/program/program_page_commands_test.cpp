// SPDX-License-Identifier: GPL-3.0-or-later
#include "program_page_test.h"

using namespace orb;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const QString reset =
    "message \"Loading setting from device will reset current Program content, Continue?\" none YesNo";

class ProgramPageCommandsTest : public ProgramPageTest {
protected:
    ProgramPageCommandsTest()
    {
        instrument.onCommand = [this](const QString& command) {
            return answers.value(command, command.endsWith('?') ? QStringLiteral("1") : QString());
        };
    }

    void read()
    {
        logic([this] { page.ReadProgramByCommands(); });
    }
    void write()
    {
        logic([this] { page.WriteProgramByCommands(); });
    }

    /// The lines sent from the first one that is `from` on.
    QStringList sent(const QString& from, int count) const
    {
        const QStringList all(instrument.sent.begin(), instrument.sent.end());
        return all.mid(all.indexOf(from), count);
    }

    QMap<QString, QString> answers{{":PROG:CHA?", "P03"},  {":PROG:MEM?", "17"},         {":PROG:SEQ:MODE?", "AUTO"},
                                   {":PROG:ONT?", "2.5"},  {":PROG:OFFT?", "1.0"},       {":PROG:SEQ:SHOR:CHAN?", "5"},
                                   {":PROG:PFT?", "0.70"}, {":PROG:SEQ:SHOR:TIME?", "3"}};
};

TEST_F(ProgramPageCommandsTest, AReadSendsNineHundredAndEightySixCommandsAndWaitsAHundredMillisecondsAfterNearlyAll)
{
    read();
    EXPECT_EQ(instrument.sent.size(), 986);
    EXPECT_EQ(clock.sleeps, std::vector<int>(984, 100));
    EXPECT_EQ(instrument.sent.front(), ":UTIL:REM:MODE FAST");
    EXPECT_EQ(instrument.sent.back(), ":UTIL:REM:MODE 0");
}

TEST_F(ProgramPageCommandsTest, AReadQueriesAProgramAndItsStepsInThisOrder)
{
    const auto query = [this](const QString& command) {
        return QStringList{"send " + command, "sleep 100", "read Reply \"" + answers.value(command) + "\""};
    };
    read();

    const QStringList lines = journal.linesWithout({"message"});
    const QStringList begin{"read IsConnected True", "send :UTIL:REM:MODE FAST", "yield", "send :PROG:FILE 1",
                            "sleep 100"};
    const QStringList step1{"yield", "send :PROG:SEQ 1", "sleep 100"};
    const QStringList step2{"yield", "send :PROG:SEQ 2", "sleep 100"};
    const QStringList expected = begin + query(":PROG:CHA?") + step1 + query(":PROG:MEM?") + query(":PROG:SEQ:MODE?") +
                                 query(":PROG:ONT?") + query(":PROG:SEQ:SHOR:CHAN?") + query(":PROG:OFFT?") +
                                 query(":PROG:PFT?") + query(":PROG:SEQ:SHOR:TIME?") + step2;
    EXPECT_EQ(lines.mid(0, expected.size()), expected);
    EXPECT_EQ(lines.count("yield"), 12 + 120);
}

TEST_F(ProgramPageCommandsTest, AReadFillsEveryCellAndEveryLinkButNotTheStart)
{
    chain(12).setText("P09");
    read();

    EXPECT_EQ(cellState(34), "17|4,5,AUTO,5,1,2.5,1,1.0,1,0.70,1,3,17|P4 S5 Run as AUTO|#000080|#ffffff|12|centered");
    EXPECT_EQ(cell(119).tag(), "12,10,AUTO,5,1,2.5,1,1.0,1,0.70,1,3,17");
    EXPECT_FALSE(tags().contains(QString()));
    EXPECT_EQ(links(), "3 3 3 3 3 3 3 3 3 3 3 3 8");
    EXPECT_EQ(shorted(), "CH1 CH3");
    EXPECT_FALSE(page.frameMemorySetting.visible());
    EXPECT_FALSE(page.frameProgress.visible());
}

TEST_F(ProgramPageCommandsTest, AReadIsStoredInTheHistoryAtOnce)
{
    read();
    EXPECT_THAT(journal.linesOf({"message"}),
                ElementsAre("message \"Store Program Setting(ID:20240131-101638) Successfully!\" information Ok"));
    EXPECT_EQ(table("select MemCase,count(*) from ProgramMemory group by MemCase"), "20240131-101638|120\n");
}

TEST_F(ProgramPageCommandsTest, AReadShowsItsProgressAndEachStepInTheFrame)
{
    journal.watch(page.frameProgress, "frameProgress");
    journal.watch(page.frameMemorySetting, "frame");
    journal.watchText(&page, [this] {
        return QStringLiteral("at %1 %2 \"%3\" \"%4\" \"%5\" cell %6 \"%7\"")
            .arg(page.pbProg.value())
            .arg(page.pbSeq.value())
            .arg(page.lblMemory.at(5).caption(), page.lblMemory.at(6).caption(), page.frameProgress.caption(),
                 page.frameMemorySetting.tag(), page.frameMemorySetting.caption());
    });
    page.fraProgramOrder.raise();
    journal.clear();

    read();

    const QStringList lines = journal.linesOf({"show", "hide", "raise", "at"});
    const QString in = "\"The Progress of Loading Program Setting\"";
    EXPECT_EQ(
        lines.mid(0, 7),
        (QStringList{"show frameProgress", "at 0 0 \"Program:\" \"Sequence:\" " + in + " cell  \"Program Sequence\"",
                     "raise frameProgress", "at 1 0 \"Program: 1\" \"Sequence:\" " + in + " cell  \"Program Sequence\"",
                     "at 1 1 \"Program: 1\" \"Sequence: 1\" " + in + " cell  \"Program Sequence\"", "raise frame",
                     "show frame"}));
    EXPECT_TRUE(lines.contains("at 12 10 \"Program: 12\" \"Sequence: 10\" " + in +
                               " cell 119 \"Program: [12] Sequence:[10]\""));
    EXPECT_EQ(lines.count("show frame"), 120) << "the OK of each step hides it";
    EXPECT_EQ(lines.last(), "hide frameProgress");
}

TEST_F(ProgramPageCommandsTest, AReadMarksTheCellOfEachStep)
{
    journal.watchText(&page, [this] {
        QString marked = QStringLiteral("at");
        for (int index = 0; index < static_cast<int>(page.txtMemSetting.size()); ++index)
            if (element(page.txtMemSetting, index).isEdited())
                marked += QStringLiteral(" %1").arg(index);
        return marked;
    });

    read();

    const QStringList lines = journal.linesOf({"at"});
    EXPECT_TRUE(lines.contains("at 0"));
    EXPECT_TRUE(lines.contains("at 119"));
    EXPECT_EQ(lines.last(), "at") << "none in the end";
}

TEST_F(ProgramPageCommandsTest, AReadWithoutALinkAnsweredWithNoDoesNothing)
{
    instrument.connected = false;
    read();
    EXPECT_THAT(journal.lines(), ElementsAre("read IsConnected False", askWithoutLink));
    EXPECT_EQ(table("select count(*) from ProgramMemory"), "0\n");
}

TEST_F(ProgramPageCommandsTest, AReadWithoutALinkAnsweredWithYesGoesOn)
{
    instrument.connected = false;
    dialogs.answers = {Answer::Yes};
    read();
    EXPECT_EQ(instrument.sent.size(), 986);
}

TEST_F(ProgramPageCommandsTest, AReadOverAFilledFirstCellAnsweredWithNoDoesNothing)
{
    fill(0, "99");
    const QStringList before = tags();
    journal.clear();
    read();
    EXPECT_THAT(journal.lines(), ElementsAre("read IsConnected True", reset));
    EXPECT_EQ(tags(), before);
}

TEST_F(ProgramPageCommandsTest, AReadOverAnEmptyFirstCellAsksNothingAndOverwritesTheOthers)
{
    fill(1, "99");
    read();
    EXPECT_EQ(dialogs.shown.size(), 1) << "the one of the history";
    EXPECT_EQ(cell(1).text(), "17");
}

TEST_F(ProgramPageCommandsTest, AfterAYesOldNumbersStayVisibleUntilEachCellIsFilled)
{
    fill(0, "99");
    fill(34, "98", "SKIP");
    dialogs.answers = {Answer::Yes};
    QStringList seen;
    clock.at(clock.elapsed() + 1, [&] { seen << cellState(0) << cellState(34); });

    read();

    EXPECT_THAT(seen, ElementsAre("99||P1 S1 Run as AUTO|#ffffff|#000000|12|centered",
                                  "98||P4 S5 Run as SKIP|#ffffff|#000000|12|centered"));
    EXPECT_EQ(cell(34).text(), "17");
}

TEST_F(ProgramPageCommandsTest, BothQuestionsMayComeInThisOrder)
{
    fill(0, "99");
    instrument.connected = false;
    dialogs.answers = {Answer::Yes, Answer::No};
    journal.clear();
    read();
    EXPECT_THAT(journal.lines(), ElementsAre("read IsConnected False", askWithoutLink, reset));
}

TEST_F(ProgramPageCommandsTest, AnEmptyReplyLeavesTheCellUnfilledWithItsMessageAndTheReadGoesOn)
{
    int queries = 0;
    instrument.onCommand = [&](const QString& command) {
        return command == ":PROG:MEM?" && ++queries == 2 ? QString() : answers.value(command);
    };
    read();
    EXPECT_EQ(dialogs.shown.front(), (Shown{"Please Input Value of Memory!", critical}));
    EXPECT_EQ(cell(1).tag(), "");
    EXPECT_NE(cell(2).tag(), "");
    EXPECT_EQ(instrument.sent.size(), 986);
    EXPECT_FALSE(page.frameMemorySetting.visible());
}

TEST_F(ProgramPageCommandsTest, AReplyOfTwoHundredAndFiftySixForTheMaskEndsTheProgramAndNothingIsStored)
{
    answers[":PROG:SEQ:SHOR:CHAN?"] = "256";
    read();
    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '340':\n\nControl array element doesn't exist"));
    EXPECT_EQ(instrument.sent.back(), ":PROG:SEQ:SHOR:CHAN?");
    EXPECT_THAT(tags(), Each(QString()));
    EXPECT_EQ(table("select count(*) from ProgramMemory"), "0\n");
}

TEST_F(ProgramPageCommandsTest, AReplyGoesThroughTheChangeHandlerOfItsTime)
{
    answers[":PROG:ONT?"] = "0";
    answers[":PROG:OFFT?"] = "75";
    answers[":PROG:PFT?"] = "soon";
    dialogs.onMessage = [this](const Shown&) { clock.allow(4'000'000); };
    read();
    EXPECT_EQ(cell(0).tag(), "1,1,AUTO,5,0,Off,1,0.01,1,soon,1,3,17");
    EXPECT_EQ(cell(1).tag(), "1,2,AUTO,5,0,0,1,0.01,1,soon,1,3,17") << "the box stays off";
}

TEST_F(ProgramPageCommandsTest, AWriteSendsAProgramAndItsStepsInThisOrder)
{
    for (int n = 0; n < 120; ++n)
        cell(n).setTag("1,1,MANUAL,129,1,2.5,1, 1.0 ,1,0.7,0,Off,17");
    chain(0).setText("P03");
    write();

    const auto waited = [](const QStringList& commands) {
        QStringList lines;
        for (const QString& command : commands)
            lines << "send " + command << "sleep 100";
        return lines;
    };
    const QStringList step{
        ":PROG:MEM 17",    ":PROG:SEQ:MODE MANUAL", ":PROG:ONT 2.5S",          ":PROG:SEQ:SHOR:CHAN 129",
        ":PROG:OFFT 1.0S", ":PROG:PFT 1.0S",        ":PROG:SEQ:SHOR:TIME OffS"};
    const QStringList expected = QStringList{"read IsConnected True", "yield"} +
                                 waited({":PROG:FILE 1", ":PROG:CHA P03"}) + QStringList{"yield"} +
                                 waited(QStringList{":PROG:SEQ 1"} + step) + QStringList{"send :PROG:SAVE", "yield"} +
                                 waited(QStringList{":PROG:SEQ 2"} + step) + QStringList{"send :PROG:SAVE", "yield"};
    EXPECT_EQ(journal.lines().mid(0, expected.size()), expected);
    EXPECT_EQ(instrument.sent.size(), 12 * (2 + 10 * 9));
    EXPECT_THAT(dialogs.shown, IsEmpty()) << "it ends without a message";
    EXPECT_FALSE(page.frameMemorySetting.visible());
    EXPECT_FALSE(page.frameProgress.visible());
}

TEST_F(ProgramPageCommandsTest, ATimeThatIsOffIsSentAsOffWithItsUnit)
{
    for (int n = 0; n < 120; ++n)
        cell(n).setTag("1,1,AUTO,0,0,Off,1,1,1,1,1,1,17");
    write();
    EXPECT_EQ(instrument.sent[5], ":PROG:ONT OffS");
}

TEST_F(ProgramPageCommandsTest, TheChainIsSentAsItStandsAndOnlyAnEmptyTextAsZero)
{
    chain(0).setText("P03");
    chain(1).setText("");
    chain(2).setText(" other ");
    chain(3).setText("   ");
    write();
    QStringList chainCommands;
    for (const QString& command : instrument.sent)
        if (command.startsWith(":PROG:CHA "))
            chainCommands << command.mid(10);
    EXPECT_EQ(chainCommands.join('|'), "P03|0|other|0|OFF|OFF|OFF|OFF|OFF|OFF|OFF|OFF");
}

TEST_F(ProgramPageCommandsTest, AnEmptyCellIsSentWithTheValuesOfTheStepBefore)
{
    cell(0).setTag("1,1,AUTO,3,1,2.5,1,1.5,1,1,1,4,17");
    write();
    EXPECT_EQ(sent(":PROG:SEQ 2", 8).join('|'), ":PROG:SEQ 2|:PROG:MEM 17|:PROG:SEQ:MODE AUTO|:PROG:ONT 2.5S|"
                                                ":PROG:SEQ:SHOR:CHAN 3|:PROG:OFFT 1.5S|:PROG:PFT 1.5S|"
                                                ":PROG:SEQ:SHOR:TIME 4S");
}

TEST_F(ProgramPageCommandsTest, AWriteWithoutALinkGoesOnWhateverTheAnswer)
{
    instrument.connected = false;
    for (const Answer answer : {Answer::Yes, Answer::No}) {
        instrument.sent.clear();
        dialogs.answers = {answer};
        write();
        EXPECT_EQ(instrument.sent.size(), 1104);
    }
    EXPECT_EQ(journal.linesOf({"message"}), (QStringList{askWithoutLink, askWithoutLink}));
}

TEST_F(ProgramPageCommandsTest, AWriteShowsItsProgressAndHidesTheFrames)
{
    journal.watch(page.frameProgress, "frameProgress");
    journal.watch(page.frameMemorySetting, "frame");
    page.pbProg.setValue(4);
    page.pbSeq.setValue(4);
    journal.clear();
    write();
    EXPECT_THAT(journal.linesOf({"show", "hide"}),
                ElementsAre("show frameProgress", "show frame", "hide frame", "hide frameProgress"));
    EXPECT_EQ(page.frameProgress.caption(), "The Progress of Updating Program Setting");
    EXPECT_EQ(page.frameMemorySetting.caption(), "Program: [12] Sequence:[10]");
    EXPECT_EQ(page.frameMemorySetting.tag(), "119");
    EXPECT_EQ(page.cmbMemoryProg.text(), "12");
}

} // namespace
