// SPDX-License-Identifier: GPL-3.0-or-later
// ALL OFF in the whole program: on every page, and in the middle of whatever is going on.
#include "channel_card.h"
#include "program_test.h"
#include "record_file.h"
#include "sequence_records.h"

#include <QApplication>
#include <QTest>

namespace orb {

namespace {
using testing::ElementsAre;
using testing::IsEmpty;

const QString allOff = QStringLiteral(":LOAD:ALL OFF");
} // namespace

class AllOffTest : public ProgramTest {
protected:
    AllOffTest()
    {
        connect();
        simulated.execute(":LOAD:ALL ON");
    }

    std::string inputs() { return simulated.execute(":LOAD:ALL?"); }
    /// What goes out and when the program yields, in order.
    QStringList sentAndYields() { return journal.linesOf({QStringLiteral("send"), QStringLiteral("yield")}); }
    /// What goes out while `act` runs, and in the ten seconds after it.
    QStringList sentBy(const std::function<void()>& act)
    {
        journal.clear();
        act();
        clock.advance(10'000);
        return sent();
    }
};

TEST_F(AllOffTest, InTheMiddleOfARecordingItGoesOutAtTheNextYieldAndCostsNoSample)
{
    press(form().pageWave);
    journal.clear();
    pressAllOffAfter(1500);
    clock.at(clock.elapsed() + 2500, [&] { press(form().frmDatalog.logStop); });

    press(form().frmDatalog.logStart);

    EXPECT_THAT(sentAndYields(),
                ElementsAre("yield", "send :FETC:ALLC?", "send :FETC:ALLV?", "yield", "send :FETC:ALLC?",
                            "send :FETC:ALLV?", "yield", "send :LOAD:ALL OFF", "send :FETC:ALLC?", "send :FETC:ALLV?",
                            "yield", "send :FETC:ALLC?", "send :FETC:ALLV?"));
    EXPECT_EQ(table("select SeqNo, PVal1 > 1, SVal4 > 1 from DataMeasure"), "0|1|1\n1|1|1\n2|0|1\n3|0|1\n");
    EXPECT_EQ(inputs(), "0,0,0,0");
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(AllOffTest, InTheMiddleOfACommandRunItGoesOutAtTheNextYieldAndTheRunGoesOn)
{
    press(form().pageCommand);
    form().fraCommand.lstCmdPool.addItems({"CURR1 1", "CURR1 2"});
    press(form().fraCommand.chkRepeat);
    journal.clear();
    pressAllOffAfter(300);
    clock.at(clock.elapsed() + 700, [&] { press(form().fraCommand.cmdStop); });

    press(form().fraCommand.cmdStart);

    EXPECT_THAT(sentAndYields(), ElementsAre("send CURR1 1", "yield", "send CURR1 2", "yield", "send CURR1 1", "yield",
                                             "send :LOAD:ALL OFF", "send CURR1 2", "yield", "send CURR1 1", "yield"));
    EXPECT_EQ(inputs(), "0,0,0,0");
}

TEST_F(AllOffTest, DuringASequenceTransferItGoesOutWhenTheTransferIsDone)
{
    press(form().pageSequence);
    form().sPendingSeqFile = application.filePath(QStringLiteral("sequence.a"));
    writeRecord(form().sPendingSeqFile, sequenceRecord(3));
    press(form().fraSequence.seqOpen);
    clock.allow(10'000'000);
    const QStringList undisturbed = sentBy([&] { press(form().fraSequence.seqSend); });
    ASSERT_GT(undisturbed.size(), 10);
    simulated.execute(":LOAD:ALL ON");

    const QStringList disturbed = sentBy([&] {
        pressAllOffAfter(1000);
        press(form().fraSequence.seqSend);
        EXPECT_EQ(inputs(), "1,1,1,1") << "a transfer does not yield";
    });

    EXPECT_EQ(disturbed, undisturbed + QStringList(allOff));
    EXPECT_EQ(inputs(), "0,0,0,0");
}

TEST_F(AllOffTest, DuringAProgramTransferItGoesOutAtTheYieldBeforeTheNextStep)
{
    press(form().PageProgram);
    clock.allow(10'000'000);
    const auto write = [&] { run.enter([&] { form().fraProgram.WriteProgramByCommands(); }); };
    QStringList undisturbed = sentBy(write);
    simulated.execute(":LOAD:ALL ON");

    const QStringList disturbed = sentBy([&] {
        pressAllOffAfter(1500);
        write();
    });

    const qsizetype at = disturbed.indexOf(allOff);
    ASSERT_GT(at, 0);
    EXPECT_EQ(disturbed.value(at + 1), ":PROG:SEQ 3") << "1500 ms are in the second step, of nine times 100 ms";
    undisturbed.insert(at, allOff);
    EXPECT_EQ(disturbed, undisturbed);
    EXPECT_EQ(inputs(), "0,0,0,0");
}

TEST_F(AllOffTest, DuringAProgramFileTransferItGoesOutAtTheNextYieldBeforeTheFile)
{
    press(form().PageProgram);
    clock.allow(10'000'000);
    dialogs.answers = {Answer::Yes, Answer::Yes};
    press(form().fraProgram.progLoad);
    QStringList undisturbed = sentBy([&] { press(form().fraProgram.progSend); });
    ASSERT_THAT(undisturbed, Not(IsEmpty()));
    simulated.execute(":LOAD:ALL ON");

    const QStringList disturbed = sentBy([&] {
        pressAllOffAfter(20); // 120 yields, 1 ms each
        press(form().fraProgram.progSend);
    });

    const qsizetype at = disturbed.indexOf(allOff);
    ASSERT_GE(at, 0);
    EXPECT_LT(at, disturbed.size() - 1) << "the file is sent after it";
    undisturbed.insert(at, allOff);
    EXPECT_EQ(disturbed, undisturbed);
}

/// F12 on each page, with the focus in what takes keys there.
TEST_F(AllOffTest, F12PressesItOnEveryPageWhateverHasTheFocus)
{
    const std::tuple<PictureButton*, QWidget*> cases[] = {
        {&form().pageConnect, &CORB().connectPage.cmbAddress},
        {&form().pageControl, &CORB().controlPage.cards.at(0)->txtSetValue},
        {&form().pageCommand, &form().fraCommand.txtValue},
        {&form().pageCommand, &form().fraCommand.lstCommand},
        {&form().pageWave, &form().frmDatalog.XPosition},
        {&form().pageWave, &form().frmDatalog.DBGrid1},
        {&form().pageSequence, &form().fraSequence.DBGridHead},
        {&form().PageProgram, &form().fraProgram.cmbProgChain[0]},
        {&form().PageProgram, &form().fraProgram.txtMemSetting[0]},
    };
    clock.allow(10'000'000);
    for (const auto& [page, focus] : cases) {
        press(*page);
        clock.advance(1000);
        form().activateWindow();
        focus->setFocus();
        QApplication::processEvents();
        simulated.execute(":LOAD:ALL ON");
        journal.clear();

        QTest::keyClick(focus, Qt::Key_F12);

        EXPECT_THAT(sent(), ElementsAre(allOff)) << page->caption().toStdString();
        EXPECT_EQ(inputs(), "0,0,0,0");
    }
}

} // namespace orb
