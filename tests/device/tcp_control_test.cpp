// SPDX-License-Identifier: GPL-3.0-or-later
// The instrument control over real sockets, its timers running on real time.
#include "channel_card.h"
#include "tcp_control.h"
#include "test_servers.h"
#include "text_bytes.h"

#include <gmock/gmock.h>

#include <future>

namespace orb {

namespace {

using testing::HasSubstr;

/// Answers as an instrument, and anything that is none of its questions by `otherwise`.
void actAsInstrument(ClientConnection& client, const std::function<bool(const std::string& line)>& otherwise)
{
    for (std::string line = client.line(); !line.empty(); line = client.line()) {
        if (line == "*IDN?")
            client.say("ZN,ORB3000,0001,1.0\n");
        else if (line == ":CHAN:COUN?")
            client.say("2\n");
        else if (!otherwise(line))
            return;
    }
}

} // namespace

/// Waits no longer than 300 ms for each step of connecting.
class ImpatientTcpControlTest : public TcpControlTest {
protected:
    ImpatientTcpControlTest() : TcpControlTest(300) {}
};

TEST_F(TcpControlTest, AServedInstrumentIsWorkedOverASocket)
{
    ServedInstrument instrument;
    ASSERT_TRUE(connectTo(instrument.port())) << status();
    EXPECT_EQ(control.ChannelCount(), 8);
    EXPECT_EQ(control.LinkType(), 2);
    EXPECT_EQ(page().lblResource.caption(), QStringLiteral("TCPIP0::127.0.0.1::%1::SOCKET").arg(instrument.port()));

    control.ShowControlPage();
    EXPECT_TRUE(waitUntil([&] { return control.controlPage.cards.at(7)->cmdLoad.caption() == "LOAD ON"; }));
    press(control.controlPage.cards.at(2)->cmdLoad);
    EXPECT_TRUE(waitUntil([&] { return control.controlPage.cards.at(2)->lblState.caption() == "ON"; }));
    EXPECT_EQ(instrument.execute(":LOAD:ALL?"), "0,0,1,0,0,0,0,0");
    press(control.allOffBar.cmdAllOff);
    EXPECT_TRUE(waitUntil([&] { return instrument.execute(":LOAD:ALL?") == "0,0,0,0,0,0,0,0"; }));

    control.PanelActive(false);
    for (int i = 0; i < 20; ++i) {
        EXPECT_TRUE(isVoltages(ask(":FETC:ALLV?")));
        EXPECT_TRUE(isCurrents(ask(":FETC:ALLC?")));
    }
}

TEST_F(TcpControlTest, AReconnectNeedsNoEventLoop)
{
    ServedInstrument instrument;
    ASSERT_TRUE(connectTo(instrument.port()));
    control.Reconnect();
    EXPECT_TRUE(control.IsConnected());
    EXPECT_TRUE(isVoltages(ask(":FETC:ALLV?")));
    instrument.stop();
    EXPECT_TRUE(waitUntil([&] { return !control.IsConnected(); }));
    control.Reconnect();
    EXPECT_FALSE(control.IsConnected());
    EXPECT_THAT(status(), HasSubstr("refused the connection"));
}

TEST_F(TcpControlTest, AnInstrumentThatIsGoneIsNoticedWithoutAnEventLoop)
{
    ServedInstrument instrument;
    ASSERT_TRUE(connectTo(instrument.port()));
    instrument.stop();
    QElapsedTimer timer;
    timer.start();
    while (control.IsConnected() && !timer.hasExpired(generousMs))
        clock.sleep(1);
    EXPECT_FALSE(control.IsConnected());
    control.SendCommand(QStringLiteral("*IDN?"));
    EXPECT_EQ(control.Reply(), "");
    EXPECT_FALSE(control.GrabScreen());
}

TEST_F(ImpatientTcpControlTest, EachReasonOfAFailedConnectHasItsOwnText)
{
    EXPECT_FALSE(connectTo(refusingPort()));
    EXPECT_THAT(status(), HasSubstr("refused the connection"));

    FaultyServer silent([](ClientConnection& client) { client.stay(); });
    EXPECT_FALSE(connectTo(silent.port()));
    EXPECT_THAT(status(), HasSubstr("did not answer *IDN?"));

    FaultyServer stranger([](ClientConnection& client) {
        client.say("SSH-2.0-stranger\r\n");
        client.stay();
    });
    EXPECT_FALSE(connectTo(stranger.port()));
    EXPECT_THAT(status(), HasSubstr("SSH-2.0-stranger"));

    FaultyServer garbage([](ClientConnection& client) {
        client.line();
        client.say(std::string(200'000, '\xff') + '\n');
        client.stay();
    });
    EXPECT_FALSE(connectTo(garbage.port()));
    EXPECT_THAT(status(), HasSubstr("not as an instrument does"));

    FaultyServer closing([](ClientConnection& client) { client.line(); });
    EXPECT_FALSE(connectTo(closing.port()));
    EXPECT_THAT(status(), HasSubstr("closed the connection"));

    FaultyServer resetting([](ClientConnection& client) {
        client.line();
        client.reset();
    });
    EXPECT_FALSE(connectTo(resetting.port()));
    EXPECT_THAT(status(), HasSubstr("closed the connection"));

    pressConnect(QStringLiteral("no-such-load.invalid"));
    EXPECT_TRUE(waitUntil([&] { return page().cmdConnect.enabled(); }));
    EXPECT_THAT(status(), HasSubstr("was not found"));
}

TEST_F(ImpatientTcpControlTest, ARemoteEndThatNeverStopsSendingIsRejected)
{
    FaultyServer flood([](ClientConnection& client) {
        for (int i = 0; i < 500 && !client.line().empty(); ++i)
            client.say(std::string(4'000'000, 'x'));
    });
    EXPECT_FALSE(connectTo(flood.port()));
    EXPECT_FALSE(status().empty());
}

TEST_F(TcpControlTest, ConnectingCanBeCancelled)
{
    FaultyServer silent([](ClientConnection& client) { client.stay(); });
    pressConnect(QStringLiteral("127.0.0.1:%1").arg(silent.port()));
    press(page().cmdCancel);
    EXPECT_EQ(status(), "Connecting was cancelled.");
    EXPECT_TRUE(page().cmdConnect.enabled());
}

TEST_F(TcpControlTest, AnswersMayComeInPiecesAndWithCarriageReturns)
{
    ServedInstrument instrument("1-10 :FETC:ALLC? split 5 15ms\n11-20 :FETC:ALLC? crlf\n");
    ASSERT_TRUE(connectTo(instrument.port()));
    control.PanelActive(false);
    for (int i = 0; i < 20; ++i)
        EXPECT_TRUE(isCurrents(ask(":FETC:ALLC?")));
}

TEST_F(TcpControlTest, ALateAnswerIsNotGivenAndTheNextQueryGetsItsOwn)
{
    ServedInstrument instrument("1 :FETC:ALLC? late 500ms\n2-3 :FETC:ALLC? after-next\n");
    ASSERT_TRUE(connectTo(instrument.port()));
    control.PanelActive(false);
    send(":FETC:ALLC?"); // half a second late
    EXPECT_TRUE(isVoltages(ask(":FETC:ALLV?")));
    EXPECT_TRUE(isVoltages(ask(":FETC:ALLV?")));
    send(":FETC:ALLC?"); // held until the next
    send(":FETC:ALLC?"); // and this one too
    EXPECT_TRUE(isVoltages(ask(":FETC:ALLV?")));
    EXPECT_TRUE(isCurrents(ask(":FETC:ALLC?")));
}

TEST_F(TcpControlTest, TheRepeatOfAQueryWhoseAnswerWasLostIsAnswered)
{
    ServedInstrument instrument("1 :FETC:ALLC? missing\n");
    ASSERT_TRUE(connectTo(instrument.port()));
    control.PanelActive(false);
    send(":FETC:ALLC?");
    EXPECT_TRUE(isCurrents(ask(":FETC:ALLC?")));
    EXPECT_TRUE(isVoltages(askUntilAnswered(":FETC:ALLV?")));
    EXPECT_TRUE(isCurrents(askUntilAnswered(":FETC:ALLC?")));
}

TEST_F(TcpControlTest, GarbageAndATruncatedAnswerCostNoLaterQueryItsAnswer)
{
    ServedInstrument instrument("1 :FETC:ALLC? truncated\n2 :FETC:ALLC? garbage 400\n");
    ASSERT_TRUE(connectTo(instrument.port()));
    control.PanelActive(false);
    send(":FETC:ALLC?");
    EXPECT_TRUE(isVoltages(askUntilAnswered(":FETC:ALLV?")));
    send(":FETC:ALLC?");
    EXPECT_TRUE(isVoltages(askUntilAnswered(":FETC:ALLV?")));
}

TEST_F(TcpControlTest, NoPartOfAnAnswerIsGivenWhenTheInstrumentClosesOrResets)
{
    for (const char* fault : {"closed", "reset"}) {
        ServedInstrument instrument(std::string("1 :FETC:ALLC? ") + fault + " 10\n");
        ASSERT_TRUE(connectTo(instrument.port()));
        control.PanelActive(false);
        EXPECT_EQ(ask(":FETC:ALLC?"), "") << fault;
        EXPECT_FALSE(control.IsConnected()) << fault;
    }
}

TEST_F(TcpControlTest, SendingToARemoteEndThatReadsNothingIsQuiet)
{
    std::atomic<bool> done = false;
    FaultyServer server([&](ClientConnection& client) {
        actAsInstrument(client, [](const std::string&) { return false; });
        while (!done)
            QThread::msleep(1);
    });
    ASSERT_TRUE(connectTo(server.port()));
    control.PanelActive(false);
    control.SendCommand(QStringLiteral("the end"));
    const QString line(60'000, QLatin1Char('x'));
    for (int i = 0; i < 500; ++i)
        control.SendCommand(line);
    EXPECT_FALSE(control.IsConnected());
    done = true;
}

TEST_F(TcpControlTest, ALineThatIsNotUtf8IsSentWithItsBytes)
{
    std::promise<std::string> received;
    FaultyServer server([&](ClientConnection& client) {
        actAsInstrument(client, [&](const std::string& line) {
            received.set_value(line);
            return false;
        });
    });
    ASSERT_TRUE(connectTo(server.port()));
    control.PanelActive(false);
    control.SendCommand(textOf("caf\xe9 \xc3\xa9"));
    EXPECT_EQ(received.get_future().get(), "caf\xe9 \xc3\xa9");
}

TEST_F(TcpControlTest, ARemoteEndMaySendAnything)
{
    std::atomic<unsigned> seed = 0;
    FaultyServer server([&](ClientConnection& client) {
        unsigned random = 1 + seed++;
        actAsInstrument(client, [&](const std::string&) {
            std::string bytes;
            for (unsigned n = (random = random * 1664525 + 1013904223) >> 22; n > 0; --n)
                bytes += static_cast<char>((random = random * 1664525 + 1013904223) >> 24);
            client.say(bytes);
            return random % 20 != 0;
        });
    });
    for (int i = 0; i < 4; ++i) {
        ASSERT_TRUE(connectTo(server.port()));
        control.PanelActive(false);
        for (int n = 0; n < 12 && control.IsConnected(); ++n) {
            control.SendCommand(QStringLiteral(":FETC:ALLC?"));
            control.Reply();
        }
        control.GrabScreen();
        press(page().cmdDisconnect);
    }
}

} // namespace orb
