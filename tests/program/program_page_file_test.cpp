// SPDX-License-Identifier: GPL-3.0-or-later
#include "program_page_test.h"

using namespace orb;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const QString noElement = "Run-time error '340':\n\nControl array element doesn't exist";
const QString invalidValue = "Run-time error '380':\n\nInvalid property value";

class ProgramPageFileTest : public ProgramPageTest {
protected:
    /// A file whose every step has the memory of its own number, one run mode after the other, and times of its own.
    static ProgFileRecord example()
    {
        ProgFileRecord record{};
        for (std::size_t p = 0; p < 12; ++p)
            for (std::size_t s = 0; s < 10; ++s) {
                ProgramBlock& block = record.programs[p];
                const auto n = static_cast<qint16>(10 * p + s);
                block.Memory[s] = static_cast<quint8>(n);
                block.RunMode[s] = static_cast<quint8>(n % 3);
                block.OnTimer[s] = static_cast<qint16>(n + 1);
                block.OffTime[s] = static_cast<qint16>(n + 2);
                block.PFTime[s] = static_cast<qint16>(n + 3);
                block.ShortTime[s] = static_cast<qint16>(n + 4);
                block.ShortCH[s] = n;
            }
        for (std::size_t p = 0; p < 12; ++p)
            record.ChainNext[p] = static_cast<quint8>(12 - p);
        record.ChainStart = 4;
        return record;
    }

    /// A change to one step of an otherwise empty file.
    static QByteArray withStep(int program, int step, const std::function<void(ProgramBlock&, std::size_t)>& change)
    {
        ProgFileRecord record{};
        change(record.programs[static_cast<std::size_t>(program - 1)], static_cast<std::size_t>(step - 1));
        return finished(record);
    }

    static QByteArray withOnTimer(qint16 tenths)
    {
        return withStep(1, 1, [tenths](ProgramBlock& block, std::size_t step) { block.OnTimer[step] = tenths; });
    }

    /// Fills what a read must replace or leave.
    void fillSome()
    {
        fill(0, "99", "MANUAL", "3");
        fill(119, "98");
        chain(3).setText("P07");
        journal.clear();
        dialogs.shown.clear();
    }
};

TEST_F(ProgramPageFileTest, TheDialogAsksForAProgramFileInTheApplicationDirectory)
{
    dialogs.CommonDialog1.fileName = "last.csv";
    press(page.progOpen);
    EXPECT_EQ(journal.linesOf({"open"}).value(0),
              "open directory \"APP\" filter \"ORB3000 Sequence Files (*.B)|*.b\" title \"Select a File to Open\" name "
              "\"last.csv\"");
}

TEST_F(ProgramPageFileTest, WithoutANameNothingChangesAndTheMessageSaysSo)
{
    fillSome();
    const QStringList before = tags();

    press(page.progOpen);

    EXPECT_THAT(journal.linesWithout({"open"}), ElementsAre("message \"No file was selected.\" none Ok"));
    EXPECT_EQ(tags(), before);
}

TEST_F(ProgramPageFileTest, ACancelTakesTheNameThatTheDialogHolds)
{
    dialogs.CommonDialog1.fileName = write(finished(example()));
    press(page.progOpen);
    EXPECT_EQ(cell(34).text(), "35");
}

TEST_F(ProgramPageFileTest, APendingPathIsTakenOnceWithoutADialog)
{
    sPendingProgFile = write(finished(example()));
    press(page.progOpen);

    EXPECT_EQ(cell(34).text(), "35");
    EXPECT_EQ(sPendingProgFile, "");
    EXPECT_THAT(dialogs.fileDialogs, IsEmpty());

    press(page.progOpen);
    EXPECT_EQ(dialogs.fileDialogs.size(), 1);
}

TEST_F(ProgramPageFileTest, APendingPathIsTakenEvenIfItsFileCannotBeRead)
{
    sPendingProgFile = application.filePath("no.b");
    press(page.progOpen);
    EXPECT_EQ(sPendingProgFile, "");
    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '53':\n\nFile not found"));
}

