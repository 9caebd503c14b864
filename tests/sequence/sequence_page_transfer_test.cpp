// SPDX-License-Identifier: GPL-3.0-or-later
#include "sequence_page_test.h"

#include <QDir>
#include <QStandardPaths>

namespace orb {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

class SequencePageTransferTest : public SequencePageTest {
protected:
    SequencePageTransferTest()
    {
        QStandardPaths::setTestModeEnabled(true); // the staging folder is one of the tests
        createFolder(staging::folder);
        QFile::remove(realPath(staging::sequence));
        clock.allow(200'000);
    }
    ~SequencePageTransferTest() override { QFile::remove(realPath(staging::sequence)); }

    void load(const std::function<void(SeqFileRecord&)>& change, int pointCount = 2)
    {
        SeqFileRecord record = sequenceRecord(pointCount);
        change(record);
        open(withCheckSum(record));
        journal.clear();
    }

    /// What the operator types into the column `Update` of the row with that word.
    void setUpdate(const char* word, const char* value) const
    {
        alterDatabase(QStringLiteral("update ORBSeqHead set [Update]=%1 where Item like '%%2%'").arg(value, word));
    }

    /// The fetched file of the instrument: what it leaves in the staging folder.
    static void stage(const SeqFileRecord& record) { writeRecord(staging::sequence, record); }
};

TEST_F(SequencePageTransferTest, ASequenceIsSentCommandByCommandWith200MsAfterEach)
{
    load([](SeqFileRecord& record) {
        for (SeqPoint& point : record.Points) {
            point.CurrentRaw = 1500;
            point.SlewUpRaw = 250;
            point.SlewDownRaw = 250;
        }
        record.DurationCount[0] = 20;
        record.DurationCount[1] = 500;
    });

    send();

    EXPECT_THAT(journal.lines(),
                ElementsAre("read IsConnected True", //
                            "send :MODE CCH", "sleep 200", "send :SEQ:VOLT:RANG H", "sleep 200", "send :SEQ:END:LOAD 0",
                            "sleep 200", "send :SEQ:REP 3", "sleep 200", "send :SEQ:LOOP:STAR 1", "sleep 200",
                            "send :SEQ:END 2", "sleep 200", //
                            "send :SEQ:EDIT:POIN 1", "sleep 200", "send :SEQuence:POINt:TIME 0.02", "sleep 200",
                            "send :SEQ:POIN:CURR 15", "sleep 200", "send :SEQ:POIN:RISE 1.6", "sleep 200",
                            "send :SEQ:POIN:FALL 1.6", "sleep 200", //
                            "send :SEQ:EDIT:POIN 2", "sleep 200", "send :SEQuence:POINt:TIME 0.5", "sleep 200",
                            "send :SEQ:POIN:CURR 15", "sleep 200", "send :SEQ:POIN:RISE 1.6", "sleep 200",
                            "send :SEQ:POIN:FALL 1.6", "sleep 200"));
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(SequencePageTransferTest, AFullTransferTakes606CommandsOf200Ms)
{
    load([](SeqFileRecord&) {}, 120);
    const qint64 start = clock.elapsed();

    send();

    EXPECT_EQ(instrument.sent.size(), 606U);
    EXPECT_EQ(clock.elapsed() - start, 606 * 200);
    EXPECT_EQ(instrument.sent.back(), ":SEQ:POIN:FALL 0.8");
    EXPECT_EQ(instrument.sent[601], ":SEQ:EDIT:POIN 120");
}

TEST_F(SequencePageTransferTest, ASendLeavesTablesRecordAndPageAndCanBeRepeated)
{
    load([](SeqFileRecord&) {});
    const QString before = heads() + points();

    send();
    const std::vector<QString> first = std::exchange(instrument.sent, {});
    send();

    EXPECT_EQ(instrument.sent, first);
    EXPECT_EQ(heads() + points(), before);
    EXPECT_EQ(page.lstSequence.listCount(), 6);
    EXPECT_EQ(bytesOf(page.record), bytesOf(sequenceRecord(2)));
}

TEST_F(SequencePageTransferTest, WithoutALinkNothingIsSent)
{
    load([](SeqFileRecord&) {});
    instrument.connected = false;

    send();

    EXPECT_THAT(journal.lines(), ElementsAre("read IsConnected False",
                                             "message \"Please Setup Device first, and then try again!\" critical Ok"));
}

TEST_F(SequencePageTransferTest, WithoutALoadedFileNothingIsSent)
{
    send();

    EXPECT_THAT(journal.lines(),
                ElementsAre("read IsConnected True", "message \"Please load a Sequence file first!\" information Ok"));
}

TEST_F(SequencePageTransferTest, AfterAChecksumErrorNothingIsSent)
{
    load([](SeqFileRecord&) {});
    open(QByteArray(4380, '\1'));
    dialogs.shown.clear();

    send();

    EXPECT_THAT(dialogs.shown, ElementsAre(Shown{"Please load a Sequence file first!", information, Buttons::Ok}));
    EXPECT_THAT(instrument.sent, IsEmpty());
}

TEST_F(SequencePageTransferTest, OnlyAListOfSixLinesIsSent)
{
    load([](SeqFileRecord&) {});
    page.lstSequence.addItem("seventh");

    send();

    EXPECT_THAT(messages(), ElementsAre("Please load a Sequence file first!"));
}

TEST_F(SequencePageTransferTest, TheModeAndTheRangeComeFromTheList)
{
    const auto sentFor = [this](quint8 mode, quint8 range) {
        reset();
        load([=](SeqFileRecord& record) {
            record.LoadMode = mode;
            record.LoadRange = range;
            record.VRange = static_cast<quint8>(1 - range); // has no effect
            record.LoopEnd = -1;
        });
        instrument.sent.clear();
        send();
        return instrument.sent[0] + " " + instrument.sent[1];
    };
    EXPECT_EQ(sentFor(0, 1), ":MODE CCH :SEQ:VOLT:RANG H");
    EXPECT_EQ(sentFor(0, 0), ":MODE CCL :SEQ:VOLT:RANG L");
    EXPECT_EQ(sentFor(1, 1), ":MODE CRH :SEQ:VOLT:RANG H");
    EXPECT_EQ(sentFor(1, 0), ":MODE CRL :SEQ:VOLT:RANG L");
}

TEST_F(SequencePageTransferTest, AFileOfModeCVIsSentAsCR)
{
    for (const quint8 range : {quint8{0}, quint8{1}}) {
        reset();
        load([=](SeqFileRecord& record) {
            record.LoadMode = 2;
            record.LoadRange = range;
        });
        instrument.sent.clear();
        send();
        EXPECT_EQ(instrument.sent[0], range == 1 ? ":MODE CRH" : ":MODE CRL");
    }
}

TEST_F(SequencePageTransferTest, AnEditOfTheLoopsEndLimitsItsCommandAndThePointsSent)
{
    load([](SeqFileRecord&) {}, 10);
    setUpdate("end point", "5");

    send();

    EXPECT_EQ(instrument.sent[5], ":SEQ:END 5");
    EXPECT_EQ(instrument.sent.size(), 6U + 5 * 5);
    EXPECT_EQ(instrument.sent[26], ":SEQ:EDIT:POIN 5");
}

TEST_F(SequencePageTransferTest, ThePointsBeforeTheLoopAreNotSentAndTheOthersKeepTheirIndex)
{
    load([](SeqFileRecord&) {}, 4);
    setUpdate("start point", "3");

    send();

    EXPECT_EQ(instrument.sent[4], ":SEQ:LOOP:STAR 3");
    EXPECT_EQ(instrument.sent[6], ":SEQ:EDIT:POIN 3");
    EXPECT_EQ(instrument.sent[11], ":SEQ:EDIT:POIN 4");
    EXPECT_EQ(instrument.sent.size(), 16U);
}

TEST_F(SequencePageTransferTest, AStartAfterTheEndSendsOnlyTheHeadCommands)
{
    load([](SeqFileRecord&) {}, 4);
    setUpdate("start point", "4");
    setUpdate("end point", "2");

    send();

    EXPECT_THAT(instrument.sent, ElementsAre(":MODE CCH", ":SEQ:VOLT:RANG H", ":SEQ:END:LOAD 0", ":SEQ:REP 3",
                                             ":SEQ:LOOP:STAR 4", ":SEQ:END 2"));
}

TEST_F(SequencePageTransferTest, WithTheHeadTableEmptiedOnlyTheFirstTwoCommandsAreSent)
{
    load([](SeqFileRecord&) {}, 4);
    alterDatabase("delete from ORBSeqHead");
    alterDatabase("insert into ORBSeqData values(0,1,1,1,1)"); // even a point 0 is found by no loop in a real file
    alterDatabase("delete from ORBSeqData where [Index]=0");

    send();

    EXPECT_THAT(instrument.sent, ElementsAre(":MODE CCH", ":SEQ:VOLT:RANG H"));
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(SequencePageTransferTest, AMissingStartOfTheLoopCountsAs0)
{
    load([](SeqFileRecord&) {}, 2);
    alterDatabase("delete from ORBSeqHead where Item like '%start%' or Item like '%Repeat%'");

    send();

    EXPECT_THAT(std::vector<QString>(instrument.sent.begin() + 2, instrument.sent.begin() + 5),
                ElementsAre(":SEQ:END:LOAD 0", ":SEQ:END 2", ":SEQ:EDIT:POIN 1"));
    EXPECT_EQ(instrument.sent.size(), 14U);
}

TEST_F(SequencePageTransferTest, TheRowsOfThePointsAreSentInTheOrderOfTheirNumbers)
{
    load([](SeqFileRecord&) {}, 1);
    alterDatabase("delete from ORBSeqData; insert into ORBSeqData values(10,1,1,1,1),(2,1,1,1,1),(9,1,1,1,1)");
    setUpdate("end point", "10");

    send();

    EXPECT_EQ(instrument.sent[6], ":SEQ:EDIT:POIN 2");
    EXPECT_EQ(instrument.sent[11], ":SEQ:EDIT:POIN 9");
    EXPECT_EQ(instrument.sent[16], ":SEQ:EDIT:POIN 10");
}

TEST_F(SequencePageTransferTest, TheTablesAreSentAndNotTheFile)
{
    load([](SeqFileRecord&) {}, 1);
    setUpdate("On_End", "1");
    setUpdate("Repeat", "7.5");
    alterDatabase("update ORBSeqHead set [The Current Settings]=99");
    alterDatabase("update ORBSeqData set DurTime=0.1234567, Current=2.25, SlewrateUp=0.5, SlewrateDown=0.25");

    send();

    EXPECT_THAT(instrument.sent,
                ElementsAre(":MODE CCH", ":SEQ:VOLT:RANG H", ":SEQ:END:LOAD 1", ":SEQ:REP 7.5", ":SEQ:LOOP:STAR 1",
                            ":SEQ:END 1", ":SEQ:EDIT:POIN 1", ":SEQuence:POINt:TIME 0.1234567", ":SEQ:POIN:CURR 2.25",
                            ":SEQ:POIN:RISE 0.5", ":SEQ:POIN:FALL 0.25"));
}

TEST_F(SequencePageTransferTest, AFileOfFewerThan120PointsCanBeSentThoughItsGridIsEmpty)
{
    load([](SeqFileRecord&) {}, 3);
    ASSERT_EQ(page.datORB.rowCount(), 0);

    send();

    EXPECT_EQ(instrument.sent.size(), 6U + 3 * 5);
}

TEST_F(SequencePageTransferTest, ASecondFileOnTopSendsTheSettingsOfTheFirstAndThePointsOfBoth)
{
    load([](SeqFileRecord&) {}, 2);
    load([](SeqFileRecord& record) { record.RepeatCount = 9; }, 1);

    send();

    EXPECT_EQ(instrument.sent[3], ":SEQ:REP 3");
    EXPECT_EQ(instrument.sent.size(), 6U + 3 * 5);
}

// From the instrument

TEST_F(SequencePageTransferTest, ALoadFetchesTheFileAndOpensItWithoutADialog)
{
    stage(sequenceRecord(120));
    sPendingSeqFile = "leftover.a";

    press(page.SeqLoad);

    EXPECT_THAT(journal.lines(), ElementsAre("read IsConnected True", "call FetchSequenceFile", "enable seqPlot",
                                             "picture seqPlot APP\\ICON\\SEQSimulate.JPG", "read IsConnected True"));
    EXPECT_EQ(sPendingSeqFile, "");
    EXPECT_EQ(pointCount(), "120\n");
    EXPECT_EQ(bytesOf(page.record), bytesOf(sequenceRecord(120)));
}

TEST_F(SequencePageTransferTest, ALoadWithoutAFileDisablesTheSimulationWithoutAMessage)
{
    open(sequenceRecord(120));
    sPendingSeqFile = "leftover.a";
    journal.clear();

    press(page.SeqLoad);

    EXPECT_THAT(journal.lines(), ElementsAre("read IsConnected True", "call FetchSequenceFile", "disable seqPlot",
                                             "picture seqPlot APP\\ICON\\SEQSimulateStop.JPG"));
    EXPECT_EQ(sPendingSeqFile, "");
    EXPECT_EQ(page.lstSequence.listCount(), 6);
}

TEST_F(SequencePageTransferTest, AFileThatAnEarlierFetchLeftIsOpenedAgain)
{
    stage(sequenceRecord(2));
    press(page.SeqLoad);

    press(page.SeqLoad); // this fetch leaves nothing

    EXPECT_EQ(pointCount(), "4\n");
    EXPECT_TRUE(QFile::exists(realPath(staging::sequence)));
    EXPECT_TRUE(page.seqPlot.enabled());
}

TEST_F(SequencePageTransferTest, ALoadOfABadFileLeavesTheSimulationEnabled)
{
    SeqFileRecord bad = sequenceRecord(2);
    bad.CheckSum = 1;
    stage(bad);

    press(page.SeqLoad);

    EXPECT_THAT(messages(), ElementsAre("Checksum Error"));
    EXPECT_TRUE(page.seqPlot.enabled());
    EXPECT_EQ(sPendingSeqFile, "");
}

TEST_F(SequencePageTransferTest, WithoutALinkANoFetchesNothing)
{
    stage(sequenceRecord(2));
    instrument.connected = false;
    dialogs.answers = {Answer::No};

    press(page.SeqLoad);

    EXPECT_THAT(journal.lines(),
                ElementsAre("read IsConnected False", "message \"Device is not Connected, Continue?\" none YesNo"));
    EXPECT_EQ(pointCount(), "0\n");
}

TEST_F(SequencePageTransferTest, WithoutALinkAYesFetchesAllTheSame)
{
    stage(sequenceRecord(2));
    instrument.connected = false;
    dialogs.answers = {Answer::Yes};

    press(page.SeqLoad);

    EXPECT_THAT(journal.lines(),
                ElementsAre("read IsConnected False", "message \"Device is not Connected, Continue?\" none YesNo",
                            "call FetchSequenceFile", "enable seqPlot", "picture seqPlot APP\\ICON\\SEQSimulate.JPG"));
    EXPECT_EQ(pointCount(), "2\n");
}

} // namespace
} // namespace orb
