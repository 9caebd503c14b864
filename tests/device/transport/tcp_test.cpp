// SPDX-License-Identifier: GPL-3.0-or-later
#include "session.h"
#include "tcp_control.h"
#include "tcp_transport.h"
#include "test_servers.h"

#include <QCoreApplication>

#include <gmock/gmock.h>

namespace orb {

namespace {

using testing::HasSubstr;

TcpAddress local(quint16 port)
{
    return {QStringLiteral("127.0.0.1"), port};
}

/// Answers as an instrument, and anything that is none of its questions by `otherwise`.
void actAsInstrument(ClientConnection& peer, const std::function<bool(const std::string& line)>& otherwise)
{
    for (std::string line = peer.line(); !line.empty(); line = peer.line()) {
        if (line == "*IDN?")
            peer.say("ZN,ORB3000,0001,1.0\n");
        else if (line == ":CHAN:COUN?")
            peer.say("2\n");
        else if (!otherwise(line))
            return;
    }
}

} // namespace

// The transport alone.

TEST(TcpTransport, OpensWithoutAnEventLoopWithinALimit)
{
    ServedInstrument instrument;
    TcpTransport transport(local(instrument.port()));
    ASSERT_TRUE(transport.open(generousMs));
    EXPECT_TRUE(transport.write("*IDN?\n"));
    EXPECT_TRUE(transport.flush(generousMs));
    ASSERT_TRUE(transport.waitReadable(generousMs));
    EXPECT_EQ(transport.read(), "ZN,ORB3000,SIM0001,1.0\n");
    EXPECT_EQ(transport.read(), "");
    transport.close();
    EXPECT_EQ(transport.state(), Transport::State::Closed);
    EXPECT_EQ(transport.error(), LinkError::None);
    EXPECT_FALSE(transport.write("*IDN?\n"));
}

TEST(TcpTransport, OpensByAndByWhileTheEventLoopRuns)
{
    ServedInstrument instrument;
    TcpTransport transport(local(instrument.port()));
    transport.begin();
    EXPECT_TRUE(waitUntil([&] { return transport.state() == Transport::State::Open; }));
}

TEST(TcpTransport, TriesEveryAddressOfAName)
{
    ServedInstrument instrument; // listens on 127.0.0.1 alone, and the name may lead to ::1 first
    TcpTransport blocking({QStringLiteral("localhost"), instrument.port()});
    EXPECT_TRUE(blocking.open(generousMs));
    TcpTransport waiting({QStringLiteral("localhost"), instrument.port()});
    waiting.begin();
    EXPECT_TRUE(waitUntil([&] { return waiting.state() == Transport::State::Open; }));
    EXPECT_EQ(waiting.error(), LinkError::None);
}

TEST(TcpTransport, TellsARefusingPort)
{
    TcpTransport blocking(local(refusingPort()));
    EXPECT_FALSE(blocking.open(generousMs));
    EXPECT_EQ(blocking.error(), LinkError::Refused);
    TcpTransport waiting(local(refusingPort()));
    waiting.begin();
    EXPECT_TRUE(waitUntil([&] { return waiting.state() == Transport::State::Closed; }));
    EXPECT_EQ(waiting.error(), LinkError::Refused);
    TcpTransport named({QStringLiteral("localhost"), refusingPort()});
    EXPECT_FALSE(named.open(generousMs));
    EXPECT_EQ(named.error(), LinkError::Refused);
}

TEST(TcpTransport, TellsANameThatLeadsNowhere)
{
    TcpTransport blocking({QStringLiteral("no-such-load.invalid"), 5025});
    EXPECT_FALSE(blocking.open(generousMs));
    EXPECT_EQ(blocking.error(), LinkError::HostNotFound);
    TcpTransport waiting({QStringLiteral("no-such-load.invalid"), 5025});
    waiting.begin();
    EXPECT_TRUE(waitUntil([&] { return waiting.state() == Transport::State::Closed; }));
    EXPECT_EQ(waiting.error(), LinkError::HostNotFound);
}

TEST(TcpTransport, EndsALookUpThatNobodyWaitsForAnyMore)
{
    for (int i = 0; i < 5; ++i) {
        TcpTransport transport({QStringLiteral("no-such-load.invalid"), 5025});
        transport.begin();
        transport.close();
        EXPECT_EQ(transport.state(), Transport::State::Closed);
    }
}

TEST(TcpTransport, GivesWhatCameBeforeThePeerClosed)
{
    FaultyServer server([](ClientConnection& peer) { peer.say("last words"); });
    TcpTransport transport(local(server.port()));
    ASSERT_TRUE(transport.open(generousMs));
    QByteArray bytes;
    while (transport.waitReadable(generousMs))
        bytes += transport.read();
    EXPECT_EQ(bytes, "last words");
    EXPECT_EQ(transport.state(), Transport::State::Closed);
    EXPECT_EQ(transport.error(), LinkError::ClosedRemotely);
    EXPECT_FALSE(transport.waitReadable(generousMs)); // at once
}

TEST(TcpTransport, OutlivesAReset)
{
    FaultyServer server([](ClientConnection& peer) {
        peer.line();
        peer.reset();
    });
    TcpTransport transport(local(server.port()));
    ASSERT_TRUE(transport.open(generousMs));
    transport.write("a\n");
    while (transport.waitReadable(generousMs))
        EXPECT_EQ(transport.read(), "");
    for (int i = 0; i < 10; ++i)
        EXPECT_FALSE(transport.write("b\n")); // and no signal ends the process
    EXPECT_EQ(transport.state(), Transport::State::Closed);
}

TEST(TcpTransport, CutsALinkThatTakesNothingAnyMore)
{
    std::atomic<bool> done = false;
    FaultyServer server([&](ClientConnection&) {
        while (!done)
            QThread::msleep(1); // reads nothing
    });
    TcpTransport transport(local(server.port()));
    ASSERT_TRUE(transport.open(generousMs));
    int writes = 0;
    while (transport.write(QByteArray(64 * 1024, 'x')))
        ASSERT_LT(++writes, 1000);
    EXPECT_EQ(transport.state(), Transport::State::Closed);
    EXPECT_EQ(transport.error(), LinkError::Broken);
    done = true;
}

// The control over real sockets, its timers running on real time.

/// For peers that do not do what is waited for.
class HastyTcpControlTest : public TcpControlTest {
protected:
    HastyTcpControlTest() : TcpControlTest(300) {}
};

TEST_F(TcpControlTest, WorksTheServedInstrument)
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
    press(control.cmdAllOff);
    EXPECT_TRUE(waitUntil([&] { return instrument.execute(":LOAD:ALL?") == "0,0,0,0,0,0,0,0"; }));