TEST_F(ProgramPageFileTest, AFileFillsEveryCellAndTheChain)
{
    openFile(finished(example()));

    EXPECT_EQ(cellState(0), "1|1,1,SKIP,0,1,0.1,1,0.2,1,0.3,1,0.4,1|P1 S1 Run as SKIP|#800000|#ffffff|12|centered");
    EXPECT_EQ(cellState(34), "35|4,5,AUTO,34,1,3.5,1,3.6,1,3.7,1,3.8,35|P4 S5 Run as AUTO|#000080|#ffffff|12|centered");
    EXPECT_EQ(cell(119).tag(), "12,10,MANUAL,119,1,12.0,1,12.1,1,12.2,1,12.3,120");
    EXPECT_EQ(links(), "12 11 10 9 8 7 6 5 4 3 2 1 4");
    EXPECT_EQ(chain(12).text(), "P05");
    EXPECT_FALSE(tags().contains(QString()));
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(ProgramPageFileTest, AStepStandsAtItsPlaceInTheFile)
{
    QByteArray bytes = finished(ProgFileRecord{});
    bytes[4359] = 16; // memory 17
    bytes[4432] = 25; // 2.5 s
    bytes[3] = 16 + 25;
    openFile(bytes);
    EXPECT_EQ(cell(23).tag().section(',', 5, 5) + ' ' + cell(23).text(), "2.5 17");
}

TEST_F(ProgramPageFileTest, AllZeroBytesAreAFileOfSkippedStepsWithoutTimes)
{
    openFile(QByteArray(5580, '\0'));

    EXPECT_EQ(cell(0).tag(), "1,1,SKIP,0,0,Off,0,Off,1,0.0,0,Off,1") << "a 0 under a checked box switches it off";
    EXPECT_EQ(cell(1).tag(), "1,2,SKIP,0,0,0.0,0,0.0,1,0.0,0,0.0,1") << "the box is off by now";
    EXPECT_EQ(cell(119).tag(), "12,10,SKIP,0,0,0.0,0,0.0,1,0.0,0,0.0,1");
    EXPECT_EQ(links(), "0 0 0 0 0 0 0 0 0 0 0 0 0");
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(ProgramPageFileTest, AStepGoesThroughTheControlsInOrderAndTheCellIsFilledAfterTheYield)
{
    watchHandlers();
    watchCellsAndControls();
    journal.watch(page.frameMemorySetting, "frame");
    page.fraProgramOrder.raise();
    journal.clear();

    openFile(withStep(1, 1, [](ProgramBlock& block, std::size_t step) {
        block.Memory[step] = 16;
        block.RunMode[step] = 1;
        block.OnTimer[step] = 600;
        block.OffTime[step] = 0;
        block.PFTime[step] = 7;
        block.ShortTime[step] = 8;
        block.ShortCH[step] = 5;
    }));

    const auto rest = [](const QString& fields) { return "controls 0: 1,1,AUTO," + fields + ",17"; };
    const QStringList expected{"raise frame",
                               rest(",1,60.0,1,0.1,1,0.1,1,0.1"),
                               "fires txtProgMem0 60.0",
                               "message \"On-Timer: Value should between 0.1  -  60\" critical Ok",
                               rest(",1,0.01,1,0.1,1,0.1,1,0.1"),
                               "fires txtProgMem0 0.01",
                               rest(",1,0.01,1,0.0,1,0.1,1,0.1"),
                               "fires txtProgMem1 0.0",
                               rest(",1,0.01,0,0.0,1,0.1,1,0.1"),
                               "fires chkMemSet1 0",
                               rest(",1,0.01,0,Off,1,0.1,1,0.1"),
                               "fires txtProgMem1 Off",
                               rest(",1,0.01,0,Off,1,0.7,1,0.1"),
                               "fires txtProgMem2 0.7",
                               rest(",1,0.01,0,Off,1,0.7,1,0.8"),
                               "fires txtProgMem3 0.8",
                               rest("5,1,0.01,0,Off,1,0.7,1,0.8"),
                               "fires chkShortCH0 1 of 5",
                               rest("1,1,0.01,0,Off,1,0.7,1,0.8"),
                               "fires chkShortCH2 1 of 1",
                               rest("5,1,0.01,0,Off,1,0.7,1,0.8"),
                               "yield",
                               "cell 0 1,1,AUTO,5,1,0.01,0,Off,1,0.7,1,0.8,17"};
    EXPECT_EQ(journal.lines().mid(1, expected.size()), expected);
}

TEST_F(ProgramPageFileTest, TheFrameStaysHiddenAndItsTagIsThatOfTheLastCell)
{
    journal.watch(page.frameMemorySetting, "frame");
    journal.clear();
    openFile(finished(example()));
    EXPECT_THAT(journal.linesOf({"show", "hide"}), IsEmpty());
    EXPECT_EQ(page.frameMemorySetting.tag(), "119");

    mouseDown(4);
    openFile(finished(example()));
    EXPECT_FALSE(page.frameMemorySetting.visible()) << "an open one is hidden";
}

TEST_F(ProgramPageFileTest, OtherEventsRunBetweenTwoCells)
{
    const qint64 before = clock.elapsed();
    QStringList seen;
    clock.at(before + 3, [&] { seen << cell(1).text() + '|' + cell(2).text() + '|' + page.cmbMemory.text(); });

    openFile(finished(example()));

    EXPECT_EQ(clock.elapsed() - before, 120) << "one yield a step";
    EXPECT_THAT(seen, ElementsAre("2||3")) << "cell 2 is filled after its yield";
}

TEST_F(ProgramPageFileTest, ABadChecksumIsReportedAndThePageKeepsAllItHad)
{
    fillSome();
    const QStringList before = tags();
    QByteArray bytes = finished(example());
    bytes[5000] = static_cast<char>(bytes[5000] + 1);

    openFile(bytes);

    EXPECT_THAT(journal.linesOf({"message", "yield"}), ElementsAre("message \"Checksum Error\" none Ok"));
    EXPECT_EQ(tags(), before);
    EXPECT_EQ(links(), "0 0 0 7 0 0 0 0 0 0 0 0 0");
    EXPECT_FALSE(page.progSend.enabled());
}

TEST_F(ProgramPageFileTest, AChangeToAnyPartOfTheFileIsAChecksumError)
{
    const QByteArray good = finished(example());
    for (const qsizetype at :
         {0, 1, 2, 3, 4, 2000, 4111, 4112, 4115, 4116, 5555, 5556, 5557, 5558, 5570, 5571, 5572, 5579}) {
        QByteArray bytes = good;
        bytes[at] = static_cast<char>(bytes[at] + 1);
        dialogs.shown.clear();
        openFile(bytes);
        EXPECT_THAT(dialogs.shown, ElementsAre(Shown{"Checksum Error", noIcon})) << at;
    }
    EXPECT_EQ(cell(0).tag(), "");
}

TEST_F(ProgramPageFileTest, TwoSwappedBytesPassTheChecksum)
{
    QByteArray bytes = finished(example());
    std::swap(bytes[4116], bytes[4116 + 9]);
    openFile(bytes);
    EXPECT_THAT(dialogs.shown, IsEmpty());
    EXPECT_EQ(cell(0).text() + ' ' + cell(9).text(), "10 1");
}

TEST_F(ProgramPageFileTest, AStoredSumWithItsTopBitSetNeverMatches)
{
    QByteArray bytes(5580, '\0');
    bytes[0] = '\x80';
    openFile(bytes);
    EXPECT_THAT(dialogs.shown, ElementsAre(Shown{"Checksum Error", noIcon}));
}

TEST_F(ProgramPageFileTest, SixtySecondsUnderACheckedBoxAreRefusedAndTheCellGetsAHundredth)
{
    openFile(withOnTimer(600));
    EXPECT_THAT(dialogs.shown, ElementsAre(Shown{"On-Timer: Value should between 0.1  -  60", critical}));
    EXPECT_EQ(cell(0).tag(), "1,1,SKIP,0,1,0.01,0,Off,1,0.0,0,Off,1");
}

TEST_F(ProgramPageFileTest, SixtySecondsUnderAnUncheckedBoxStand)
{
    timeBox(0).setValue(CheckBox::Unchecked);
    openFile(withOnTimer(600));
    EXPECT_THAT(dialogs.shown, IsEmpty());
    EXPECT_EQ(cell(0).tag(), "1,1,SKIP,0,0,60.0,0,Off,1,0.0,0,Off,1");
}

TEST_F(ProgramPageFileTest, JustBelowSixtySecondsIsAccepted)
{
    openFile(withOnTimer(599));
    EXPECT_THAT(dialogs.shown, IsEmpty());
    EXPECT_EQ(cell(0).tag(), "1,1,SKIP,0,1,59.9,0,Off,1,0.0,0,Off,1");
}

TEST_F(ProgramPageFileTest, ANegativeTimeUnderACheckedBoxIsRefused)
{
    openFile(withOnTimer(-5));
    EXPECT_THAT(dialogs.shown, ElementsAre(Shown{"On-Timer: Value should between 0.1  -  60", critical}));
}

TEST_F(ProgramPageFileTest, AMemoryOutsideOfTheListEndsTheProgramAndFillsNoCell)
{
    openFile(withStep(2, 3, [](ProgramBlock& block, std::size_t step) { block.Memory[step] = 120; }));
    EXPECT_THAT(processExit.reports, ElementsAre(invalidValue));
    EXPECT_NE(cell(11).tag(), "");
    EXPECT_EQ(cell(12).tag(), "");
}

TEST_F(ProgramPageFileTest, ARunModeOutsideOfTheListEndsTheProgram)
{
    openFile(withStep(1, 1, [](ProgramBlock& block, std::size_t step) { block.RunMode[step] = 3; }));
    EXPECT_THAT(processExit.reports, ElementsAre(invalidValue));
    EXPECT_THAT(tags(), Each(QString()));
}

TEST_F(ProgramPageFileTest, AMaskOfTwoHundredAndFiftySixEndsTheProgramAndFillsNoCell)
{
    openFile(withStep(1, 1, [](ProgramBlock& block, std::size_t step) { block.ShortCH[step] = 256; }));
    EXPECT_THAT(processExit.reports, ElementsAre(noElement));
    EXPECT_THAT(tags(), Each(QString()));
    EXPECT_FALSE(page.progSend.enabled());
}

TEST_F(ProgramPageFileTest, ALinkOutsideOfTheListEndsTheProgramAfterTheStepsOfItsProgram)
{
    ProgFileRecord record = example();
    record.ChainNext[1] = 13;
    openFile(finished(record));
    EXPECT_THAT(processExit.reports, ElementsAre(invalidValue));
    EXPECT_EQ(chain(0).listIndex(), 12);
    EXPECT_NE(cell(19).tag(), "");
    EXPECT_EQ(cell(20).tag(), "");
}

TEST_F(ProgramPageFileTest, AStartOutsideOfTheListEndsTheProgramAfterAllLinks)
{
    ProgFileRecord record = example();
    record.ChainStart = 12;
    openFile(finished(record));
    EXPECT_THAT(processExit.reports, ElementsAre(invalidValue));
    EXPECT_EQ(links(), "12 11 10 9 8 7 6 5 4 3 2 1 0");
}

TEST_F(ProgramPageFileTest, TheTwoSpareLinksAreNeverRead)
{
    ProgFileRecord record = example();
    record.ChainNext[12] = record.ChainNext[13] = 200;
    openFile(finished(record));
    EXPECT_THAT(processExit.reports, IsEmpty());
}

TEST_F(ProgramPageFileTest, AFileThatIsNotThereEndsTheProgramAndThePageIsUnchanged)
{
    fillSome();
    const QStringList before = tags();
    dialogs.files = {application.filePath("no.b")};
    press(page.progOpen);
    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '53':\n\nFile not found"));
    EXPECT_EQ(tags(), before);
}

TEST_F(ProgramPageFileTest, AfterAReadTheTransferIsEnabledWithItsPictureIfTheInstrumentIsConnected)
{
    openFile(finished(example()));
    EXPECT_TRUE(page.progSend.enabled());
    EXPECT_EQ(page.progSend.picture(), paths.inApplication("\\ICON\\SEQINTO.JPG"));

    instrument.connected = false;
    openFile(finished(example()));
    EXPECT_FALSE(page.progSend.enabled());
    EXPECT_EQ(page.progSend.picture(), paths.inApplication("\\ICON\\SEQINTO.JPG")) << "it stays as it was";
}

TEST_F(ProgramPageFileTest, TheLinkIsReadOnceAfterARead)
{
    openFile(finished(example()));
    EXPECT_THAT(journal.linesOf({"read"}), ElementsAre("read IsConnected True"));
}

TEST_F(ProgramPageFileTest, AShortFileKeepsTheBytesThatTheRecordHeld)
{
    const QByteArray good = finished(example());
    QByteArray bad = good;
    bad[3] = static_cast<char>(bad[3] + 1);
    openFile(bad); // refused, but its bytes stay in the record

    openFile(good.left(4));

    EXPECT_EQ(cell(34).text(), "35");
    EXPECT_EQ(dialogs.shown.size(), 1);
}

TEST_F(ProgramPageFileTest, ALongFileIsReadUpToTheEndOfTheRecord)
{
    openFile(finished(example()) + QByteArray(1000, 'x'));
    EXPECT_EQ(cell(34).text(), "35");
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

} // namespace
