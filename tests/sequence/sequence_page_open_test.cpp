// SPDX-License-Identifier: GPL-3.0-or-later
#include "sequence_page_test.h"

namespace orb {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

class SequencePageOpenTest : public SequencePageTest {
protected:
    /// A change of the good record, with the checksum that it then has.
    void openWith(const std::function<void(SeqFileRecord&)>& change)
    {
        SeqFileRecord record = sequenceRecord(2);
        change(record);
        open(withCheckSum(record));
    }
};

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

// The checksum

TEST_F(SequencePageOpenTest, ARecordOfZerosPassesTheTest)
{
    open(QByteArray(4380, '\0'));

    EXPECT_EQ(page.lstSequence.list(0), "CheckSum 4 bytes 0 0");
}

TEST_F(SequencePageOpenTest, AChangeOfAnyByteIsAChecksumError)
{
    const QByteArray good = bytesOf(sequenceRecord(1));
    for (const int offset : {0, 1, 2, 3, 4, 12, 2411, 2900, 2903, 2906, 2912, 4379}) {
        QByteArray bad = good;
        bad[offset] = static_cast<char>(bad[offset] + 1);
        dialogs.shown.clear();
        open(bad);
        EXPECT_THAT(dialogs.shown, ElementsAre(Shown{"Checksum Error"})) << offset;
        EXPECT_EQ(bytesOf(page.record), bad);
    }
    EXPECT_EQ(headCount() + pointCount(), "0\n0\n");
}

TEST_F(SequencePageOpenTest, ABalancingSecondChangeAndTwoBytesSwappedPass)
{
    QByteArray balanced = bytesOf(sequenceRecord(1));
    balanced[2900] = static_cast<char>(balanced[2900] + 1);
    balanced[4379] = static_cast<char>(balanced[4379] + 5);
    balanced[12 + 20] = static_cast<char>(balanced[12 + 20] + 1);
    SeqFileRecord record{};
    std::memcpy(&record, balanced.constData(), sizeof record);
    QByteArray swapped = bytesOf(withCheckSum(record));
    std::swap(swapped[2900], swapped[4379]);

    open(swapped);

    EXPECT_THAT(dialogs.shown, IsEmpty());
    EXPECT_EQ(headCount(), "5\n");
    EXPECT_NE(swapped[2900], balanced[2900]);
}

TEST_F(SequencePageOpenTest, AChecksumErrorEmptiesTheListAndKeepsTheTablesTheGridsAndTheButtons)
{
    open(sequenceRecord());
    SeqFileRecord bad = sequenceRecord();
    bad.CheckSum = bad.CheckSum + 1;
    journal.clear();

    open(bad);

    EXPECT_THAT(journal.linesWithout({"open"}), ElementsAre("message \"Checksum Error\" none Ok"));
    EXPECT_EQ(page.lstSequence.listCount(), 0);
    EXPECT_EQ(headCount() + pointCount(), "5\n120\n");
    EXPECT_EQ(page.datORB.rowCount(), 120);
    EXPECT_EQ(page.datORBSeqSet.rowCount(), 5);
    EXPECT_EQ(bytesOf(page.record), bytesOf(bad));
}

TEST_F(SequencePageOpenTest, TheLargestSumIsComparedWhole)
{
    SeqFileRecord record{};
    for (std::byte& byte : imageOf(record))
        byte = std::byte{255};
    record.CheckSum = 1115880;
    record.LoopEnd = -1;
    open(record);

    EXPECT_EQ(page.lstSequence.list(0), "CheckSum 4 bytes 1115880 1115880");
}

// Bytes without a meaning

TEST_F(SequencePageOpenTest, ABadByteIsReportedTwiceAndTheLoadGoesOnWithAnEmptyText)
{
    openWith([](SeqFileRecord& record) {
        record.LoadModuleType = 8;
        record.LoadMode = 3;
        record.LoadRange = 2;
        record.LoopEnd = -1;
    });

    EXPECT_THAT(messages(), ElementsAre("Load Module Error", "Load Module Error", "Load Mode Error", "Load Mode Error",
                                        "Load Range Error", "Load Range Error"));
    EXPECT_EQ(page.lstSequence.list(1), "Load Module Type ");
    EXPECT_EQ(page.lstSequence.list(4), "Mode ");
    EXPECT_EQ(page.lstSequence.list(5), "Range ");
    EXPECT_EQ(page.deviceValues.sLoadModule + page.deviceValues.sLoadMode + page.deviceValues.sLoadRange, "");
    EXPECT_EQ(headCount(), "5\n");
}

TEST_F(SequencePageOpenTest, AnUnsupportedModuleIsReportedThreeTimesAPointAndItsPointsHaveNoCurrent)
{
    openWith([](SeqFileRecord& record) { record.LoadModuleType = 0; }); // K11AB

    EXPECT_THAT(messages(), ElementsAreArray(std::vector<QString>(6, "Load Module Not supported")));
    EXPECT_EQ(points(), "1|0.001|0.0|0.0|0.0\n2|0.002|0.0|0.0|0.0\n");
}

TEST_F(SequencePageOpenTest, AnUnsupportedRangeIsReportedByBothScalesForEachPoint)
{
    openWith([](SeqFileRecord& record) {
        record.LoadModuleType = 1; // K12A
        record.LoadRange = 0;
        record.LoopEnd = 0;
    });

    EXPECT_THAT(messages(),
                ElementsAre("Range Not supported", "SlewRateRange Not supported", "SlewRateRange Not supported"));
}

TEST_F(SequencePageOpenTest, ACVFileIsReportedForEachPointAndLoaded)
{
    openWith([](SeqFileRecord& record) { record.LoadMode = 2; });

    EXPECT_THAT(messages(), ElementsAreArray(std::vector<QString>(6, "Sequence Edit for CC Mode only")));
    EXPECT_EQ(pointCount(), "2\n");
}

TEST_F(SequencePageOpenTest, AnUndefinedTimeBaseEndsTheLoadAtItsPointAndTheRun)
{
    openWith([](SeqFileRecord& record) {
        record.LoopEnd = 119;
        record.Points[2].TimeBaseCode = 4;
    });

    EXPECT_THAT(messages(), ElementsAre("SEQ TimeBase Undefined"));
    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '13':\n\nType mismatch"));
    EXPECT_EQ(headCount() + pointCount(), "5\n2\n");
}

// Files of another length

TEST_F(SequencePageOpenTest, AShorterFileKeepsWhatTheRecordHeldAfterItsEnd)
{
    const SeqFileRecord first = sequenceRecord(1);
    open(first);
    SeqFileRecord second = first;
    second.LoadRange = 0;
    second = withCheckSum(second);

    open(bytesOf(second).left(3000)); // the rest is that of the first file, and the checksum fits

    EXPECT_THAT(dialogs.shown, IsEmpty());
    EXPECT_EQ(page.lstSequence.list(5), "Range Low");
    EXPECT_EQ(bytesOf(page.record), bytesOf(second));
}

TEST_F(SequencePageOpenTest, ALongerFileIsReadUpToTheEndOfTheRecord)
{
    open(bytesOf(sequenceRecord(1)) + QByteArray(1000, '\7'));

    EXPECT_THAT(dialogs.shown, IsEmpty());
    EXPECT_EQ(pointCount(), "1\n");
}

TEST_F(SequencePageOpenTest, AnEmptyFileIsTheRecordAsItWas)
{
    open(QByteArray());

    EXPECT_THAT(dialogs.shown, ElementsAre(Shown{"SEQ TimeBase Undefined"})); // of a record of zeros
    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '13':\n\nType mismatch"));
}

TEST_F(SequencePageOpenTest, AFileThatIsNotThereEndsTheRun)
{
    dialogs.files = {file("gone.a")};
    press(page.seqOpen);

    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '53':\n\nFile not found"));
}

TEST_F(SequencePageOpenTest, AStatementThatTheDatabaseRejectsEndsTheRun)
{
    alterDatabase("create trigger broken before insert on ORBSeqData begin select raise(fail, 'full'); end");

    open(sequenceRecord(3));

    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '3075':\n\nfull"));
    EXPECT_EQ(page.datORBSeqSet.rowCount(), 5);
}

} // namespace
} // namespace orb
