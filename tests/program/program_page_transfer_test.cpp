// SPDX-License-Identifier: GPL-3.0-or-later
#include "program_page_test.h"
#include "random_program_files.h"

#include <QDir>

#include <map>
#include <random>
#include <span>

using namespace orb;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

namespace {

const QString overflow = "Run-time error '6':\n\nOverflow";
const QString updating = "The Progress of Updating Program Setting";

class ProgramPageTransferTest : public ProgramPageTest {
protected:
    static QByteArray uploaded() { return stagingBytes(staging::programUpload); }

    /// Loads a file from the instrument, and sends afterwards.
    void loadAndSend(const QByteArray& file)
    {
        serve(file);
        press(page.progLoad);
        press(page.progSend);
    }

    /// Fills every cell with these fields after program and step.
    void fillAll(const QString& fields)
    {
        for (int n = 0; n < 120; ++n)
            cell(n).setTag(QStringLiteral("%1,%2,%3").arg(n / 10 + 1).arg(n % 10 + 1).arg(fields));
        page.progSend.setEnabled(true);
        serve(finished(ProgFileRecord{}));
    }

    ProgFileRecord uploadedRecord()
    {
        ProgFileRecord record{};
        logic([&] { readRecord(staging::programUpload, record); });
        return record;
    }

    void expectFatalBeforeTheUpload()
    {
        EXPECT_THAT(processExit.reports, ElementsAre(overflow));
        EXPECT_EQ(uploaded(), QByteArray());
        EXPECT_THAT(instrument.calls, Not(Contains("SendProgramFile")));
        EXPECT_TRUE(page.frameProgress.visible());
    }

