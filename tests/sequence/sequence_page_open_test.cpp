// SPDX-License-Identifier: GPL-3.0-or-later
#include "sequence_page_test.h"

namespace orb {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SequencePageOpenTest : public SequencePageTest {};

TEST_F(SequencePageOpenTest, TheDialogAsksForASequenceFileInTheApplicationDirectory)
{
    open(sequenceRecord(1));

    EXPECT_THAT(journal.linesOf({"open"}),
                ElementsAre("open directory \"APP\" filter \"ORB3000 Sequence Files (*.A)|*.a\" title \"Select a File "
                            "to Open\" name \"\""));
}

TEST_F(SequencePageOpenTest, ACancelWithoutANameLeavesThePageButClearsTheGraph)
{
    open(sequenceRecord());
    run.enter([this] { page.seqPlotClick(); });
    ASSERT_EQ(page.graphSeq.plot(1).pointCount(), 121U);
    dialogs.CommonDialog1.fileName.clear();
    journal.clear();

    press(page.seqOpen);

    EXPECT_THAT(journal.lines(),
                ElementsAre("open directory \"APP\" filter \"ORB3000 Sequence Files (*.A)|*.a\" title \"Select a File "
                            "to Open\" name \"\"",
                            "message \"No file was selected.\" none Ok"));
    EXPECT_EQ(page.graphSeq.plot(1).pointCount(), 0U);
    EXPECT_TRUE(page.graphSeq.visible());
    EXPECT_EQ(page.lstSequence.listCount(), 6);
    EXPECT_EQ(headCount() + pointCount(), "5\n120\n");
    EXPECT_EQ(bytesOf(page.record), bytesOf(sequenceRecord()));
}

TEST_F(SequencePageOpenTest, ACancelOpensTheFileThatTheDialogStillHolds)
{
    open(sequenceRecord(1));
    dialogs.files = {std::nullopt};

    press(page.seqOpen);

    EXPECT_THAT(dialogs.shown, IsEmpty());
    EXPECT_EQ(headCount(), "10\n");
}

TEST_F(SequencePageOpenTest, APendingFileIsOpenedWithoutADialogAndOnce)
{
    sPendingSeqFile = write("pending.a", bytesOf(sequenceRecord(2)));
    page.graphSeq.plot(1).ChartY(1, 1);

    press(page.seqOpen);

    EXPECT_THAT(dialogs.fileDialogs, IsEmpty());
    EXPECT_EQ(sPendingSeqFile, "");
    EXPECT_EQ(pointCount(), "2\n");
    EXPECT_EQ(page.graphSeq.plot(1).pointCount(), 1U); // the dialog alone clears the graph
}

TEST_F(SequencePageOpenTest, TheListHasTheChecksumAndFiveLinesAboutTheSequence)
{
    const SeqFileRecord record = sequenceRecord(2);
    open(record);

    EXPECT_THAT(page.lstSequence.items(),
                ElementsAre(QStringLiteral("CheckSum 4 bytes %1 %1").arg(record.CheckSum), "Load Module Type K12B",
                            "Sequence Version AB3", "Master Fimware Version V1.2", "Mode CC", "Range High"));
}

TEST_F(SequencePageOpenTest, TheMembersHoldWhatTheRecordSays)
{
    openWith([](SeqFileRecord& record) {
        record.LoopStart = 1;
        record.LoopEnd = 6;
    });

    EXPECT_THAT((QStringList{page.deviceValues.sLoadModule, page.deviceValues.sLoadMode, page.deviceValues.sLoadRange,
                             page.sSeqVersion, page.sMasterFirmware, page.sVRange, page.sLoopStart, page.sLoopEnd}),
                ElementsAre("K12B", "CC", "High", "AB3", "V1.2", "1", "2", "7"));
}

TEST_F(SequencePageOpenTest, TheVersionsThirdCharacterIsItsNumberPlus48)
{
    openWith([](SeqFileRecord& record) { record.SeqVersion3 = 255; });

    EXPECT_EQ(page.sSeqVersion, QStringLiteral("AB") + QChar(303));
}

TEST_F(SequencePageOpenTest, CharactersBeyondAsciiAndNulsAreShownAsTheyStand)
{
    openWith([](SeqFileRecord& record) {
        record.SeqVersion1 = '\xE4';
        record.MasterFirmware = {'\xFF', '\0', '"', '1'};
    });

    EXPECT_EQ(page.sSeqVersion.front(), QChar(0xE4));
    EXPECT_EQ(page.sMasterFirmware, QString::fromLatin1("\xFF\0\"1", 4));
}

TEST_F(SequencePageOpenTest, TheHeadTableHasFiveRowsWithBothValuesEqual)
{
    openWith([](SeqFileRecord& record) {
        record.LoopStart = 4;
        record.LoopEnd = 10;
        record.OnEndOfSeq = -7;
    });

    EXPECT_EQ(heads(), "VRange 0:16V, 1:80V|1|1\n"
                       "The start point of loop (A)|5|5\n"
                       "The end point of loop (B)|11|11\n"
                       "Repeat Count(0:inf)|3|3\n"
                       "On_End_Of_Seq Value|-7|-7\n");
    EXPECT_EQ(page.datORBSeqSet.rowCount(), 5);
    EXPECT_EQ(page.DBGridHead.cellText(4, 2), "-7");
}

TEST_F(SequencePageOpenTest, TheLoopPointsStoredAs0AppearAs1)
{
    openWith([](SeqFileRecord& record) {
        record.LoopStart = 0;
        record.LoopEnd = 0;
    });

    EXPECT_EQ(page.sLoopStart + page.sLoopEnd, "11");
    EXPECT_EQ(table("select * from ORBSeqHead where Item like '%point of loop%'"),
              "The start point of loop (A)|1|1\nThe end point of loop (B)|1|1\n");
}

TEST_F(SequencePageOpenTest, TheWorkedPointOfAK12BIsStoredWithItsTimeItsCurrentAndItsSlewRates)
{
    openWith([](SeqFileRecord& record) {
        record.LoopEnd = 0;
        record.Points[0].CurrentRaw = 1500;
        record.Points[0].SlewUpRaw = 250;
        record.Points[0].SlewDownRaw = -100;
        record.Points[0].TimeBaseCode = 8;
        record.DurationCount[0] = 20;
    });

    EXPECT_EQ(points(), "1|0.02|15.0|1.6|-0.64\n");
}

TEST_F(SequencePageOpenTest, EachPointHasATimeBaseOfItsOwn)
{
    openWith([](SeqFileRecord& record) {
        record.LoopEnd = 6;
        for (std::size_t i = 0; i < 7; ++i) {
            record.Points[i].TimeBaseCode = static_cast<qint16>(i + 5);
            record.DurationCount[i] = 2000;
        }
    });

    EXPECT_EQ(table("select DurTime from ORBSeqData"), "0.002\n0.02\n0.2\n2.0\n20.0\n200.0\n2000.0\n");
}

TEST_F(SequencePageOpenTest, ADurationOf400MicrosecondsIsStoredAs0)
{
    openWith([](SeqFileRecord& record) {
        record.Points[0].TimeBaseCode = 7;
        record.DurationCount[0] = 4;
    });

    EXPECT_EQ(table("select DurTime from ORBSeqData where [Index]=1"), "0.0\n");
}

TEST_F(SequencePageOpenTest, ADurationIsStoredWithThreeDecimals)
{
    openWith([](SeqFileRecord& record) {
        record.Points[0].TimeBaseCode = 7;
        record.DurationCount[0] = 12345678;
    });

    EXPECT_EQ(table("select DurTime from ORBSeqData where [Index]=1"), "1234.568\n");
}

TEST_F(SequencePageOpenTest, ACountOfADurationIsRoundedToSinglePrecisionFirst)
{
    openWith([](SeqFileRecord& record) {
        record.Points[0].TimeBaseCode = 11;
        record.DurationCount[0] = 2147483647;
    });

    EXPECT_EQ(table("select DurTime from ORBSeqData where [Index]=1"), "2147483648.0\n");
}

TEST_F(SequencePageOpenTest, ACurrentOf200MicroamperesIsStoredAs0)
{
    openWith([](SeqFileRecord& record) {
        record.LoadModuleType = 3; // K14: 0.0002 A a step in its low range
        record.LoadRange = 0;
        record.Points[0].CurrentRaw = 1;
    });

    EXPECT_EQ(table("select [Current],SlewrateUp from ORBSeqData where [Index]=1"), "0.0|0.04\n");
}

TEST_F(SequencePageOpenTest, TheRowsAreInsertedHeadFirstEachByAStatementOfItsOwn)
{
    alterDatabase("create table Statements(Kind, Name);"
                  "create trigger head after insert on ORBSeqHead begin insert into Statements values('head',new.Item);"
                  " end; create trigger point after insert on ORBSeqData begin insert into Statements values('point',"
                  "new.[Index]); end");

    open(sequenceRecord(2));

    EXPECT_EQ(table("select * from Statements"),
              "head|VRange 0:16V, 1:80V\nhead|The start point of loop (A)\nhead|The end point of loop (B)\n"
              "head|Repeat Count(0:inf)\nhead|On_End_Of_Seq Value\npoint|1\npoint|2\n");
}

TEST_F(SequencePageOpenTest, ALoopEndStoredAs119LoadsAllPointsAndEnablesTheButtons)
{
    page.seqSend.setEnabled(false);
    instrument.connected = false;
    reset();
    instrument.connected = true;
    journal.clear();

    open(sequenceRecord(120));

    EXPECT_EQ(pointCount(), "120\n");
    EXPECT_EQ(page.datORB.rowCount(), 120);
    EXPECT_EQ(page.DBGridSequence.cellText(119, 2), "1.2");
    EXPECT_THAT(journal.linesWithout({"open"}),
                ElementsAre("enable seqPlot", "picture seqPlot APP\\ICON\\SEQSimulate.JPG", "read IsConnected True",
                            "enable seqSend", "picture seqSend APP\\ICON\\SEQINTO.JPG"));
}

TEST_F(SequencePageOpenTest, WithoutALinkAFullSequenceDisablesTheSendButtonAndLeavesItsPicture)
{
    instrument.connected = false;

    open(sequenceRecord(120));

    EXPECT_THAT(journal.linesWithout({"open"}),
                ElementsAre("enable seqPlot", "picture seqPlot APP\\ICON\\SEQSimulate.JPG", "read IsConnected False",
                            "disable seqSend"));
}

TEST_F(SequencePageOpenTest, ALoopEndBelow119LoadsThePointsUpToItAndLeavesTheButtonsAndTheGrid)
{
    for (const int count : {1, 2, 119}) {
        reset();
        journal.clear();
        open(sequenceRecord(count));

        EXPECT_EQ(pointCount(), QStringLiteral("%1\n").arg(count));
        EXPECT_EQ(page.datORB.rowCount(), 0);
        EXPECT_EQ(page.datORBSeqSet.rowCount(), 5);
        EXPECT_THAT(journal.linesWithout({"open"}), IsEmpty());
    }
}

TEST_F(SequencePageOpenTest, ALoopEndBeforeTheFirstPointLoadsNone)
{
    openWith([](SeqFileRecord& record) { record.LoopEnd = -1; });

    EXPECT_EQ(headCount() + pointCount(), "5\n0\n");
    EXPECT_EQ(page.lstSequence.listCount(), 6);
}

TEST_F(SequencePageOpenTest, ALoopEndBeyondTheLastPointLoadsAllPoints)
{
    openWith([](SeqFileRecord& record) { record.LoopEnd = 32767; });

    EXPECT_EQ(pointCount(), "120\n");
    EXPECT_EQ(page.sLoopEnd, "32768");
    EXPECT_TRUE(page.seqPlot.enabled());
}

TEST_F(SequencePageOpenTest, ThePointsBeforeTheLoopAreLoaded)
{
    openWith([](SeqFileRecord& record) {
        record.LoopStart = 5;
        record.LoopEnd = 7;
    });

    EXPECT_EQ(table("select [Index] from ORBSeqData"), "1\n2\n3\n4\n5\n6\n7\n8\n");
}

TEST_F(SequencePageOpenTest, ASecondOpenRunsTheInsertsOnTopOfTheRowsAlreadyThere)
{
    open(sequenceRecord(2));
    open(sequenceRecord(3));

    EXPECT_EQ(table("select [Index] from ORBSeqData"), "1\n2\n1\n2\n3\n");
    EXPECT_EQ(table("select [Update] from ORBSeqHead where Item like '%end point%'"), "2\n3\n");
    EXPECT_EQ(page.datORBSeqSet.rowCount(), 10);
    EXPECT_EQ(page.lstSequence.listCount(), 6);
}

} // namespace
} // namespace orb
