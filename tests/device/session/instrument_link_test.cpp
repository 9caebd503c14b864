// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_link.h"
#include "link_status_text.h"
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

class InstrumentLinkTest : public testing::Test {
protected:
    void start() { link.start(std::make_unique<ScriptedTransport>(line)); }
    /// Steps every 20 ms, as the control's timer does.
    void stepFor(int ms)
    {
        link.step(true);
        for (int passed = 0; passed < ms && link.isConnecting(); passed += 20) {
            clock.sleep(20);
            link.step(true);
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
    QString statusText() const { return linkStatus(link, QStringLiteral("load:5025")).text; }
    Tone tone() const { return linkStatus(link, QStringLiteral("load:5025")).tone; }

    RecordedExit processExit;
    orb::Run run{processExit};
    VirtualClock clock{run};
    ScriptedLine line{clock};
    InstrumentLink link{clock};
    const QByteArray identity = "ZN,ORB3000,0001,1.0\n";
};

TEST_F(InstrumentLinkTest, ALinkGoesUpThroughItsStages)
{
    line.opensAfter = 100;
    answer({{"*IDN?", identity}, {":CHAN:COUN?", "4\r\n"}}, 30);
    EXPECT_EQ(statusText(), "Not connected. Choose the link and press Connect.");
    start();
    link.step(true);
    EXPECT_EQ(statusText(), "Connecting to load:5025...");
    EXPECT_EQ(tone(), Tone::Busy);
    clock.sleep(100);
    link.step(true);
    EXPECT_EQ(statusText(), "load:5025 took the connection. Asking what it is...");
    clock.sleep(30);
    link.step(true);
    EXPECT_EQ(statusText(), "load:5025 is an instrument. Asking for its channels...");
    EXPECT_EQ(link.session(), nullptr);
    EXPECT_FALSE(link.isUp());
    clock.sleep(30);
    link.step(true);
    EXPECT_EQ(statusText(), "Connected to load:5025.");
    EXPECT_EQ(tone(), Tone::Good);
    EXPECT_TRUE(link.isUp());
    EXPECT_EQ(link.channelCount(), 4);
    EXPECT_EQ(link.identity().model, "ORB3000");
    EXPECT_THAT(line.sent, ElementsAre("*IDN?", ":CHAN:COUN?"));
}

TEST_F(InstrumentLinkTest, ALinkGoesUpInOneStepWhereEverythingIsThereAtOnce)
{
    answer({{"*IDN?", identity}, {":CHAN:COUN?", "8\n"}});
    start();
    link.step(true);
    EXPECT_TRUE(link.isUp());
}

TEST_F(InstrumentLinkTest, TheReadingsAreCountedWhereTheInstrumentDoesNotGiveItsNumberOfChannels)
{
    answer({{"*IDN?", identity}, {":FETC:ALLC?", "0.1,0.2,0.3,\n"}});
    start();
    stepFor(10'000);
    EXPECT_EQ(link.channelCount(), 3);
    EXPECT_THAT(line.sent, ElementsAre("*IDN?", ":CHAN:COUN?", "*IDN?", ":FETC:ALLC?")); // the second is a marker
}

TEST_F(InstrumentLinkTest, TheReadingsAreCountedWhereTheNumberOfChannelsMakesNoSense)
{
    for (const QByteArray count : {"0\n", "-1\n", "9\n", "many\n", "\n"}) {
        answer({{"*IDN?", identity}, {":CHAN:COUN?", count}, {":FETC:ALLC?", "0.1,0.2,\n"}});
        start();
        stepFor(10'000);
        EXPECT_EQ(link.channelCount(), 2) << count.toStdString();
    }
    answer({{"*IDN?", identity}, {":FETC:ALLC?", "1,2,3,4,5,6,7,8,9,10,\n"}});
    start();
    stepFor(10'000);
    EXPECT_EQ(link.channelCount(), 8);
}

TEST_F(InstrumentLinkTest, AnInstrumentThatGivesNeitherHasOneChannel)
{
    answer({{"*IDN?", identity}});
    start();
    stepFor(10'000);
    EXPECT_TRUE(link.isUp());
    EXPECT_EQ(link.channelCount(), 1);
    EXPECT_EQ(clock.elapsed(), 4000); // two seconds for each of the two ways
}

TEST_F(InstrumentLinkTest, AFailureOfTheTransportHasItsOwnText)
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
        EXPECT_EQ(statusText(), expected);
        EXPECT_EQ(tone(), Tone::Bad);
    }
}

TEST_F(InstrumentLinkTest, ConnectingEndsWhenNobodyAnswersWithinTheLimit)
{
    line.opensAfter = std::nullopt;
    start();
    stepFor(60'000);
    EXPECT_EQ(statusText(), "load:5025 did not answer within 5 seconds. Is it switched on, and is this its address?");
    EXPECT_EQ(clock.elapsed(), 5000);
}

TEST_F(InstrumentLinkTest, ASilentRemoteEndHasItsOwnText)
{
    start();
    stepFor(60'000);
    EXPECT_EQ(statusText(),
              "load:5025 took the connection, but did not answer *IDN? within 2 seconds. Is it an instrument?");
    EXPECT_EQ(clock.elapsed(), 2000);
}

TEST_F(InstrumentLinkTest, WhatIsNoInstrumentIsQuoted)
{
    line.onLine = [this](const QByteArray&) { line.say("SSH-2.0-\x1b[2J%1 server\r\n"); };
    start();
    stepFor(60'000);
    EXPECT_EQ(statusText(), "load:5025 answered, but not as an instrument does. It said: \"SSH-2.0- [2J%1 server\"");
}

TEST_F(InstrumentLinkTest, ALineThatNeverEndsIsQuoted)
{
    line.onLine = [this](const QByteArray&) { line.say("\xff\xfblogin: "); };
    start();
    stepFor(60'000);
    EXPECT_EQ(link.end(), InstrumentLink::End::NoInstrument);
    EXPECT_TRUE(link.rejectedText().endsWith(QStringLiteral("login:")));
}

TEST_F(InstrumentLinkTest, AGreetingThatNothingFollowsIsQuoted)
{
    line.say("SSH-2.0-server\r\n");
    start();
    stepFor(60'000);
    EXPECT_EQ(statusText(), "load:5025 answered, but not as an instrument does. It said: \"SSH-2.0-server\"");
}

TEST_F(InstrumentLinkTest, AnAnswerThatIsTooLongIsNotQuotedButNamed)
{
    line.onLine = [this](const QByteArray&) { line.say(QByteArray(200'000, 'x') + '\n'); };
    start();
    stepFor(60'000);
    EXPECT_EQ(statusText(),
              "load:5025 answered, but not as an instrument does. It said: \"(an answer of more than 64 KiB)\"");
}

TEST_F(InstrumentLinkTest, TheIdentityMayFollowAGreeting)
{
    answer({{"*IDN?", identity}, {":CHAN:COUN?", "2\n"}}, 10);
    line.say("Welcome to the load!\nlast login: today\n", 5);
    start();
    stepFor(10'000);
    EXPECT_TRUE(link.isUp());
    EXPECT_EQ(link.channelCount(), 2);
}

/// It comes after *IDN? went out, so that it stands where the answer belongs.
TEST_F(InstrumentLinkTest, AGreetingThatLooksLikeAnIdentityIsReplacedByTheOneAfterIt)
{
    for (const int identityMs : {10, 30}) { // in one packet with the greeting, or when more was asked by then
        int identities = 0;
        line.onLine = [&](const QByteArray& text) {
            if (text == "*IDN?" && ++identities == 1)
                line.say("LOAD, remote interface, 2 channels, ready\r\n", 10);
            line.say(text == "*IDN?" ? identity : QByteArray(text == ":CHAN:COUN?" ? "2\n" : "volts\n"), identityMs);
        };
        start();
        stepFor(1000);

        EXPECT_EQ(link.identity().maker, "ZN") << identityMs;
        EXPECT_EQ(link.channelCount(), 2) << identityMs;
        link.session()->send(Requester::Application, ":FETC:ALLV?");
        EXPECT_EQ(link.session()->awaitAnswer(Requester::Application, 50).value_or("nothing"), "volts") << identityMs;
    }
    EXPECT_THAT(line.sent, ElementsAre("*IDN?", "*IDN?", ":CHAN:COUN?", ":FETC:ALLV?", //
                                       "*IDN?", ":CHAN:COUN?", "*IDN?", ":CHAN:COUN?", ":FETC:ALLV?"));
}

TEST_F(InstrumentLinkTest, AnInstrumentThatIsAnotherOneWithEachAnswerIsTakenAtItsSecondWord)
{
    int answers = 0;
    line.onLine = [&](const QByteArray&) { line.say("ZN,ORB" + QByteArray::number(++answers) + ",1,1\n", 30); };
    start();
    stepFor(60'000);

    EXPECT_TRUE(link.isUp());
    EXPECT_EQ(link.identity().model, "ORB2");
    EXPECT_LT(clock.elapsed(), 10'000);
}

TEST_F(InstrumentLinkTest, ACloseBeforeTheIdentityHasItsOwnText)
{
    line.onLine = [this](const QByteArray&) { line.close(10); };
    start();
    stepFor(10'000);
    EXPECT_EQ(statusText(), "load:5025 closed the connection before it identified itself.");
}

TEST_F(InstrumentLinkTest, AnInstrumentThatClosesTheLinkIsNoticed)
{
    answer({{"*IDN?", identity}, {":CHAN:COUN?", "2\n"}});
    start();
    stepFor(100);
    ASSERT_TRUE(link.isUp());
    line.close();
    EXPECT_FALSE(link.isUp());
    EXPECT_EQ(statusText(), "load:5025 closed the link.");
    EXPECT_EQ(link.channelCount(), 0);
    EXPECT_EQ(link.session(), nullptr);
}

TEST_F(InstrumentLinkTest, ACancelEndsEveryStage)
{
    line.opensAfter = 100;
    start();
    link.step(true);
    link.drop();
    EXPECT_EQ(statusText(), "Connecting was cancelled.");

    start();
    stepFor(200); // asks what it is, and gets no answer
    EXPECT_EQ(link.stage(), Stage::Identifying);
    link.drop();
    EXPECT_EQ(link.stage(), Stage::Down);
    link.step(true);
    EXPECT_EQ(link.stage(), Stage::Down);
    EXPECT_EQ(statusText(), "Connecting was cancelled.");
}

TEST_F(InstrumentLinkTest, ADroppedLinkIsDisconnected)
{
    answer({{"*IDN?", identity}, {":CHAN:COUN?", "2\n"}});
    start();
    stepFor(100);
    link.drop();
    EXPECT_FALSE(link.isUp());
    EXPECT_EQ(statusText(), "Disconnected.");
    link.drop();
    EXPECT_EQ(statusText(), "Disconnected.");
}

TEST_F(InstrumentLinkTest, NothingIsSentWhileItMayNot)
{
    answer({{"*IDN?", identity}, {":CHAN:COUN?", "2\n"}}, 10);
    start();
    for (int i = 0; i < 1000; ++i) {
        link.step(false);
        clock.sleep(20);
    }
    EXPECT_THAT(line.sent, IsEmpty());
    EXPECT_EQ(link.stage(), Stage::Identifying); // the limit has not begun
    link.step(true);
    EXPECT_THAT(line.sent, ElementsAre("*IDN?"));
    clock.sleep(20);
    link.step(false); // the answer is taken, and that is all
    EXPECT_EQ(link.stage(), Stage::Sizing);
    EXPECT_THAT(line.sent, ElementsAre("*IDN?"));
    stepFor(100);
    EXPECT_TRUE(link.isUp());
}

TEST_F(InstrumentLinkTest, ACloseIsNoticedWhileNothingMayBeSent)
{
    start();
    link.step(false);
    line.close();
    link.step(false);
    EXPECT_EQ(link.stage(), Stage::Down);
}

TEST_F(InstrumentLinkTest, ABlockingStartReturnsWhenTheLinkIsUp)
{
    line.opensAfter = 300;
    answer({{"*IDN?", identity}, {":CHAN:COUN?", "2\n"}}, 200);
    EXPECT_TRUE(link.startAndWait(std::make_unique<ScriptedTransport>(line)));
    EXPECT_EQ(clock.elapsed(), 700);
    EXPECT_TRUE(link.isUp());
}

TEST_F(InstrumentLinkTest, ABlockingStartTakesNoLongerThanItsLimits)
{
    line.opensAfter = std::nullopt;
    EXPECT_FALSE(link.startAndWait(std::make_unique<ScriptedTransport>(line)));
    EXPECT_EQ(clock.elapsed(), 5000);
    EXPECT_EQ(link.error(), LinkError::TimedOut);

    line.opensAfter = 0;
    EXPECT_FALSE(link.startAndWait(std::make_unique<ScriptedTransport>(line)));
    EXPECT_EQ(clock.elapsed(), 7000);
    EXPECT_EQ(link.end(), InstrumentLink::End::Silent);
}

TEST_F(InstrumentLinkTest, ANewLinkHasNothingOfTheOld)
{
    answer({{"*IDN?", identity}, {":CHAN:COUN?", "2\n"}, {"a?", "old\n"}});
    start();
    stepFor(100);
    link.session()->send(Requester::Application, "a?");
    link.session()->poll();
    EXPECT_EQ(link.session()->answer(Requester::Application), "old");
    link.drop();
    EXPECT_EQ(link.lastSession()->answer(Requester::Application), "old");
    start();
    stepFor(100);
    EXPECT_EQ(link.session()->answer(Requester::Application), std::nullopt);
    EXPECT_EQ(line.openings, 2);
}

} // namespace orb
