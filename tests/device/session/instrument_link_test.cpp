// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_link.h"
#include "link_words.h"
#include "recorded_exit.h"
#include "scripted_line.h"
#include "virtual_clock.h"

#include <gmock/gmock.h>

namespace orb {

namespace {
using testing::ElementsAre;
using testing::IsEmpty;
using Stage = InstrumentLink::Stage;
} // namespace

class ConnectionTest : public testing::Test {
protected:
    void start() { connection.start(std::make_unique<ScriptedTransport>(line)); }
    /// Steps every 20 ms, as the control's timer does.
    void stepFor(int ms)
    {
        connection.step(true);
        for (int passed = 0; passed < ms && connection.isConnecting(); passed += 20) {
            clock.sleep(20);
            connection.step(true);
        }
    }
    /// The far end answers these queries.
    void answer(const std::map<QByteArray, QByteArray>& answers, int ms = 0)
    {
        line.onLine = [this, answers, ms](const QByteArray& text) {
            if (const auto found = answers.find(text); found != answers.end())
                line.say(found->second, ms);
        };
    }
    QString words() const { return linkStatus(connection, QStringLiteral("load:5025")).text; }
    Tone tone() const { return linkStatus(connection, QStringLiteral("load:5025")).tone; }

    RecordedExit processExit;
    orb::Run run{processExit};
    VirtualClock clock{run};
    ScriptedLine line{clock};
    InstrumentLink connection{clock};
    const QByteArray identity = "ZN,ORB3000,0001,1.0\n";
};

TEST_F(ConnectionTest, GoesUpThroughItsStages)
{
    line.opensAfter = 100;
    answer({{"*IDN?", identity}, {":CHAN:COUN?", "4\r\n"}}, 30);
    EXPECT_EQ(words(), "Not connected. Choose the link and press Connect.");
    start();
    connection.step(true);
    EXPECT_EQ(words(), "Connecting to load:5025...");
    EXPECT_EQ(tone(), Tone::Busy);
    clock.sleep(100);
    connection.step(true);
    EXPECT_EQ(words(), "load:5025 took the connection. Asking what it is...");
    clock.sleep(30);
    connection.step(true);
    EXPECT_EQ(words(), "load:5025 is an instrument. Asking for its channels...");
    EXPECT_EQ(connection.session(), nullptr);
    EXPECT_FALSE(connection.isUp());
    clock.sleep(30);
    connection.step(true);
    EXPECT_EQ(words(), "Connected to load:5025.");
    EXPECT_EQ(tone(), Tone::Good);
    EXPECT_TRUE(connection.isUp());
    EXPECT_EQ(connection.channelCount(), 4);
    EXPECT_EQ(connection.identity().model, "ORB3000");
    EXPECT_THAT(line.sent, ElementsAre("*IDN?", ":CHAN:COUN?"));
}

TEST_F(ConnectionTest, GoesUpInOneStepWhereEverythingIsThereAtOnce)
{
    answer({{"*IDN?", identity}, {":CHAN:COUN?", "8\n"}});
    start();
    connection.step(true);
    EXPECT_TRUE(connection.isUp());
}

TEST_F(ConnectionTest, CountsTheReadingsWhereTheInstrumentDoesNotTellItsChannels)
{
    answer({{"*IDN?", identity}, {":FETC:ALLC?", "0.1,0.2,0.3,\n"}});
    start();
    stepFor(10'000);
    EXPECT_EQ(connection.channelCount(), 3);
    EXPECT_THAT(line.sent, ElementsAre("*IDN?", ":CHAN:COUN?", ":FETC:ALLC?"));
}

TEST_F(ConnectionTest, CountsTheReadingsWhereTheNumberOfChannelsMakesNoSense)
{
    for (const QByteArray count : {"0\n", "-1\n", "9\n", "many\n", "\n"}) {
        answer({{"*IDN?", identity}, {":CHAN:COUN?", count}, {":FETC:ALLC?", "0.1,0.2,\n"}});
        start();
        stepFor(10'000);
        EXPECT_EQ(connection.channelCount(), 2) << count.toStdString();
    }
    answer({{"*IDN?", identity}, {":FETC:ALLC?", "1,2,3,4,5,6,7,8,9,10,\n"}});
    start();
    stepFor(10'000);
    EXPECT_EQ(connection.channelCount(), 8);
}

TEST_F(ConnectionTest, TakesAnInstrumentThatTellsNothingForOneOfOneChannel)
{
    answer({{"*IDN?", identity}});
    start();
    stepFor(10'000);
    EXPECT_TRUE(connection.isUp());
    EXPECT_EQ(connection.channelCount(), 1);
}

TEST_F(ConnectionTest, TellsWhatFailedInTheTransport)
{
    const std::vector<std::pair<LinkError, QString>> cases{
        {LinkError::Refused,
         QStringLiteral(
             "load:5025 refused the connection. The host is there, but nothing takes connections at this port.")},
        {LinkError::HostNotFound,
         QStringLiteral("load:5025 was not found: no host has this name. Check it, or give the address in numbers.")},
        {LinkError::Unreachable, QStringLiteral("load:5025 can't be reached from this network.")},
        {LinkError::Broken, QStringLiteral("The link to load:5025 failed.")}};
    for (const auto& [error, expected] : cases) {
        line.openError = error;
        start();
        stepFor(100);
        EXPECT_EQ(words(), expected);
        EXPECT_EQ(tone(), Tone::Bad);
    }
}

TEST_F(ConnectionTest, EndsWhenNobodyAnswersWithinTheLimit)
{
    line.opensAfter = std::nullopt;
    start();
    stepFor(60'000);
    EXPECT_EQ(words(), "load:5025 did not answer within 5 seconds. Is it switched on, and is this its address?");
    EXPECT_EQ(clock.elapsed(), 5000);
}

TEST_F(ConnectionTest, TellsASilentPeerFromOneThatDoesNotAnswerAtAll)
{
    start();
    stepFor(60'000);
    EXPECT_EQ(words(),
              "load:5025 took the connection, but did not answer *IDN? within 2 seconds. Is it an instrument?");
    EXPECT_EQ(clock.elapsed(), 2000);
}

TEST_F(ConnectionTest, QuotesAPeerThatIsNoInstrument)
{
    line.onLine = [this](const QByteArray&) { line.say("SSH-2.0-\x1b[2J%1 server\r\n"); };
    start();
    stepFor(60'000);
    EXPECT_EQ(words(), "load:5025 answered, but not as an instrument does. It said: \"SSH-2.0- [2J%1 server\"");
}

TEST_F(ConnectionTest, QuotesAPeerThatNeverEndsItsLine)
{
    line.onLine = [this](const QByteArray&) { line.say("\xff\xfblogin: "); };
    start();
    stepFor(60'000);
    EXPECT_EQ(connection.end(), InstrumentLink::End::NoInstrument);
    EXPECT_TRUE(connection.rejectedText().endsWith(QStringLiteral("login:")));
}

TEST_F(ConnectionTest, QuotesAPeerThatGreetsAndThenKeepsSilent)
{
    line.say("SSH-2.0-server\r\n");
    start();
    stepFor(60'000);
    EXPECT_EQ(words(), "load:5025 answered, but not as an instrument does. It said: \"SSH-2.0-server\"");
}

TEST_F(ConnectionTest, HasNothingToQuoteOfAnAnswerThatIsTooLong)
{
    line.onLine = [this](const QByteArray&) { line.say(QByteArray(200'000, 'x') + '\n'); };
    start();
    stepFor(60'000);
    EXPECT_EQ(words(), "load:5025 answered, but not as an instrument does.");
}

TEST_F(ConnectionTest, HearsTheIdentityBehindAGreeting)
{
    answer({{"*IDN?", identity}, {":CHAN:COUN?", "2\n"}}, 10);
    line.say("Welcome to the load!\n", 5);
    start();
    stepFor(10'000);
    EXPECT_TRUE(connection.isUp());
    EXPECT_EQ(connection.channelCount(), 2);
}

TEST_F(ConnectionTest, TellsAPeerThatClosesBeforeItIsKnown)
{
    line.onLine = [this](const QByteArray&) { line.close(10); };
    start();
    stepFor(10'000);
    EXPECT_EQ(words(), "load:5025 closed the connection before it had said what it is.");
}

TEST_F(ConnectionTest, TellsAnInstrumentThatClosesLater)
{
    answer({{"*IDN?", identity}, {":CHAN:COUN?", "2\n"}});
    start();
    stepFor(100);
    ASSERT_TRUE(connection.isUp());
    line.close();
    EXPECT_FALSE(connection.isUp());
    EXPECT_EQ(words(), "load:5025 closed the link.");
    EXPECT_EQ(connection.channelCount(), 0);
    EXPECT_EQ(connection.session(), nullptr);
}

TEST_F(ConnectionTest, EndsAtACancelInEveryStage)
{
    line.opensAfter = 100;
    start();
    connection.step(true);
    connection.drop();
    EXPECT_EQ(words(), "Connecting was cancelled.");

    start();
    stepFor(200); // asks what it is, and gets no answer
    EXPECT_EQ(connection.stage(), Stage::Identifying);
    connection.drop();
    EXPECT_EQ(connection.stage(), Stage::Down);
    connection.step(true);
    EXPECT_EQ(connection.stage(), Stage::Down);
    EXPECT_EQ(words(), "Connecting was cancelled.");
}

TEST_F(ConnectionTest, EndsWhenItIsDropped)
{
    answer({{"*IDN?", identity}, {":CHAN:COUN?", "2\n"}});
    start();
    stepFor(100);
    connection.drop();
    EXPECT_FALSE(connection.isUp());
    EXPECT_EQ(words(), "Disconnected.");
    connection.drop();
    EXPECT_EQ(words(), "Disconnected.");
}

TEST_F(ConnectionTest, SendsNothingWhileItMayNot)
{
    answer({{"*IDN?", identity}, {":CHAN:COUN?", "2\n"}}, 10);
    start();
    for (int i = 0; i < 1000; ++i) {
        connection.step(false);
        clock.sleep(20);
    }
    EXPECT_THAT(line.sent, IsEmpty());
    EXPECT_EQ(connection.stage(), Stage::Identifying); // the limit has not begun
    connection.step(true);
    EXPECT_THAT(line.sent, ElementsAre("*IDN?"));
    clock.sleep(20);
    connection.step(false); // the answer is taken, and that is all
    EXPECT_EQ(connection.stage(), Stage::Sizing);
    EXPECT_THAT(line.sent, ElementsAre("*IDN?"));
    stepFor(100);
    EXPECT_TRUE(connection.isUp());
}

TEST_F(ConnectionTest, NoticesAPeerThatClosesWhileItMayNotSend)
{
    start();
    connection.step(false);
    line.close();
    connection.step(false);
    EXPECT_EQ(connection.stage(), Stage::Down);
}

TEST_F(ConnectionTest, BlocksUntilItIsUp)
{
    line.opensAfter = 300;
    answer({{"*IDN?", identity}, {":CHAN:COUN?", "2\n"}}, 200);
    EXPECT_TRUE(connection.startAndWait(std::make_unique<ScriptedTransport>(line)));
    EXPECT_EQ(clock.elapsed(), 700);
    EXPECT_TRUE(connection.isUp());
}

TEST_F(ConnectionTest, BlocksNoLongerThanItsLimits)
{
    line.opensAfter = std::nullopt;
    EXPECT_FALSE(connection.startAndWait(std::make_unique<ScriptedTransport>(line)));
    EXPECT_EQ(clock.elapsed(), 5000);
    EXPECT_EQ(connection.error(), LinkError::TimedOut);

    line.opensAfter = 0;
    EXPECT_FALSE(connection.startAndWait(std::make_unique<ScriptedTransport>(line)));
    EXPECT_EQ(clock.elapsed(), 7000);
    EXPECT_EQ(connection.end(), InstrumentLink::End::Silent);
}

TEST_F(ConnectionTest, BeginsANewLinkWithNothingOfTheOld)
{
    answer({{"*IDN?", identity}, {":CHAN:COUN?", "2\n"}, {"a?", "old\n"}});
    start();
    stepFor(100);
    connection.session()->send(Requester::Application, "a?");
    connection.session()->poll();
    EXPECT_EQ(connection.session()->answer(Requester::Application), "old");
    connection.drop();
    EXPECT_EQ(connection.lastSession()->answer(Requester::Application), "old");
    start();
    stepFor(100);
    EXPECT_EQ(connection.session()->answer(Requester::Application), std::nullopt);
    EXPECT_EQ(line.openings, 2);
}

} // namespace orb
