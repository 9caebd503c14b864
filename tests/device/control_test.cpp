// SPDX-License-Identifier: GPL-3.0-or-later
#include "control_fixture.h"
#include "paths.h"
#include "staging_files.h"

namespace orb {

namespace {
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
} // namespace

TEST_F(ControlTest, HasItsDesignSize)
{
    EXPECT_EQ(control->widthTwips(), 8115);
    EXPECT_EQ(control->heightTwips() / 15, 445);
}

TEST_F(ControlTest, IsQuietWithoutALink)
{
    EXPECT_FALSE(control->IsConnected());
    EXPECT_EQ(control->ChannelCount(), 0);
    EXPECT_EQ(control->LinkType(), 0);
    EXPECT_EQ(control->Reply(), "");
    control->SendCommand(QStringLiteral(":KEYB:CODE 1"));
    control->SendCommand(QStringLiteral("*IDN?"));
    EXPECT_EQ(control->Reply(), "");
    EXPECT_FALSE(control->GrabScreen());
    control->FetchProgramFile();
    control->FetchSequenceFile();
    control->SendProgramFile();
    control->PanelActive(false);
    control->PanelActive(false);
    control->Reconnect();
    EXPECT_FALSE(control->IsConnected());
    EXPECT_FALSE(fileExists(staging::program));
    EXPECT_FALSE(fileExists(staging::screen));
    EXPECT_THAT(clock.sleeps, IsEmpty());
}

TEST_F(ControlTest, ConnectsToTheSimulatedInstrumentAtTheFirstPress)
{
    connectSimulated();
    EXPECT_TRUE(control->IsConnected());
    EXPECT_EQ(control->ChannelCount(), 6);
    EXPECT_EQ(control->LinkType(), 0);
    control->SendCommand(QStringLiteral(":FETC:ALLV?"));
    EXPECT_EQ(control->Reply().count(QLatin1Char(',')), 6);
    EXPECT_TRUE(control->Reply().endsWith(QLatin1Char(',')));
}

TEST_F(ControlTest, LosesNothingBehindAQueryThatTheSimulatedInstrumentDoesNotKnow)
{
    connectSimulated();
    for (int i = 0; i < 3; ++i) {
        control->SendCommand(QStringLiteral(":NO:SUCH:THING?"));
        EXPECT_EQ(control->Reply(), "");
        control->SendCommand(QStringLiteral("*IDN?"));
        EXPECT_EQ(control->Reply(), "ZN,ORB3000,SIM0001,1.0");
    }
    EXPECT_THAT(clock.sleeps, IsEmpty());
}

TEST_F(ControlTest, NeverConnectsByItself)
{
    control->ShowControlPage();
    control->ShowConnectPage();
    clock.advance(60'000);
    EXPECT_FALSE(control->IsConnected());
    EXPECT_EQ(line.openings, 0);
}

TEST_F(ControlTest, AnswersTheSameTextAgainAndAgain)
{
    connectSimulated();
    control->SendCommand(QStringLiteral("*IDN?"));
    EXPECT_EQ(control->Reply(), "ZN,ORB3000,SIM0001,1.0");
    control->SendCommand(QStringLiteral(":CURR 1"));
    EXPECT_EQ(control->Reply(), "ZN,ORB3000,SIM0001,1.0");
}

TEST_F(ControlTest, IsEmptyUntilTheAnswerToTheLastQueryHasCome)
{
    connectInstrument([](const QByteArray&) { return QByteArray(); });
    control->SendCommand(QStringLiteral("a?"));
    line.say("1\n", 250);
    clock.sleep(100);
    clock.sleeps.clear();
    EXPECT_EQ(control->Reply(), "");
    EXPECT_THAT(clock.sleeps, IsEmpty()); // it does not wait for an answer of which nothing is to be seen
    clock.sleep(100);
    EXPECT_EQ(control->Reply(), "");
    clock.sleep(100);
    EXPECT_EQ(control->Reply(), "1");
}

TEST_F(ControlTest, HasTheReplyDirectlyBehindTheSendWhenItComesSoon)
{
    connectInstrument();
    line.onLine = [this](const QByteArray&) { line.say("1\n", 20); };
    control->SendCommand(QStringLiteral("a?"));
    EXPECT_EQ(control->Reply(), "1");
    EXPECT_THAT(clock.sleeps, ElementsAre(20));
}

TEST_F(ControlTest, KeepsTheReplyWhenTheLinkEndsAndClearsItAtAQueryThatMeetsNone)
{
    connectInstrument([](const QByteArray&) { return QByteArray("1\n"); });
    control->SendCommand(QStringLiteral("a?"));
    line.close(1);
    clock.sleep(5);
    EXPECT_FALSE(control->IsConnected());
    EXPECT_EQ(control->Reply(), "1");
    control->SendCommand(QStringLiteral(":CURR 1"));
    EXPECT_EQ(control->Reply(), "1");
    control->SendCommand(QStringLiteral("b?"));
    EXPECT_EQ(control->Reply(), "");
}

TEST_F(ControlTest, SendsEachLineOfATextWithLineEndsForItself)
{
    connectInstrument([](const QByteArray&) { return QByteArray("1\n"); });
    control->SendCommand(QStringLiteral(":CURR 1\r\n\n:CURR 2\n"));
    control->SendCommand({});
    EXPECT_THAT(line.sent, ElementsAre(":CURR 1", ":CURR 2"));
}

TEST_F(ControlTest, NoticesAPeerThatClosedAtTheNextLook)
{
    connectInstrument();
    EXPECT_TRUE(control->IsConnected());
    line.close();
    EXPECT_FALSE(control->IsConnected());
    EXPECT_EQ(control->ChannelCount(), 0);
    EXPECT_FALSE(control->IsConnected());
    control->ShowConnectPage();
    EXPECT_EQ(status(), "load closed the link.");
}

TEST_F(ControlTest, ReconnectsOnTheSpot)
{
    connectInstrument();
    line.opensAfter = 100;
    control->Reconnect();
    EXPECT_TRUE(control->IsConnected());
    EXPECT_EQ(line.openings, 2);
    EXPECT_EQ(status(), "Connected to load.");
    EXPECT_EQ(control->ChannelCount(), 3);
}

TEST_F(ControlTest, IsDisconnectedWhenAReconnectFails)
{
    connectInstrument();
    line.openError = LinkError::Refused;
    control->Reconnect();
    EXPECT_FALSE(control->IsConnected());
    control->ShowConnectPage();
    EXPECT_THAT(status().toStdString(), testing::HasSubstr("refused the connection"));
    EXPECT_TRUE(control->connectPage.cmdConnect.enabled());
}

TEST_F(ControlTest, BlocksInAReconnectNoLongerThanItsLimits)
{
    connectInstrument();
    line.onLine = nullptr;
    const qint64 begin = clock.elapsed();
    control->Reconnect();
    EXPECT_FALSE(control->IsConnected());
    EXPECT_EQ(clock.elapsed() - begin, 2000);
}

TEST_F(ControlTest, SendsNothingOfItsOwnWhileInactive)
{
    connectInstrument();
    clock.advance(60'000);
    EXPECT_THAT(line.sent, IsEmpty());
}

TEST_F(ControlTest, TakesASecondPanelActiveFalseWithoutEffect)
{
    connectInstrument();
    control->PanelActive(false);
    control->PanelActive(false);
    clock.advance(60'000);
    EXPECT_THAT(line.sent, IsEmpty());
    control->ShowControlPage();
    clock.advance(1'000);
    EXPECT_THAT(line.sent, Not(IsEmpty())) << "one ShowControlPage outweighs them all";
}

TEST_F(ControlTest, SendsNothingOfItsOwnOffTheScreen)
{
    connectInstrument();
    control->ShowControlPage();
    control->setVisible(false);
    line.sent.clear();
    clock.advance(60'000);
    EXPECT_THAT(line.sent, IsEmpty());
    control->setVisible(true);
    form.showMinimized();
    clock.advance(60'000);
    EXPECT_THAT(line.sent, IsEmpty());
}

TEST_F(ControlTest, GoesOnConnectingOnlyWhileItMaySend)
{
    actAsInstrument(3);
    line.opensAfter = 500;
    connectScripted();
    control->PanelActive(false);
    clock.advance(30'000);
    EXPECT_THAT(line.sent, IsEmpty());
    EXPECT_FALSE(control->IsConnected());
    control->ShowConnectPage();
    clock.advance(100);
    EXPECT_TRUE(control->IsConnected());
}

TEST_F(ControlTest, RefreshesTheReadingsWithOneQueryInFlight)
{
    int open = 0;
    connectInstrument();
    line.onLine = [&](const QByteArray& text) {
        if (!isQuery(text))
            return;
        EXPECT_EQ(open, 0) << text.toStdString();
        ++open;
        line.say(text == "*OPT?" ? "K11,K12B,K13\n" : "1,2,3,;4,5,6,;7,8,9,;1,0,0\n", 120);
        clock.at(clock.elapsed() + 120, [&] { --open; });
    };
    control->ShowControlPage();
    clock.advance(5000);
    EXPECT_THAT(line.sent, Contains(":FETC:ALLV?;:FETC:ALLC?;:FETC:ALLP?;:LOAD:ALL?").Times(testing::Ge(5)));
    EXPECT_EQ(control->controlPage.cards.at(1)->lblAmperes.caption(), "5.0000");
}

TEST_F(ControlTest, KeepsItsOwnAnswersFromTheApplication)
{
    connectInstrument([](const QByteArray&) { return QByteArray("own\n"); });
    control->SendCommand(QStringLiteral("a?"));
    EXPECT_EQ(control->Reply(), "own");
    line.onLine = [this](const QByteArray& text) { line.say(text + '\n', 30); };
    control->ShowControlPage();
    clock.advance(60); // a query of the page is under way now
    const auto ownQuery = line.sent.back();
    EXPECT_EQ(control->Reply(), "own"); // the application's last answer stays
    control->SendCommand(QStringLiteral("b?"));
    clock.advance(5);
    EXPECT_EQ(control->Reply(), "b?");
    EXPECT_NE(ownQuery, "b?");
}

TEST_F(ControlTest, AwaitsItsOwnAnswerBeforeItLeavesTheLinkToTheApplication)
{
    connectInstrument();
    line.onLine = [this](const QByteArray& text) { line.say(text + '\n', 40); };
    control->ShowControlPage();
    clock.advance(50);
    ASSERT_THAT(line.sent, Not(IsEmpty()));
    control->PanelActive(false);
    EXPECT_THAT(line.arrivals, IsEmpty());
    control->SendCommand(QStringLiteral("b?"));
    EXPECT_EQ(control->Reply(), "b?");
}

TEST_F(ControlTest, DoesNotRefreshWhileTheApplicationWaitsForAnAnswer)
{
    connectInstrument();
    line.onLine = nullptr;
    control->SendCommand(QStringLiteral("slow?"));
    control->ShowControlPage();
    clock.advance(1900);
    EXPECT_THAT(line.sent, ElementsAre("slow?"));
    clock.advance(500); // it counts as lost
    EXPECT_GT(line.sent.size(), 1);
}

TEST_F(ControlTest, SwitchesALoadOnlyAtAPress)
{
    connectSimulated();
    control->ShowControlPage();
    clock.advance(60'000);
    const auto loads = [this] {
        control->SendCommand(QStringLiteral(":LOAD:ALL?"));
        return control->Reply();
    };
    EXPECT_EQ(loads(), "0,0,0,0,0,0");
    press(control->controlPage.cards[1]->cmdLoad);
    EXPECT_EQ(loads(), "0,1,0,0,0,0");
    clock.advance(1000);
    EXPECT_EQ(control->controlPage.cards[1]->lblState.caption(), "ON");
    EXPECT_EQ(control->controlPage.cards[1]->cmdLoad.caption(), "LOAD OFF");
    press(control->controlPage.cards[1]->cmdLoad);
    EXPECT_EQ(loads(), "0,0,0,0,0,0");
}

TEST_F(ControlTest, OffersToSwitchOnOnlyWhatIsKnownToBeOff)
{
    connectInstrument([](const QByteArray&) { return QByteArray("garbage\n"); });
    control->ShowControlPage();
    clock.advance(1000);
    auto& card = *control->controlPage.cards.at(0);
    EXPECT_EQ(card.cmdLoad.caption(), "LOAD OFF");
    press(card.cmdLoad);
    EXPECT_THAT(line.sent, Contains(":LOAD1 OFF"));
    EXPECT_THAT(line.sent, Not(Contains(":LOAD1 ON")));
}

TEST_F(ControlTest, SwitchesAllOffFromBothPagesWhateverIsUnderWay)
{
    connectInstrument();
    line.onLine = nullptr; // nothing is answered any more
    control->ShowControlPage();
    clock.advance(200);
    press(control->cmdAllOff);
    EXPECT_EQ(line.sent.back(), ":LOAD:ALL OFF");
    control->ShowConnectPage();
    press(control->cmdAllOff);
    EXPECT_EQ(line.sent.back(), ":LOAD:ALL OFF");
}

TEST_F(ControlTest, SaysThatAllOffMetNoLink)
{
    control->ShowControlPage();
    press(control->cmdAllOff);
    EXPECT_EQ(control->lblLink.caption(), "Not connected: nothing could be switched off from here.");
}

TEST_F(ControlTest, RunsNothingWhenTheFormIsNone)
{
    connectInstrument();
    EXPECT_THAT(processExit.reports, IsEmpty());
}

} // namespace orb
