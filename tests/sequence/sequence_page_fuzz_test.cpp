// SPDX-License-Identifier: GPL-3.0-or-later
#include "sequence_page_test.h"

namespace orb {
namespace {

using testing::AnyOf;
using testing::ElementsAre;
using testing::IsEmpty;

/// Files that no instrument wrote. The rows that they leave are counted and removed, so that each starts anew.
class SequencePageFuzzTest : public SequencePageTest {
protected:
    /// Opens the file on a page of its own, since a bad time base ends the run, and returns what came of it.
    QString resultOf(const QByteArray& content)
    {
        RecordedExit exit;
        orb::Run ownRun(exit);
        VirtualClock ownClock(ownRun);
        Form ownForm(ownRun);
        SequencePage ownPage(ownClock, dialogs, paths, instrument, wsMain, dbMain, sPendingSeqFile, plottedValues);
        ownPage.setParent(&ownForm);
        dialogs.shown.clear();
        sPendingSeqFile = write("sequence.a", content);
        ownRun.enter([&] {
            ownPage.ResetSequencePage();
            ownPage.seqOpenClick();
        });
        EXPECT_EQ(bytesOf(ownPage.record).left(content.size()), content.left(4380));
        return judge(ownPage, exit);
    }

    /// "checksum", "time base", "loaded" or "loaded in part"; anything else is a finding.
    QString judge(const SequencePage& opened, const RecordedExit& exit)
    {
        const int rows = pointCount().toInt();
        if (messages() == std::vector<QString>{"Checksum Error"})
            return opened.lstSequence.listCount() == 0 && rows == 0 && exit.reports.empty() ? "checksum" : "?";
        EXPECT_EQ(opened.lstSequence.listCount(), 6);
        EXPECT_EQ(headCount(), "5\n");
        for (const QString& message : messages())
            EXPECT_TRUE(isKnown(message)) << message.toStdString();
        const int loopEnd = opened.record.LoopEnd + 1;
        if (!exit.reports.empty()) {
            EXPECT_THAT(exit.reports, ElementsAre("Run-time error '13':\n\nType mismatch"));
            EXPECT_EQ(messages().back(), "SEQ TimeBase Undefined");
            return rows < loopEnd ? "time base" : "?";
        }
        EXPECT_EQ(rows, std::clamp(loopEnd, 0, 120));
        return rows == 120 ? "loaded" : "loaded in part";
    }

    static bool isKnown(const QString& message)
    {
        static const QStringList known{"Load Module Error",
                                       "Load Mode Error",
                                       "Load Range Error",
                                       "SEQ TimeBase Undefined",
                                       "Sequence Edit for CC Mode only",
                                       "Load Module Not supported",
                                       "Range Not supported",
                                       "SlewRateRange Not supported"};
        return known.contains(message);
    }

    /// A record whose bytes are random but for its checksum; the loop ends within a few points, mostly.
    SeqFileRecord randomGoodRecord()
    {
        SeqFileRecord record = randomRecord(random);
        record.LoadModuleType = static_cast<quint8>(random() % 10);
        record.LoadMode = static_cast<quint8>(random() % 4);
        record.LoadRange = static_cast<quint8>(random() % 3);
        record.LoopEnd = static_cast<qint16>(static_cast<int>(random() % 9) - 2);
        for (SeqPoint& point : record.Points)
            if (random() % 8 != 0)
                point.TimeBaseCode = static_cast<qint16>(5 + random() % 7);
        return withCheckSum(record);
    }

    std::mt19937 random{61};
};

TEST_F(SequencePageFuzzTest, RandomBytesAreAChecksumError)
{
    for (int i = 0; i < 200; ++i)
        ASSERT_EQ(resultOf(bytesOf(randomRecord(random))), "checksum") << i;
}

TEST_F(SequencePageFuzzTest, RandomRecordsWithARightChecksumEndInOneOfTheKnownResults)
{
    std::map<QString, int> results;
    for (int i = 0; i < 150; ++i)
        ++results[resultOf(bytesOf(randomGoodRecord()))];

    EXPECT_GT(results["loaded in part"], 20);
    EXPECT_GT(results["time base"], 20);
    EXPECT_EQ(results["loaded in part"] + results["time base"], 150);
}

TEST_F(SequencePageFuzzTest, RandomChangesOfAGoodFileEndInOneOfTheKnownResults)
{
    const QByteArray good = bytesOf(sequenceRecord(3));
    for (int i = 0; i < 200; ++i) {
        QByteArray changed = good;
        for (auto changes = 1 + random() % 4; changes > 0; --changes)
            changed[static_cast<qsizetype>(random() % 4380)] = static_cast<char>(random());
        ASSERT_THAT(resultOf(changed), AnyOf("checksum", "loaded in part")) << i;
    }
}

TEST_F(SequencePageFuzzTest, ChangesOfEveryFieldWithARightChecksumEndInOneOfTheKnownResults)
{
    for (int offset = 4; offset < 4380;
         offset += offset < 60 || (offset >= 2412 && offset < 2424) || (offset >= 2892 && offset < 2912) ? 1 : 211) {
        QByteArray changed = bytesOf(sequenceRecord(2));
        changed[offset] = static_cast<char>(0xFF);
        SeqFileRecord record{};
        std::memcpy(&record, changed.constData(), sizeof record);
        ASSERT_THAT(resultOf(bytesOf(withCheckSum(record))), AnyOf("loaded in part", "time base", "loaded")) << offset;
    }
}

TEST_F(SequencePageFuzzTest, AFileOfAnyShorterLengthIsAChecksumErrorWhereItLacksBytesThatCount)
{
    SeqFileRecord record = sequenceRecord(1);
    record.deviceBlock.back() = std::byte{1};
    const QByteArray good = bytesOf(withCheckSum(record));
    for (qsizetype length = 3; length < good.size(); ++length) { // the first two bytes are 0
        page.record = {};
        sPendingSeqFile = write("sequence.a", good.left(length));
        dialogs.shown.clear();
        run.enter([this] { page.seqOpenClick(); });
        ASSERT_THAT(messages(), ElementsAre("Checksum Error")) << length;
    }
}

TEST_F(SequencePageFuzzTest, AFileThatLacksOnlyZerosOrHasFurtherBytesIsLoaded)
{
    constexpr qsizetype afterVRange = 2903; // the last byte that is not 0
    const QByteArray good = bytesOf(sequenceRecord(1));
    const QByteArray longer = good + QByteArray(200, '\5');
    for (qsizetype length = afterVRange; length <= longer.size(); length += length < 2910 || length > 4370 ? 1 : 97)
        ASSERT_EQ(resultOf(longer.left(length)), "loaded in part") << length;
    EXPECT_EQ(resultOf(good.left(afterVRange - 1)), "checksum");
    EXPECT_EQ(resultOf({}), "time base"); // a record of zeros
}

TEST_F(SequencePageFuzzTest, RandomLengthsOfRandomBytesEndInOneOfTheKnownResults)
{
    for (int i = 0; i < 100; ++i) {
        QByteArray content(static_cast<qsizetype>(random() % 9000), '\0');
        for (char& byte : content)
            byte = static_cast<char>(random());
        ASSERT_THAT(resultOf(content), AnyOf("checksum", "time base")) << i; // an empty one is a record of zeros
    }
}

} // namespace
} // namespace orb
