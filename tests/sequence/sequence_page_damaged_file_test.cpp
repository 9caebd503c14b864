// SPDX-License-Identifier: GPL-3.0-or-later
#include "sequence_page_test.h"

namespace orb {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

/// Files with a wrong checksum, with bytes that have no meaning, and of another length.
class SequencePageDamagedFileTest : public SequencePageTest {};

// The checksum

TEST_F(SequencePageDamagedFileTest, ARecordOfZerosPassesTheTest)
{
    open(QByteArray(4380, '\0'));

    EXPECT_EQ(page.lstSequence.list(0), "CheckSum 4 bytes 0 0");
}

TEST_F(SequencePageDamagedFileTest, AChangeOfAnyByteIsAChecksumError)
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

TEST_F(SequencePageDamagedFileTest, ABalancingSecondChangeAndTwoBytesSwappedPass)
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

TEST_F(SequencePageDamagedFileTest, AChecksumErrorEmptiesTheListAndKeepsTheTablesTheGridsAndTheButtons)
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

TEST_F(SequencePageDamagedFileTest, TheLargestSumIsComparedWhole)
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

TEST_F(SequencePageDamagedFileTest, ABadByteIsReportedTwiceAndTheLoadGoesOnWithAnEmptyText)
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

TEST_F(SequencePageDamagedFileTest, AnUnsupportedModuleIsReportedThreeTimesAPointAndItsPointsHaveNoCurrent)
{
    openWith([](SeqFileRecord& record) { record.LoadModuleType = 0; }); // K11AB

    EXPECT_THAT(messages(), ElementsAreArray(std::vector<QString>(6, "Load Module Not supported")));
    EXPECT_EQ(points(), "1|0.001|0.0|0.0|0.0\n2|0.002|0.0|0.0|0.0\n");
}

TEST_F(SequencePageDamagedFileTest, AnUnsupportedRangeIsReportedByBothScalesForEachPoint)
{
    openWith([](SeqFileRecord& record) {
        record.LoadModuleType = 1; // K12A
        record.LoadRange = 0;
        record.LoopEnd = 0;
    });

    EXPECT_THAT(messages(),
                ElementsAre("Range Not supported", "SlewRateRange Not supported", "SlewRateRange Not supported"));
}

TEST_F(SequencePageDamagedFileTest, ACVFileIsReportedForEachPointAndLoaded)
{
    openWith([](SeqFileRecord& record) { record.LoadMode = 2; });

    EXPECT_THAT(messages(), ElementsAreArray(std::vector<QString>(6, "Sequence Edit for CC Mode only")));
    EXPECT_EQ(pointCount(), "2\n");
}

TEST_F(SequencePageDamagedFileTest, AnUndefinedTimeBaseEndsTheLoadAtItsPointAndTheRun)
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

TEST_F(SequencePageDamagedFileTest, AShorterFileKeepsWhatTheRecordHeldAfterItsEnd)
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

TEST_F(SequencePageDamagedFileTest, ALongerFileIsReadUpToTheEndOfTheRecord)
{
    open(bytesOf(sequenceRecord(1)) + QByteArray(1000, '\7'));

    EXPECT_THAT(dialogs.shown, IsEmpty());
    EXPECT_EQ(pointCount(), "1\n");
}

TEST_F(SequencePageDamagedFileTest, AnEmptyFileIsTheRecordAsItWas)
{
    open(QByteArray());

    EXPECT_THAT(dialogs.shown, ElementsAre(Shown{"SEQ TimeBase Undefined"})); // of a record of zeros
    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '13':\n\nType mismatch"));
}

TEST_F(SequencePageDamagedFileTest, AFileThatIsNotThereEndsTheRun)
{
    dialogs.files = {file("gone.a")};
    press(page.seqOpen);

    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '53':\n\nFile not found"));
}

TEST_F(SequencePageDamagedFileTest, AStatementThatTheDatabaseRejectsEndsTheRun)
{
    alterDatabase("create trigger broken before insert on ORBSeqData begin select raise(fail, 'full'); end");

    open(sequenceRecord(3));

    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '3075':\n\nfull"));
    EXPECT_EQ(page.datORBSeqSet.rowCount(), 5);
}

} // namespace
} // namespace orb
