// SPDX-License-Identifier: GPL-3.0-or-later
#include "page_test.h"

#include "connection_supervisor.h"

using namespace orb;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const Shown reconnectPrompt{"Do you want to reconnect ORB device?", Icon::None, Buttons::YesNo};

class ConnectionSupervisorTest : public PageTest {
protected:
    QString buttons() const
    {
        return QStringLiteral("%1 %2 %3")
            .arg(pageControl.enabled())
            .arg(pageDisplay.enabled())
            .arg(pageCommand.enabled());
    }
    QString picture() const { return pageControl.picture().section('\\', -1); }

    Form form{run};
    PictureButton pageControl, pageDisplay, pageCommand;
    ConnectionSupervisor supervisor{clock, paths, instrument, form, pageControl, pageDisplay, pageCommand};
};

TEST_F(ConnectionSupervisorTest, ATickReadsTheLinkOnceForItselfAndOnceForEachPageInOrder)
{
    journal.watch(pageControl, "pageControl");
    journal.watch(pageDisplay, "pageDisplay");
    journal.watch(pageCommand, "pageCommand");
    journal.watchTimer(supervisor.TimerChkConnected, "TimerChkConnected");
    journal.watchText(&form, [this] { return form.caption(); });
    instrument.connectedReads = {false, false, true, false};
    journal.clear();

    clock.advance(1200);
    EXPECT_THAT(journal.lines(), ElementsAre("read IsConnected False", "disable pageControl",
                                             "picture pageControl APP\\ICON\\A3RMTCTRLSTOP.JPG",
                                             "ZN ORB Device[DisConnected]", "read IsConnected False",
                                             "read IsConnected True", "read IsConnected False", "disable pageCommand"));
    instrument.connected = true;
    journal.clear();

    clock.advance(1200);
    EXPECT_THAT(journal.lines(), ElementsAre("read IsConnected True", "timer TimerChkConnected off",
                                             "picture pageControl APP\\ICON\\A3RMTCTRL.jpg", "ZN ORB Device[Connected]",
                                             "read IsConnected True", "enable pageControl", "read IsConnected True",
                                             "read IsConnected True", "enable pageCommand"));
}

TEST_F(ConnectionSupervisorTest, WhileNoLinkIsSeenTheSupervisorGoesOnWatchingWithTheThreePagesDisabled)
{
    clock.advance(1199);
    EXPECT_EQ(buttons(), "1 1 1");
    clock.advance(1);
    EXPECT_EQ(buttons(), "0 0 0");
    clock.advance(2400);

    EXPECT_EQ(form.caption(), "ZN ORB Device[DisConnected]");
    EXPECT_EQ(picture(), "A3RMTCTRLSTOP.JPG");
    EXPECT_TRUE(supervisor.TimerChkConnected.enabled());
}

TEST_F(ConnectionSupervisorTest, TheFirstLinkSeenEnablesThePagesAndEndsTheWatchForGood)
{
    clock.advance(1200);
    instrument.connected = true;
    clock.advance(1200);

    EXPECT_EQ(form.caption(), "ZN ORB Device[Connected]");
    EXPECT_EQ(picture(), "A3RMTCTRL.jpg");
    EXPECT_EQ(buttons(), "1 1 1");
    EXPECT_FALSE(supervisor.TimerChkConnected.enabled());
}

TEST_F(ConnectionSupervisorTest, ALinkThatComesUpWithinATickEnablesTheButtonsOneTickBeforeTheTitleChanges)
{
    instrument.connectedReads = {false};
    instrument.connected = true;
    clock.advance(1200);
    EXPECT_EQ(form.caption(), "ZN ORB Device[DisConnected]");
    EXPECT_EQ(picture(), "A3RMTCTRLSTOP.JPG");
    EXPECT_EQ(buttons(), "1 1 1");

    clock.advance(1200);
    EXPECT_EQ(form.caption(), "ZN ORB Device[Connected]");
}

TEST_F(ConnectionSupervisorTest, EachButtonHasItsOwnReadOfTheLink)
{
    instrument.connectedReads = {true, true, false, true};
    clock.advance(1200);
    EXPECT_EQ(buttons(), "1 0 1");
}

TEST_F(ConnectionSupervisorTest, ALinkThatFallsAfterwardsChangesNothing)
{
    instrument.connected = true;
    clock.advance(1200);
    instrument.connected = false;
    clock.advance(12'000);

    EXPECT_EQ(form.caption(), "ZN ORB Device[Connected]");
    EXPECT_EQ(picture(), "A3RMTCTRL.jpg");
    EXPECT_EQ(buttons(), "1 1 1");
}

TEST_F(ConnectionSupervisorTest, AReconnectThatFailsLeavesTitleAndButtonsAsTheyWere)
{
    instrument.connected = true;
    clock.advance(1200);
    instrument.onReconnect = [&] { instrument.connected = false; };
    dialogs.answers = {Answer::Yes};

    EXPECT_TRUE(askToReconnect(instrument, dialogs));
    clock.advance(12'000);

    EXPECT_THAT(instrument.calls, ElementsAre("Reconnect"));
    EXPECT_EQ(form.caption(), "ZN ORB Device[Connected]");
    EXPECT_EQ(buttons(), "1 1 1");
}

TEST_F(ConnectionSupervisorTest, WithoutALinkThereIsNoPrompt)
{
    EXPECT_TRUE(askToReconnect(instrument, dialogs));
    EXPECT_THAT(dialogs.shown, IsEmpty());
    EXPECT_THAT(instrument.calls, IsEmpty());
}

TEST_F(ConnectionSupervisorTest, ANoLeavesTheLinkAsItWas)
{
    instrument.connected = true;
    dialogs.answers = {Answer::No};

    EXPECT_FALSE(askToReconnect(instrument, dialogs));

    EXPECT_THAT(dialogs.shown, ElementsAre(reconnectPrompt));
    EXPECT_THAT(instrument.calls, IsEmpty());
}

} // namespace
