// SPDX-License-Identifier: GPL-3.0-or-later
#include "form_orb_test.h"

using namespace orb;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace {

/// The instrument connected and a recording under way until the test's hand stops it.
class RecordingTest : public FormORBTest {
protected:
    RecordingTest()
    {
        load();
        instrument.connected = true;
        instrument.channelCount = 2;
        instrument.onCommand = [](const QString&) { return QStringLiteral("1.1000,2.2000,"); };
        run.enter([this] { form.pageWaveClick(); });
    }

    QString rows() const { return table("select count(*) from DataMeasure").trimmed(); }
};

/// The instrument connected and two lines in the command list.
class CommandRunTest : public FormORBTest {
protected:
    CommandRunTest()
    {
        load();
        instrument.connected = true;
        form.fraCommand.lstCmdPool.addItems({"1", "2"});
    }
};

TEST_F(CommandRunTest, LeavingThePageEndsARunThatTheOperatorBegan)
{
    for (PictureButton* page : {&form.pageControl, &form.PageProgram, &form.pageSequence, &form.pageWave}) {
        instrument.sent.clear();
        clock.at(clock.elapsed() + 300, [&] { press(*page); });
        press(form.pageCommand);
        press(form.fraCommand.chkRepeat);

        press(form.fraCommand.cmdStart);

        EXPECT_THAT(instrument.sent, ElementsAre("1", "2", "1")) << page->caption().toStdString();
        EXPECT_FALSE(form.fraCommand.cmdStop.enabled());
    }
}

TEST_F(CommandRunTest, LeavingThePageKeepsARunOfTheHiddenTwinWhichGoesOnBehindAnotherPage)
{
    clock.at(300, [&] { press(form.pageWave); });
    clock.at(900, [&] {
        EXPECT_EQ(shownGroups(), "frmDatalog");
        form.fraCommand.chkRepeat.setValue(CheckBox::Unchecked);
    });
    press(form.pageCommand);
    press(form.fraCommand.chkRepeat);

    run.enter([this] { form.fraCommand.cmdGoClick(); });

    EXPECT_THAT(instrument.sent, ElementsAre("1", "2", "1", "2", "1", "2"));
}

TEST_F(CommandRunTest, TheConnectPageKeepsARunGoing)
{
    clock.at(300, [&] { press(form.pageConnect); });
    clock.at(900, [&] {
        EXPECT_TRUE(form.fraCommand.cmdStop.enabled());
        press(form.pageControl);
    });
    press(form.pageCommand);
    press(form.fraCommand.chkRepeat);

    press(form.fraCommand.cmdStart);

    EXPECT_GT(instrument.sent.size(), 4);
}

TEST_F(CommandRunTest, ClosingTheFormDuringARunEndsTheProcessAtThatYield)
{
    clock.at(300, [&] { form.close(); });
    press(form.pageCommand);
    press(form.fraCommand.chkRepeat);

    press(form.fraCommand.cmdStart);

    EXPECT_EQ(processExit.exits, 1);
    EXPECT_THAT(processExit.reports, IsEmpty());
    EXPECT_THAT(instrument.sent, ElementsAre("1", "2", "1"));
}

TEST_F(RecordingTest, TheDataLogAndTheConnectPageKeepALogRunningAndTheCommandPageStopsIt)
{
    clock.at(1500, [&] { press(form.pageWave); });
    clock.at(2500, [&] {
        EXPECT_TRUE(form.frmDatalog.bLogRunning);
        press(form.pageConnect);
    });
    clock.at(3500, [&] {
        EXPECT_TRUE(form.frmDatalog.bLogRunning);
        press(form.pageCommand);
    });

    press(form.frmDatalog.logStart);

    EXPECT_FALSE(form.frmDatalog.bLogRunning);
    EXPECT_EQ(rows(), "5") << "the cycle of the yield in which it was stopped still ran";
    EXPECT_EQ(shownGroups(), "fraCommand");
}

TEST_F(RecordingTest, AnExitDuringARecordingEndsTheProcessWithoutAStopAndWithoutClosingTheDatabase)
{
    clock.at(2000, [&] { press(form.pageExit); });

    press(form.frmDatalog.logStart);

    EXPECT_EQ(processExit.exits, 1);
    EXPECT_TRUE(form.frmDatalog.logStop.enabled());
    EXPECT_TRUE(form.dbMain->isOpen());
    EXPECT_EQ(rows(), "2");
}

TEST_F(RecordingTest, ClosingTheFormDuringARecordingClosesTheDatabaseAndEndsTheProcessAtThatYield)
{
    clock.at(2000, [&] { form.close(); });

    press(form.frmDatalog.logStart);

    EXPECT_EQ(processExit.exits, 1);
    EXPECT_THAT(processExit.reports, IsEmpty());
    EXPECT_FALSE(form.dbMain->isOpen());
    EXPECT_EQ(rows(), "2");
}

} // namespace