    RandomProgramFiles files;
};

TEST_F(ProgramPageTransferTest, TheImportWithoutALinkAsksAndEndsWhateverTheAnswer)
{
    serve(finished(files.record(255)));
    for (const Answer answer : {Answer::Yes, Answer::No}) {
        instrument.connected = true;
        logic([this] { page.InitProgramPage(); }); // enabled while the link stood
        instrument.connected = false;
        journal.clear();
        dialogs.answers = {answer};
        press(page.progLoad);
        EXPECT_THAT(journal.lines(), ElementsAre("read IsConnected False", askWithoutLink));
    }
}

TEST_F(ProgramPageTransferTest, TheImportReadsTheFetchedFileWithoutADialogAndEnablesTheTransfer)
{
    serve(finished(files.record(255)));
    sPendingProgFile = "other.b";

    press(page.progLoad);

    EXPECT_THAT(dialogs.fileDialogs, IsEmpty());
    EXPECT_THAT(instrument.calls, ElementsAre("FetchProgramFile"));
    EXPECT_FALSE(tags().contains(QString()));
    EXPECT_TRUE(page.progSend.enabled());
    EXPECT_EQ(sPendingProgFile, "");
}

TEST_F(ProgramPageTransferTest, TheImportDeletesAnOlderFileBeforeTheFetchSoThatAFailedFetchLoadsNothing)
{
    serve(finished(files.record(255)));
    instrument.FetchProgramFile();
    ASSERT_TRUE(fileExists(staging::program));
    instrument.onFetchProgramFile = [this] {
        journal.write(fileExists(staging::program) ? "the file is there" : "no file is there");
    };
    sPendingProgFile = "other.b";
    journal.clear();

    press(page.progLoad);

    EXPECT_THAT(journal.lines(), ElementsAre("read IsConnected True", "call FetchProgramFile", "no file is there",
                                             "message \"No file was loaded from device.\" none Ok"));
    EXPECT_THAT(tags(), Each(QString()));
    EXPECT_EQ(sPendingProgFile, "") << "the next opening asks";
}

TEST_F(ProgramPageTransferTest, TheFetchedFileStaysOnTheDisk)
{
    const QByteArray file = finished(files.record(255));
    loadAndSend(file);
    EXPECT_EQ(stagingBytes(staging::program), file);
    EXPECT_NE(uploaded(), QByteArray());
}

TEST_F(ProgramPageTransferTest, ASendWithoutALinkAnsweredWithNoDoesNothing)
{
    page.progSend.setEnabled(true);
    instrument.connected = false;
    dialogs.answers = {Answer::No};
    press(page.progSend);
    EXPECT_THAT(journal.lines(), ElementsAre("read IsConnected False", askWithoutLink));
}

TEST_F(ProgramPageTransferTest, ASendWithoutALinkAnsweredWithYesEndsSilentlyWhenNoFileComes)
{
    serve(finished(files.record(255)));
    instrument.FetchProgramFile(); // an older one, which must not be taken
    instrument.onFetchProgramFile = nullptr;
    page.progSend.setEnabled(true);
    instrument.connected = false;
    dialogs.answers = {Answer::Yes};
    journal.clear();

    press(page.progSend);

    EXPECT_THAT(journal.lines(), ElementsAre("read IsConnected False", askWithoutLink, "call FetchProgramFile"));
    EXPECT_FALSE(page.frameProgress.visible());
    EXPECT_THAT(processExit.reports, IsEmpty());
}

TEST_F(ProgramPageTransferTest, ASendOverAFetchedFileWithABadChecksumWritesNothing)
{
    fillAll("AUTO,5,1,2.5,0,Off,1,0.01,1,1.0,17");
    QByteArray bad = finished(files.record(255));
    bad[100] = static_cast<char>(bad[100] + 1);
    serve(bad);
    journal.clear();

    press(page.progSend);

    EXPECT_THAT(journal.lines(),
                ElementsAre("read IsConnected True", "call FetchProgramFile", "message \"Checksum Error\" none Ok"));
    EXPECT_EQ(uploaded(), QByteArray());
    EXPECT_FALSE(page.frameProgress.visible());
}

TEST_F(ProgramPageTransferTest, AFileThatIsLoadedAndSentBackIsTheSameByteForByte)
{
    for (int i = 0; i < 12; ++i) {
        const QByteArray file = finished(files.record(255));
        loadAndSend(file);
        ASSERT_THAT(processExit.reports, IsEmpty());
        EXPECT_EQ(uploaded(), file) << i;
    }
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(ProgramPageTransferTest, AFileWithATimeBeyondTwentyFiveAndAHalfSecondsLoadsAndEndsTheProgramWhenItIsSent)
{
    ProgFileRecord record{};
    record.programs[11].OffTime[9] = 256;
    serve(finished(record));
    press(page.progLoad);
    EXPECT_THAT(dialogs.shown, IsEmpty());

    press(page.progSend);

    expectFatalBeforeTheUpload();
}

TEST_F(ProgramPageTransferTest, RandomFilesWithLongTimesMakeNoUploadFile)
{
    loadAndSend(finished(files.record(590)));
    expectFatalBeforeTheUpload();
}

TEST_F(ProgramPageTransferTest, AnOlderUploadFileIsLeftAloneByASendThatEndsTheProgram)
{
    loadAndSend(finished(files.record(255)));
    const QByteArray older = uploaded();
    cell(60).setTag("7,1,AUTO,0,1,59.9,1,1,1,1,1,1,5");
    press(page.progSend);
    EXPECT_THAT(processExit.reports, ElementsAre(overflow));
    EXPECT_EQ(uploaded(), older);
}

TEST_F(ProgramPageTransferTest, TheBaseIsTheInstrumentsFileOfTheMomentOfTheSend)
{
    ProgFileRecord record{};
    record.programs[3].OnTimer[4] = 77;
    serve(finished(record));
    press(page.progLoad);
    record.reserved4[17] = std::byte{99};
    record.reserved4112[2] = std::byte{98};
    record.reserved5556[0] = std::byte{97};
    record.ChainNext[13] = 96;
    record.reserved5572[7] = std::byte{95};
    const QByteArray newest = finished(record);
    record.programs[3].OnTimer[4] = 11; // what the page holds replaces this
    record.ChainNext[0] = 5;
    record.ChainStart = 6;
    serve(finished(record));

    press(page.progSend);

    EXPECT_EQ(uploaded(), newest);
}

TEST_F(ProgramPageTransferTest, EveryFieldOfAStepComesFromItsControl)
{
    fillAll("MANUAL,129,1,0.25,1,0.35,1,25.5,0,Off,120");
    chain(11).setText("P03");
    chain(12).setText("P12");

    press(page.progSend);

    const ProgFileRecord record = uploadedRecord();
    EXPECT_EQ(record.CheckSum, computedCheckSum(record));
    for (const ProgramBlock& block : record.programs)
        for (std::size_t s = 0; s < 10; ++s) {
            EXPECT_EQ(block.Memory[s], 119);
            EXPECT_EQ(block.RunMode[s], 2);
            EXPECT_EQ(block.OnTimer[s], 2) << "2.5 goes to the even neighbor";
            EXPECT_EQ(block.OffTime[s], 4) << "and so does 3.5";
            EXPECT_EQ(block.PFTime[s], 255);
            EXPECT_EQ(block.ShortTime[s], 0) << "off";
            EXPECT_EQ(block.ShortCH[s], 129);
        }
    EXPECT_EQ(record.ChainNext[11], 3);
    EXPECT_EQ(record.ChainStart, 11);
}

TEST_F(ProgramPageTransferTest, TheHighByteOfATimeIsAlwaysWrittenAsZero)
{
    fillAll("AUTO,0,1,0.01,1,1,1,1,1,1,1");
    ProgFileRecord base{};
    base.programs[0].OnTimer[0] = -1;
    base.programs[0].ShortCH[0] = -1;
    serve(finished(base));
    press(page.progSend);
    EXPECT_EQ(uploadedRecord().programs[0].OnTimer[0], 0) << "0.01 is written as 0";
    EXPECT_EQ(uploadedRecord().programs[0].ShortCH[0], 0);
}

TEST_F(ProgramPageTransferTest, AnEmptyCellGetsTheValuesOfTheStepBefore)
{
    fillAll("AUTO,5,1,2.5,0,Off,1,0.01,1,1.0,17");
    cell(1).setTag("1,2,SKIP,3,1,3.5,1,4.5,1,5.5,1,6.5,18");
    cell(2).setTag({});
    cell(3).setTag("1,4,AUTO,3,1,3.5"); // a spoiled one counts as empty

    press(page.progSend);

    const ProgramBlock block = uploadedRecord().programs[0];
    for (std::size_t s : {1U, 2U, 3U})
        EXPECT_EQ(QStringLiteral("%1 %2 %3 %4 %5 %6 %7")
                      .arg(block.Memory[s])
                      .arg(block.RunMode[s])
                      .arg(block.OnTimer[s])
                      .arg(block.OffTime[s])
                      .arg(block.PFTime[s])
                      .arg(block.ShortTime[s])
                      .arg(block.ShortCH[s]),
                  "17 0 35 45 55 65 3")
            << s;
}

TEST_F(ProgramPageTransferTest, AnEmptyFirstStepWithoutAMemoryEndsTheProgram)
{
    page.progSend.setEnabled(true);
    serve(finished(files.record(255)));
    press(page.progSend);
    expectFatalBeforeTheUpload();
}

TEST_F(ProgramPageTransferTest, AFirstStepWithoutARunModeEndsTheProgram)
{
    page.progSend.setEnabled(true);
    page.cmbMemory.setText("1");
    serve(finished(files.record(255)));
    press(page.progSend);
    expectFatalBeforeTheUpload();
}

TEST_F(ProgramPageTransferTest, ANegativeTimeEndsTheProgram)
{
    fillAll("AUTO,5,1,2.5,0,-0.1,1,0.01,1,1.0,17");
    press(page.progSend);
    expectFatalBeforeTheUpload();
}

TEST_F(ProgramPageTransferTest, ALinkWithoutASelectionEndsTheProgram)
{
    fillAll("AUTO,5,1,2.5,0,Off,1,0.01,1,1.0,17");
    chain(12).setText("none");
    press(page.progSend);
    expectFatalBeforeTheUpload();
}

TEST_F(ProgramPageTransferTest, AnUploadFileThatCannotBeWrittenEndsTheProgram)
{
    fillAll("AUTO,5,1,2.5,0,Off,1,0.01,1,1.0,17");
    const QString path = realPath(staging::programUpload);
    ASSERT_TRUE(QDir().mkpath(path));

    press(page.progSend);

    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '75':\n\nPath/File access error"));
    EXPECT_THAT(instrument.calls, ElementsAre("FetchProgramFile"));
    QDir(path).removeRecursively();
}

TEST_F(ProgramPageTransferTest, AnOlderUploadFileIsDeletedAndNotWrittenOver)
{
    const QString other = write("other", "other.txt");
    ASSERT_TRUE(QFile::link(other, realPath(staging::programUpload)));

    loadAndSend(finished(files.record(255)));

    EXPECT_EQ(contentOf(other), "other");
    EXPECT_EQ(uploaded().size(), 5580);
}

TEST_F(ProgramPageTransferTest, TheFileIsClosedAndWholeWhenTheInstrumentTakesIt)
{
    qint64 size = 0;
    instrument.onSendProgramFile = [&] { size = uploaded().size(); };
    loadAndSend(finished(files.record(255)));
    EXPECT_EQ(size, 5580);
    EXPECT_THAT(instrument.calls, ElementsAre("FetchProgramFile", "FetchProgramFile", "SendProgramFile"));
    EXPECT_THAT(dialogs.shown, IsEmpty()) << "a success is silent";
}

TEST_F(ProgramPageTransferTest, TheProgressIsShownStepByStep)
{
    fillAll("AUTO,5,1,2.5,0,Off,1,0.01,1,1.0,17");
    page.pbProg.setValue(9);
    page.pbSeq.setValue(9);
    journal.watch(page.frameProgress, "frameProgress");
    journal.watch(page.frameMemorySetting, "frame");
    journal.watchText(&page, [this] {
        return QStringLiteral("progress %1 %2 \"%3\" \"%4\" in \"%5\"")
            .arg(page.pbProg.value())
            .arg(page.pbSeq.value())
            .arg(page.lblMemory.at(5).caption(), page.lblMemory.at(6).caption(), page.frameProgress.caption());
    });
    page.fraProgramOrder.raise();
    journal.clear();

    press(page.progSend);

    const QString in = " in \"" + updating + "\"";
    const QStringList lines = journal.linesWithout({"resize", "move", "read"});
    EXPECT_THAT(lines.mid(0, 10),
                ElementsAre("call FetchProgramFile", "show frameProgress",
                            "progress 9 9 \"Program:\" \"Sequence:\"" + in, "raise frameProgress",
                            "progress 1 1 \"Program: 1\" \"Sequence: 1\"" + in, "yield", "raise frame", "show frame",
                            "progress 1 2 \"Program: 1\" \"Sequence: 2\"" + in, "yield"));
    EXPECT_THAT(lines.mid(lines.size() - 5),
                ElementsAre("progress 12 10 \"Program: 12\" \"Sequence: 10\"" + in, "yield", "hide frame",
                            "hide frameProgress", "call SendProgramFile"));
    EXPECT_EQ(lines.count("yield"), 120);
    EXPECT_EQ(page.frameMemorySetting.tag(), "119");
    EXPECT_EQ(page.frameMemorySetting.caption(), "Program: [12] Sequence:[10]");
}

TEST_F(ProgramPageTransferTest, TheStepOfACellThatNamesAnotherProgramIsWrittenToThePlaceOfTheCell)
{
    fillAll("AUTO,5,1,2.5,0,Off,1,0.01,1,1.0,17");
    cell(34).setTag("9,9,MANUAL,5,1,2.5,0,Off,1,0.01,1,1.0,33");
    press(page.progSend);
    EXPECT_EQ(uploadedRecord().programs[3].Memory[4], 32);
    EXPECT_EQ(uploadedRecord().programs[8].Memory[8], 16);
}

TEST_F(ProgramPageTransferTest, ASendKeepsTheCellsAndTheChain)
{
    fillAll("AUTO,5,1,2.5,0,Off,1,0.01,1,1.0,17");
    chain(2).setText("P09");
    const QStringList before = tags();
    press(page.progSend);
    EXPECT_EQ(tags(), before);
    EXPECT_EQ(links(), "0 0 9 0 0 0 0 0 0 0 0 0 0");
}

TEST_F(ProgramPageTransferTest, TheTransferStaysDisabledAfterEditingAFreshPage)
{
    fill(0, "17");
    chain(0).setText("P02");
    EXPECT_FALSE(page.progSend.enabled());
    press(page.progSend);
    EXPECT_THAT(instrument.calls, IsEmpty());
}

TEST_F(ProgramPageTransferTest, TheButtonsDoNotFollowALinkThatComesOrGoesLater)
{
    loadAndSend(finished(files.record(255)));
    instrument.connected = false;
    clock.advance(5000);
    EXPECT_TRUE(page.progSend.enabled());
    EXPECT_TRUE(page.progLoad.enabled());
}

TEST_F(ProgramPageTransferTest, AnEventDuringTheTransferRunsAtTheYield)
{
    fillAll("AUTO,5,1,2.5,0,Off,1,0.01,1,1.0,17");
    clock.at(clock.elapsed() + 5, [this] { cell(60).setTag("7,1,SKIP,5,1,2.5,0,Off,1,0.01,1,1.0,44"); });
    press(page.progSend);
    EXPECT_EQ(uploadedRecord().programs[6].Memory[0], 43);
}

} // namespace
