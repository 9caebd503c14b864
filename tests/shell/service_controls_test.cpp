// SPDX-License-Identifier: GPL-3.0-or-later
#include "service_controls.h"

#include "form_orb_test.h"

using namespace orb;

namespace {

class ServiceControlsTest : public FormORBTest {
protected:
    ServiceControlsTest()
    {
        instrument.connected = true;
        load();
    }
};

TEST_F(ServiceControlsTest, TheOperatorsFormNeverShowsThem)
{
    clock.advance(5000);
    press(form.pageDisplay);
    EXPECT_EQ(shownGroups(), "CORB");
    click(&FormORB::pageDisplayClick);
    press(form.fraDisplay.dispPlay);
    EXPECT_FALSE(form.fraDisplay.dispPause.visible());
}

TEST_F(ServiceControlsTest, WithThemTheDisplayPageAndItsPauseCanBePressed)
{
    run.enter([this] { showServiceControls(form); });
    press(form.pageDisplay);
    EXPECT_EQ(shownGroups(), "fraDisplay");
    press(form.fraDisplay.dispPlay);
    EXPECT_TRUE(form.fraDisplay.TimerDisplay.enabled());
    press(form.fraDisplay.dispPause);
    EXPECT_FALSE(form.fraDisplay.TimerDisplay.enabled());
}

TEST_F(ServiceControlsTest, SequenceSimulateIsShownOnlyWithThem)
{
    press(form.pageSequence);
    EXPECT_FALSE(form.fraSequence.seqPlot.visible());
    run.enter([this] { showServiceControls(form); });
    press(form.pageSequence);
    EXPECT_TRUE(form.fraSequence.seqPlot.visible());
}

TEST_F(ServiceControlsTest, TheEndOfTheRowKeepsItsPlaceBesideTheNinthButton)
{
    QWidget bar;
    form.setRowEnd(bar);
    const QRect place = bar.geometry();
    run.enter([this] { showServiceControls(form); });
    press(form.pageConnect);
    press(form.pageSequence);
    EXPECT_NEAR(bar.geometry().left(), place.left(), 8);
    EXPECT_GT(bar.geometry().left(), form.pageDisplay.geometry().right());
    EXPECT_GT(form.pageDisplay.geometry().left(), form.pageExit.geometry().right());
}

} // namespace
