// SPDX-License-Identifier: GPL-3.0-or-later
#include "form_orb_test.h"

using namespace orb;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// A switch of the page, an exit or a close while a recording or a run of commands is under way, with the instrument
/// connected.
class FormORBRunningTest : public FormORBTest {
protected:
    FormORBRunningTest()
    {
        load();
        form.show();
        instrument.connected = true;
    }

    /// Records from the Data Log page until the test stops it.
    void record()
    {
        instrument.channelCount = 2;
        instrument.onCommand = [](const QString&) { return QStringLiteral("1.1000,2.2000,"); };
        click(&FormORB::pageWaveClick);
        press(form.frmDatalog.logStart);
    }

    /// Repeats two lines from the Command page until the test stops it.
    void runCommands()
    {
        press(form.pageCommand);
        press(form.fraCommand.chkRepeat);
        press(form.fraCommand.cmdStart);
    }

    QString rows() const { return table("select count(*) from DataMeasure").trimmed(); }
};

TEST_F(FormORBRunningTest, LeavingTheCommandPageEndsARunThatTheOperatorBegan)
{
    form.fraCommand.lstCmdPool.addItems({"1", "2"});
    for (PictureButton* page : {&form.pageControl, &form.PageProgram, &form.pageSequence, &form.pageWave}) {
        instrument.sent.clear();
        clock.at(clock.elapsed() + 300, [&] { press(*page); });

        runCommands();

        EXPECT_THAT(instrument.sent, ElementsAre("1", "2", "1")) << page->caption().toStdString();
        EXPECT_FALSE(form.fraCommand.cmdStop.enabled());
    }
}

TEST_F(FormORBRunningTest, LeavingTheCommandPageKeepsARunOfTheHiddenTwinGoing)
{
    form.fraCommand.lstCmdPool.addItems({"1", "2"});
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

TEST_F(FormORBRunningTest, TheConnectPageKeepsARunGoing)
{
    form.fraCommand.lstCmdPool.addItems({"1", "2"});
    clock.at(300, [&] { press(form.pageConnect); });
    clock.at(900, [&] {
        EXPECT_TRUE(form.fraCommand.cmdStop.enabled());
        press(form.pageControl);
    });

    runCommands();

    EXPECT_THAT(instrument.sent, ElementsAre("1", "2", "1", "2", "1", "2"));
}

TEST_F(FormORBRunningTest, ClosingTheFormDuringARunEndsTheProcessAtThatYield)
{
    form.fraCommand.lstCmdPool.addItems({"1", "2"});
    clock.at(300, [&] { form.close(); });

    runCommands();

    EXPECT_EQ(processExit.exits, 1);
    EXPECT_THAT(processExit.reports, IsEmpty());
    EXPECT_THAT(instrument.sent, ElementsAre("1", "2", "1"));
}

TEST_F(FormORBRunningTest, TheDataLogAndTheConnectPageKeepALogRunningAndTheCommandPageStopsIt)
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

    record();

    EXPECT_FALSE(form.frmDatalog.bLogRunning);
    EXPECT_EQ(rows(), "5") << "the cycle of the yield in which it was stopped still ran";
    EXPECT_EQ(shownGroups(), "fraCommand");
}

TEST_F(FormORBRunningTest, TheDataLogPagePressedDuringARecordingKeepsTheStartButtonDisabled)
{
    clock.at(1500, [&] { press(form.pageWave); });
    clock.at(2500, [&] {
        EXPECT_FALSE(form.frmDatalog.logStart.enabled());
        EXPECT_EQ(form.frmDatalog.logStart.picture(), paths.inApplication("\\ICON\\B1RUNSTART.JPG"));
        press(form.frmDatalog.logStart); // and no second recording begins
        press(form.frmDatalog.logStop);
    });

    record();

    EXPECT_EQ(rows(), "4");
    EXPECT_TRUE(form.frmDatalog.logStart.enabled());
}

TEST_F(FormORBRunningTest, AnExitDuringARecordingEndsTheProcessWithoutAStopAndWithoutClosingTheDatabase)
{
    clock.at(2000, [&] { press(form.pageExit); });

    record();

    EXPECT_EQ(processExit.exits, 1);
    EXPECT_TRUE(form.frmDatalog.logStop.enabled());
    EXPECT_TRUE(form.dbMain.isOpen());
    EXPECT_EQ(rows(), "2");
}

TEST_F(FormORBRunningTest, ClosingTheFormDuringARecordingClosesTheDatabaseAndEndsTheProcessAtThatYield)
{
    clock.at(2000, [&] { form.close(); });

    record();

    EXPECT_EQ(processExit.exits, 1);
    EXPECT_THAT(processExit.reports, IsEmpty());
    EXPECT_FALSE(form.dbMain.isOpen());
    EXPECT_EQ(rows(), "2");
}

} // namespace
