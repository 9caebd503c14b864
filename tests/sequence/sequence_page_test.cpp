// SPDX-License-Identifier: GPL-3.0-or-later
#include "sequence_page_test.h"

namespace orb {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The page set-up

TEST_F(SequencePageTest, ASetUpEmptiesTheListAndBothTablesAndTheirGrids)
{
    open(sequenceRecord());
    ASSERT_EQ(page.lstSequence.listCount(), 6);
    ASSERT_EQ(headCount() + pointCount(), "5\n120\n");
    ASSERT_EQ(page.datORB.rowCount(), 120);
    ASSERT_EQ(page.datORBSeqSet.rowCount(), 5);

    reset();

    EXPECT_EQ(page.lstSequence.listCount(), 0);
    EXPECT_EQ(headCount() + pointCount(), "0\n0\n");
    EXPECT_EQ(page.datORB.rowCount(), 0);
    EXPECT_EQ(page.datORBSeqSet.rowCount(), 0);
}

TEST_F(SequencePageTest, ASetUpBindsBothDataControlsToTheirTables)
{
    page.datORB.setRecordSource("Nowhere");
    page.datORBSeqSet.setRecordSource("Nowhere");
    page.datORB.setDatabaseName({});
    page.datORBSeqSet.setDatabaseName({});

    reset();

    EXPECT_EQ(page.datORBSeqSet.databaseName(), paths.inApplication("\\orb.mdb"));
    EXPECT_EQ(page.datORBSeqSet.recordSource(), "ORBSeqHead");
    EXPECT_EQ(page.datORB.databaseName(), paths.inApplication("\\orb.mdb"));
    EXPECT_EQ(page.datORB.recordSource(), "ORBSeqData");
    EXPECT_EQ(page.datORB.connectText() + page.datORBSeqSet.connectText(), "Access 2000;Access 2000;");
}

TEST_F(SequencePageTest, ASetUpReplacesFourCaptionsAndSetsThreeWidths)
{
    SequencePage fresh(clock, dialogs, paths, instrument, wsMain, dbMain, sPendingSeqFile, plottedValues);
    const auto captionsAndWidths = [](const DBGrid& grid) {
        QStringList texts;
        for (int i = 0; i < grid.columnCount(); ++i)
            texts << QStringLiteral("%1 %2").arg(
                grid.model()->headerData(i, Qt::Horizontal, Qt::DisplayRole).toString(),
                QString::number(grid.column(i).widthTwips));
        return texts.join(", ");
    };
    fresh.DBGridHead.setWidthTwips(0, 100);
    fresh.DBGridSequence.setWidthTwips(3, 100);
    fresh.DBGridSequence.setWidthTwips(4, 100);
    EXPECT_EQ(captionsAndWidths(fresh.DBGridHead), "Item 100, The Current Settings 2150, Update 1550");
    EXPECT_EQ(captionsAndWidths(fresh.DBGridSequence),
              "Index 700, DurTime 1650, Current 1150, SlewrateUp 100, SlewrateDown 100");

    run.enter([&] { fresh.ResetSequencePage(); });

    EXPECT_EQ(captionsAndWidths(fresh.DBGridHead), "Item 2700, The current settings 2150, Set 1550");
    EXPECT_EQ(captionsAndWidths(fresh.DBGridSequence),
              "Index 700, Duration Time(S) 1650, Current(A) 1150, SlewrateUp 1400, SlewrateDown 1400");
}

TEST_F(SequencePageTest, ASetUpDisablesTheSimulationAndHidesTheGraph)
{
    open(sequenceRecord());
    run.enter([this] { page.seqPlotClick(); });
    ASSERT_TRUE(page.seqPlot.enabled());
    ASSERT_TRUE(page.graphSeq.visible());

    reset();

    EXPECT_FALSE(page.seqPlot.enabled());
    EXPECT_EQ(page.seqPlot.picture(), paths.inApplication("\\ICON\\SEQSimulateStop.JPG"));
    EXPECT_FALSE(page.graphSeq.visible());
}

TEST_F(SequencePageTest, ASetUpDisablesTheSimulationThenHidesTheGraphThenSeesToTheTransferButtons)
{
    open(sequenceRecord());
    run.enter([this] { page.seqPlotClick(); });
    page.SeqLoad.setPicture(paths.inApplication("\\ICON\\SEQOUTSTOP.JPG"));
    page.SeqLoad.setEnabled(false);
    journal.clear();

    reset();

    EXPECT_THAT(journal.linesOf({"picture", "enable", "disable", "show", "hide", "read"}),
                ElementsAre("disable seqPlot", "picture seqPlot APP\\ICON\\SEQSimulateStop.JPG", "hide graphSeq",
                            "read IsConnected True", "picture SeqLoad APP\\ICON\\SEQOUT.JPG", "read IsConnected True",
                            "enable SeqLoad"));
}

TEST_F(SequencePageTest, ASetUpWhileConnectedLeavesThePictureOfTheSendButton)
{
    instrument.connected = false;
    reset();
    ASSERT_FALSE(page.SeqLoad.enabled());
    journal.clear();
    instrument.connected = true;

    reset();

    EXPECT_THAT(journal.linesOf({"picture", "enable", "disable", "read"}),
                ElementsAre("read IsConnected True", "picture SeqLoad APP\\ICON\\SEQOUT.JPG", "read IsConnected True",
                            "enable SeqLoad"));
    EXPECT_EQ(page.seqSend.picture(), paths.inApplication("\\ICON\\SEQINTOSTOP.JPG"));
}

TEST_F(SequencePageTest, ASetUpWhileTheInstrumentIsAwayShowsTheStopPicturesOfBothTransferButtons)
{
    instrument.connected = false;

    reset();

    EXPECT_THAT(journal.linesOf({"picture", "enable", "disable", "read"}),
                ElementsAre("read IsConnected False", "picture seqSend APP\\ICON\\SEQINTOSTOP.JPG",
                            "picture SeqLoad APP\\ICON\\SEQOUTSTOP.JPG", "read IsConnected False", "disable SeqLoad"));
}

TEST_F(SequencePageTest, ASetUpNeverChangesTheEnabledStateOfTheSendButton)
{
    for (const bool enabled : {true, false})
        for (const bool connected : {true, false}) {
            instrument.connected = connected;
            page.seqSend.setEnabled(enabled);
            reset();
            EXPECT_EQ(page.seqSend.enabled(), enabled) << connected;
        }
}

TEST_F(SequencePageTest, AStatementThatTheDatabaseRejectsEndsTheSetUpAndTheRun)
{
    alterDatabase("create trigger broken before delete on ORBSeqHead begin select raise(fail, 'kept'); end");
    dbMain.execute("insert into ORBSeqHead values('a',1,1)");

    reset();

    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '3075':\n\nkept"));
}

// Saving

TEST_F(SequencePageTest, ASavedFileIsByteForByteTheOneReadOverRandomRecords)
{
    std::mt19937 random(10);
    for (int i = 0; i < 300; ++i) {
        const QByteArray content = bytesOf(randomRecord(random));
        sPendingSeqFile = write("sequence.a", content);
        run.enter([this] { page.seqOpenClick(); });

        press(page.seqSave);

        QFile saved(file("test.a"));
        ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
        ASSERT_EQ(saved.readAll(), content) << "record " << i;
    }
}

TEST_F(SequencePageTest, ASaveAfterAGoodOpenWritesTheBytesOfTheFileAndNoEdits)
{
    open(sequenceRecord(2));
    dbMain.execute("update ORBSeqHead set [Update]=99");

    press(page.seqSave);

    EXPECT_EQ(contentOf(file("test.a")).toLatin1().size(), contentOf(file("sequence.a")).toLatin1().size());
    QFile saved(file("test.a"));
    ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
    EXPECT_EQ(saved.readAll(), bytesOf(sequenceRecord(2)));
}

TEST_F(SequencePageTest, ASaveAfterAFailedOpenWritesTheBadBytes)
{
    SeqFileRecord bad = sequenceRecord();
    bad.VRange = 0;
    open(bad);
    ASSERT_THAT(messages(), ElementsAre("Checksum Error"));

    press(page.seqSave);

    QFile saved(file("test.a"));
    ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
    EXPECT_EQ(saved.readAll(), bytesOf(bad));
}

TEST_F(SequencePageTest, ASaveBeforeAnyOpenReplacesTheFileByZeros)
{
    write("test.a", QByteArray(9000, 'x'));

    press(page.seqSave);

    QFile saved(file("test.a"));
    ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
    EXPECT_EQ(saved.readAll(), QByteArray(4380, '\0'));
    EXPECT_THAT(journal.lines(), IsEmpty());
}

TEST_F(SequencePageTest, WhereTheProgramsFolderIsNotToBeWrittenASaveGoesToTheUsersOwn)
{
    const QTemporaryDir own;
    const Paths installed(application.path(), own.path());
    SequencePage itsPage(clock, dialogs, installed, instrument, wsMain, dbMain, sPendingSeqFile, plottedValues);
    write("test.a", "shipped");

    itsPage.seqSaveClick();

    EXPECT_EQ(contentOf(own.filePath("test.a")), QString(4380, QChar(0)));
    EXPECT_EQ(contentOf(file("test.a")), "shipped");
}

TEST_F(SequencePageTest, ASaveThatCanNeitherDeleteNorWriteEndsQuietly)
{
    QDir(application.path()).mkpath("test.a/inside");

    press(page.seqSave);

    EXPECT_THAT(dialogs.shown, IsEmpty());
    EXPECT_THAT(processExit.reports, IsEmpty());
    EXPECT_FALSE(run.isOver());
}

TEST_F(SequencePageTest, ASaveLeavesThePendingFileAndThePage)
{
    open(sequenceRecord(2));
    sPendingSeqFile = "pending.a";
    journal.clear();

    press(page.seqSave);

    EXPECT_EQ(sPendingSeqFile, "pending.a");
    EXPECT_EQ(page.lstSequence.listCount(), 6);
    EXPECT_THAT(journal.lines(), IsEmpty());
}

// Deleting

TEST_F(SequencePageTest, ADeleteLeavesTheOpenedFileOnDiskAndEmptiesThePage)
{
    open(sequenceRecord());

    press(page.seqDelete);

    EXPECT_TRUE(QFile::exists(file("sequence.a")));
    EXPECT_EQ(page.lstSequence.listCount(), 0);
    EXPECT_EQ(headCount() + pointCount(), "0\n0\n");
    EXPECT_EQ(page.datORB.rowCount(), 0);
    EXPECT_FALSE(page.seqPlot.enabled());
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(SequencePageTest, ADeleteIgnoresAFailureOfTheSetUp)
{
    open(sequenceRecord(1));
    alterDatabase("create trigger broken before delete on ORBSeqHead begin select raise(fail, 'kept'); end");

    press(page.seqDelete);

    EXPECT_THAT(processExit.reports, IsEmpty());
    EXPECT_EQ(headCount(), "5\n");
    EXPECT_EQ(page.lstSequence.listCount(), 0);
}

TEST_F(SequencePageTest, ADeleteDeletesTheFileOfItsNameIfThereIsOne)
{
    page.sSeqFileName = write("sequence.a", "x");

    press(page.seqDelete);

    EXPECT_FALSE(QFile::exists(file("sequence.a")));
}

} // namespace
} // namespace orb
