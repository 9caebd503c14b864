// SPDX-License-Identifier: GPL-3.0-or-later
#include "channel_card.h"
#include "device_control_fixture.h"
#include "paths.h"
#include "staging_files.h"

namespace orb {

namespace {
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
} // namespace

TEST_F(DeviceControlTest, TheControlHasItsDesignSize)
{
    EXPECT_EQ(control->widthTwips(), 8115);
    EXPECT_EQ(control->heightTwips() / 15, 445);
}

TEST_F(DeviceControlTest, TheLineAboveBothPagesSaysHowTheLinkStands)
{
    EXPECT_EQ(control->lblLink.caption(), "Not connected");
    connectInstrument();
    EXPECT_EQ(control->lblLink.caption(), "ZN ORB3000, 3 channels");
    QString whileReconnecting;
    line.onLine = [&](const QByteArray&) { whileReconnecting = control->lblLink.caption(); };
    control->Reconnect();
    EXPECT_EQ(whileReconnecting, "Reconnecting...");
}

TEST_F(DeviceControlTest, WithoutALinkEveryMemberReturnsQuietly)
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

TEST_F(DeviceControlTest, TheFirstPressOnConnectReachesTheSimulatedInstrument)
{
    connectSimulated();
    EXPECT_TRUE(control->IsConnected());
    EXPECT_EQ(control->ChannelCount(), 6);
    EXPECT_EQ(control->LinkType(), 0);
    control->SendCommand(QStringLiteral(":FETC:ALLV?"));
    EXPECT_EQ(control->Reply().count(QLatin1Char(',')), 6);
    EXPECT_TRUE(control->Reply().endsWith(QLatin1Char(',')));
}

TEST_F(DeviceControlTest, AQueryThatTheSimulatedInstrumentDoesNotKnowCostsNoLaterAnswer)
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

TEST_F(DeviceControlTest, TheControlNeverConnectsByItself)
{
    control->ShowControlPage();
    control->ShowConnectPage();
    clock.advance(60'000);
    EXPECT_FALSE(control->IsConnected());
    EXPECT_EQ(line.openings, 0);
}

TEST_F(DeviceControlTest, AReplyCanBeReadAgainAndAgain)
{
    connectSimulated();
    control->SendCommand(QStringLiteral("*IDN?"));
    EXPECT_EQ(control->Reply(), "ZN,ORB3000,SIM0001,1.0");
    control->SendCommand(QStringLiteral(":CURR 1"));
    EXPECT_EQ(control->Reply(), "ZN,ORB3000,SIM0001,1.0");
}

TEST_F(DeviceControlTest, AReplyIsEmptyUntilTheAnswerToTheLastQueryHasCome)
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

TEST_F(DeviceControlTest, AnAnswerWithinFiftyMillisecondsIsReadDirectlyAfterTheSend)
{
    connectInstrument();
    line.onLine = [this](const QByteArray&) { line.say("1\n", 20); };
    control->SendCommand(QStringLiteral("a?"));
    EXPECT_EQ(control->Reply(), "1");
    EXPECT_THAT(clock.sleeps, ElementsAre(20));
}

TEST_F(DeviceControlTest, AReplyOutlivesTheLinkUntilTheNextQuery)
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

TEST_F(DeviceControlTest, ATextWithLineEndsIsSentLineByLine)
{
    connectInstrument([](const QByteArray&) { return QByteArray("1\n"); });
    control->SendCommand(QStringLiteral(":CURR 1\r\n\n:CURR 2\n"));
    EXPECT_THAT(line.sent, ElementsAre(":CURR 1", ":CURR 2"));
}

TEST_F(DeviceControlTest, TheEmptyLineIsSentAsALineFeedAlone)
{
    connectInstrument([](const QByteArray&) { return QByteArray("1\n"); });
    control->SendCommand(QStringLiteral("a?"));
    EXPECT_EQ(control->Reply(), "1");
    control->SendCommand({});
    EXPECT_THAT(line.sent, ElementsAre("a?", ""));
    EXPECT_EQ(control->Reply(), "1"); // it is no query
}

TEST_F(DeviceControlTest, ALineWithANulIsNotSent)
{
    connectInstrument([](const QByteArray&) { return QByteArray("1\n"); });
    control->SendCommand(QStringLiteral("a?"));
    EXPECT_EQ(control->Reply(), "1");
    control->SendCommand(QString(QChar(0)));
    control->SendCommand(QStringLiteral(":CURR 1") + QChar(0));
    EXPECT_EQ(control->Reply(), "1");
    control->SendCommand(QStringLiteral("b?") + QChar(0) + QStringLiteral("c\n:CURR 2"));
    EXPECT_EQ(control->Reply(), "");
    EXPECT_THAT(line.sent, ElementsAre("a?", ":CURR 2"));
}

TEST_F(DeviceControlTest, AQuestionMarkInQuotesMakesALineAQuery)
{
    connectInstrument([](const QByteArray& text) { return text == "a?" ? QByteArray("1\n") : QByteArray(); });
    control->SendCommand(QStringLiteral("a?"));
    EXPECT_EQ(control->Reply(), "1");
    control->SendCommand(QStringLiteral(":DISP:TEXT \"why?\""));
    EXPECT_EQ(control->Reply(), "");
}

TEST_F(DeviceControlTest, TextIsSentAsUtf8)
{
    connectInstrument();
    control->SendCommand(QStringLiteral(":DISP:TEXT \"\u03A9\""));
    EXPECT_THAT(line.sent, ElementsAre(":DISP:TEXT \"\xce\xa9\""));
}

TEST_F(DeviceControlTest, AClosedLinkIsNoticedAtTheNextRead)
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

TEST_F(DeviceControlTest, AReconnectIsDoneWhenItReturns)
{
    connectInstrument();
    line.opensAfter = 100;
    control->Reconnect();
    EXPECT_TRUE(control->IsConnected());
    EXPECT_EQ(line.openings, 2);
    EXPECT_EQ(status(), "Connected to load.");
    EXPECT_EQ(control->ChannelCount(), 3);
}

TEST_F(DeviceControlTest, AFailedReconnectLeavesTheControlDisconnected)
{
    connectInstrument();
    line.openError = LinkError::Refused;
    control->Reconnect();
    EXPECT_FALSE(control->IsConnected());
    control->ShowConnectPage();
    EXPECT_THAT(status().toStdString(), testing::HasSubstr("refused the connection"));
    EXPECT_TRUE(control->connectPage.cmdConnect.enabled());
}

TEST_F(DeviceControlTest, AReconnectBlocksNoLongerThanItsLimits)
{
    connectInstrument();
    line.onLine = nullptr;
    const qint64 begin = clock.elapsed();
    control->Reconnect();
    EXPECT_FALSE(control->IsConnected());
    EXPECT_EQ(clock.elapsed() - begin, 2000);
}

TEST_F(DeviceControlTest, AnInactiveControlSendsNothingOfItsOwn)
{
    connectInstrument();
    clock.advance(60'000);
    EXPECT_THAT(line.sent, IsEmpty());
}

TEST_F(DeviceControlTest, ASecondPanelActiveFalseHasNoEffect)
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

TEST_F(DeviceControlTest, AControlOffTheScreenSendsNothingOfItsOwn)
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
    form.showNormal();
    clock.advance(1'000);
    EXPECT_THAT(line.sent, Not(IsEmpty()));
}

TEST_F(DeviceControlTest, ConnectingWaitsWhileTheWindowIsMinimized)
{
    actAsInstrument(3);
    line.opensAfter = 500;
    connectScripted();
    form.showMinimized();
    clock.advance(30'000);
    EXPECT_THAT(line.sent, IsEmpty());
    form.showNormal();
    clock.advance(100);
    EXPECT_TRUE(control->IsConnected());
}

TEST_F(DeviceControlTest, AnInactiveControlSendsNothingWhicheverPageItShows)
{
    connectInstrument();
    for (const bool isControlPage : {true, false}) {
        isControlPage ? control->ShowControlPage() : control->ShowConnectPage();
        clock.advance(1'000);
        control->PanelActive(false); // while it is still on the screen
        line.sent.clear();
        clock.advance(60'000);
        EXPECT_THAT(line.sent, IsEmpty());
    }
}

TEST_F(DeviceControlTest, TheRestOfSeparateQueriesIsNotSentOnceThePageIsLeft)
{
    connectInstrument([](const QByteArray&) { return QByteArray("1\n"); }); // to joined queries too
    for (const bool isActive : {false, true}) {
        control->ShowControlPage();
        clock.advance(1'500);
        ASSERT_THAT(line.sent, Contains(":LOAD1:PROT?"));
        ASSERT_NE(line.sent.last(), ":LOAD3:PROT?") << "the last one of a round";
        isActive ? control->setVisible(false) : control->PanelActive(false);
        line.sent.clear();
        clock.advance(60'000);
        EXPECT_THAT(line.sent, IsEmpty());
    }
}

TEST_F(DeviceControlTest, TheConnectPageDoesNotPollTheChannels)
{
    connectInstrument();
    control->ShowConnectPage();
    clock.advance(60'000);
    EXPECT_THAT(line.sent, IsEmpty());
}

TEST_F(DeviceControlTest, NoFailureLeavesAMember)
{
    connectInstrument([](const QByteArray&) { return QByteArray("1\n"); });
    control->SendCommand(QStringLiteral("a?"));
    faults.throws = true;
    const std::vector<std::function<bool()>> members{
        [this] { return control->Reply().isEmpty(); },
        [this] { return control->SendCommand(QStringLiteral("b?")), true; },
        [this] { return !control->IsConnected(); },
        [this] { return control->LinkType() == 7; },
        [this] { return control->ChannelCount() == 3; },
        [this] { return control->ShowControlPage(), true; },
        [this] { return control->PanelActive(false), true; },
        [this] { return control->PanelActive(true), true; },
        [this] { return control->ShowConnectPage(), true; },
        [this] { return !control->GrabScreen(); },
        [this] { return control->FetchSequenceFile(), true; },
        [this] { return control->FetchProgramFile(), true; },
        [this] { return control->SendProgramFile(), true; },
        [this] { return control->Reconnect(), true; },
    };
    for (std::size_t i = 0; i < members.size(); ++i)
        EXPECT_NO_THROW(EXPECT_TRUE(members[i]()) << i) << i;
    EXPECT_THAT(processExit.reports, IsEmpty());
}

TEST_F(DeviceControlTest, ConnectingGoesOnOnlyWhileTheControlIsActive)
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

TEST_F(DeviceControlTest, AnAnswerToTheControlPageIsNoReply)
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

TEST_F(DeviceControlTest, TheAnswerToTheControlPageIsAwaitedBeforeTheControlBecomesInactive)
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

TEST_F(DeviceControlTest, TheControlPageDoesNotPollWhileAReplyIsDue)
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

TEST_F(DeviceControlTest, ALoadIsSwitchedOnlyByAPress)
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

TEST_F(DeviceControlTest, OnlyALoadThatIsKnownToBeOffCanBeSwitchedOn)
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

} // namespace orb