    control.PanelActive(false);
    for (int i = 0; i < 20; ++i) {
        EXPECT_TRUE(isVoltages(ask(":FETC:ALLV?")));
        EXPECT_TRUE(isCurrents(ask(":FETC:ALLC?")));
    }
}

TEST_F(TcpControlTest, ReconnectsWithoutAnEventLoop)
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

TEST_F(TcpControlTest, NoticesWithoutAnEventLoopThatTheInstrumentIsGone)
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

TEST_F(HastyTcpControlTest, TellsARefusingPortFromASilentPeerFromOneThatIsNoInstrument)
{
    EXPECT_FALSE(connectTo(refusingPort()));
    EXPECT_THAT(status(), HasSubstr("refused the connection"));

    FaultyServer silent([](ClientConnection& peer) { peer.stay(); });
    EXPECT_FALSE(connectTo(silent.port()));
    EXPECT_THAT(status(), HasSubstr("did not answer *IDN?"));

    FaultyServer stranger([](ClientConnection& peer) {
        peer.say("SSH-2.0-stranger\r\n");
        peer.stay();
    });
    EXPECT_FALSE(connectTo(stranger.port()));
    EXPECT_THAT(status(), HasSubstr("SSH-2.0-stranger"));

    FaultyServer garbage([](ClientConnection& peer) {
        peer.line();
        peer.say(std::string(200'000, '\xff') + '\n');
        peer.stay();
    });
    EXPECT_FALSE(connectTo(garbage.port()));
    EXPECT_THAT(status(), HasSubstr("not as an instrument does"));

    FaultyServer closing([](ClientConnection& peer) { peer.line(); });
    EXPECT_FALSE(connectTo(closing.port()));
    EXPECT_THAT(status(), HasSubstr("closed the connection"));

    FaultyServer resetting([](ClientConnection& peer) {
        peer.line();
        peer.reset();
    });
    EXPECT_FALSE(connectTo(resetting.port()));
    EXPECT_THAT(status(), HasSubstr("closed the connection"));

    pressConnect(QStringLiteral("no-such-load.invalid"));
    EXPECT_TRUE(waitUntil([&] { return page().cmdConnect.enabled(); }));
    EXPECT_THAT(status(), HasSubstr("was not found"));
}

TEST_F(HastyTcpControlTest, EndsOneThatNeverStopsTalking)
{
    FaultyServer chatterbox([](ClientConnection& peer) {
        for (int i = 0; i < 500 && !peer.line().empty(); ++i)
            peer.say(std::string(4'000'000, 'x'));
    });
    EXPECT_FALSE(connectTo(chatterbox.port()));
    EXPECT_FALSE(status().empty());
}

TEST_F(TcpControlTest, CanBeCancelledWhileItConnects)
{
    FaultyServer silent([](ClientConnection& peer) { peer.stay(); });
    pressConnect(QStringLiteral("127.0.0.1:%1").arg(silent.port()));
    press(page().cmdCancel);
    EXPECT_EQ(status(), "Connecting was cancelled.");
    EXPECT_TRUE(page().cmdConnect.enabled());
}

TEST_F(TcpControlTest, TakesAnswersInPiecesAndWithCarriageReturns)
{
    ServedInstrument instrument("1-10 :FETC:ALLC? split 5 15ms\n11-20 :FETC:ALLC? crlf\n");
    ASSERT_TRUE(connectTo(instrument.port()));
    control.PanelActive(false);
    for (int i = 0; i < 20; ++i)
        EXPECT_TRUE(isCurrents(ask(":FETC:ALLC?")));
}

TEST_F(TcpControlTest, GivesALateAnswerToNobodyAndTheNextQueryItsOwn)
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

TEST_F(TcpControlTest, AnswersTheRepeatOfAQueryWhoseAnswerWasLost)
{
    ServedInstrument instrument("1 :FETC:ALLC? missing\n");
    ASSERT_TRUE(connectTo(instrument.port()));
    control.PanelActive(false);
    send(":FETC:ALLC?");
    EXPECT_TRUE(isCurrents(ask(":FETC:ALLC?")));
    EXPECT_TRUE(isVoltages(askUntilAnswered(":FETC:ALLV?")));
    EXPECT_TRUE(isCurrents(askUntilAnswered(":FETC:ALLC?")));
}

TEST_F(TcpControlTest, IsInStepAgainBehindGarbageAndATruncatedAnswer)
{
    ServedInstrument instrument("1 :FETC:ALLC? truncated\n2 :FETC:ALLC? garbage 400\n");
    ASSERT_TRUE(connectTo(instrument.port()));
    control.PanelActive(false);
    send(":FETC:ALLC?");
    EXPECT_TRUE(isVoltages(askUntilAnswered(":FETC:ALLV?")));
    send(":FETC:ALLC?");
    EXPECT_TRUE(isVoltages(askUntilAnswered(":FETC:ALLV?")));
}

TEST_F(TcpControlTest, HandsOutNoPartWhenThePeerClosesOrResetsInMidAnswer)
{
    for (const char* fault : {"closed", "reset"}) {
        ServedInstrument instrument(std::string("1 :FETC:ALLC? ") + fault + " 10\n");
        ASSERT_TRUE(connectTo(instrument.port()));
        control.PanelActive(false);
        EXPECT_EQ(ask(":FETC:ALLC?"), "") << fault;
        EXPECT_FALSE(control.IsConnected()) << fault;
    }
}

TEST_F(TcpControlTest, SendsQuietlyToAPeerThatReadsNothing)
{
    std::atomic<bool> done = false;
    FaultyServer server([&](ClientConnection& peer) {
        actAsInstrument(peer, [](const std::string&) { return false; });
        while (!done)
            QThread::msleep(1);
    });
    ASSERT_TRUE(connectTo(server.port()));
    control.PanelActive(false);
    control.SendCommand(QStringLiteral("last words"));
    const QString line(60'000, QLatin1Char('x'));
    for (int i = 0; i < 500; ++i)
        control.SendCommand(line);
    EXPECT_FALSE(control.IsConnected());
    done = true;
}

TEST_F(TcpControlTest, ReadsNothingButAnswersFromAPeerThatSaysAnything)
{
    std::atomic<unsigned> seed = 0;
    FaultyServer server([&](ClientConnection& peer) {
        unsigned random = 1 + seed++;
        actAsInstrument(peer, [&](const std::string&) {
            std::string bytes;
            for (unsigned n = (random = random * 1664525 + 1013904223) >> 22; n > 0; --n)
                bytes += static_cast<char>((random = random * 1664525 + 1013904223) >> 24);
            peer.say(bytes);
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
