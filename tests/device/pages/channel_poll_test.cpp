// SPDX-License-Identifier: GPL-3.0-or-later
#include "channel_poll.h"
#include "recorded_exit.h"
#include "scripted_line.h"
#include "virtual_clock.h"

#include <QHash>

#include <gmock/gmock.h>

namespace orb {

namespace {
using testing::ElementsAre;
using testing::IsEmpty;

const QByteArray modules = "*OPT?";
const QByteArray readings = ":FETC:ALLV?;:FETC:ALLC?;:FETC:ALLP?;:LOAD:ALL?";
const QByteArray modes = ":MODE1?;:VOLT1:RANG?;:LEV1?;:LOAD1:PROT?";
const QByteArray limits = ":CURR1:L2? MIN;:CURR1:L2? MAX";
const QByteArray setValues = ":CURR1:L2?";
} // namespace

/// The poll of one channel.
class ChannelPollTest : public testing::Test {
protected:
    ChannelPollTest()
    {
        transport.open(100);
        session.send(Requester::Control, "*IDN?");
        line.say("ZN,ORB3000,0001,1.0\n");
        session.poll();
        line.sent.clear();
        poll.restart(1);
        line.onLine = [this](const QByteArray& query) {
            line.say((query == modules    ? "K11\n"
                      : query == readings ? "48,;2,;96,;1\n"
                      : query == modes    ? "CCH;LOW;2;NONE\n"
                      : query == limits   ? "0;20\n"
                                          : "2.5\n"),
                     answerMs);
        };
    }

    /// Polls once, `ms` after the last time.
    bool pollAfter(int ms)
    {
        clock.advance(ms);
        session.poll();
        return poll.poll(session);
    }
    void pollTimes(int count)
    {
        for (int i = 0; i < count; ++i)
            pollAfter(10);
    }

    RecordedExit processExit;
    orb::Run run{processExit};
    VirtualClock clock{run};
    ScriptedLine line{clock};
    ScriptedTransport transport{line};
    Session session{clock, transport};
    ChannelPoll poll{clock};
    int answerMs = 0;
};

TEST_F(ChannelPollTest, TheFirstRoundFollowsTheModules)
{
    pollTimes(20);
    EXPECT_THAT(line.sent, ElementsAre(modules, readings, modes, limits, setValues));
    const ChannelReadout& readout = poll.readouts().at(0);
    EXPECT_EQ(readout.module, "K11");
    EXPECT_EQ(readout.volts, 48.0);
    EXPECT_EQ(readout.mode, "CCH");
    EXPECT_EQ(readout.setValue, 2.5);
    EXPECT_EQ(readout.limits, (SetLimits{0, 20}));
}

TEST_F(ChannelPollTest, ARoundBeginsFiveHundredMillisecondsAfterTheLast)
{
    pollTimes(10); // the first round begins at 20 ms
    line.sent.clear();
    pollAfter(519 - static_cast<int>(clock.elapsed()));
    EXPECT_THAT(line.sent, IsEmpty());
    pollAfter(1);
    EXPECT_THAT(line.sent, ElementsAre(readings));
    pollTimes(10);
    EXPECT_THAT(line.sent, ElementsAre(readings, modes, setValues));
}

TEST_F(ChannelPollTest, TheReadoutsAreNewAtAnAnswerAlone)
{
    answerMs = 15;
    EXPECT_FALSE(pollAfter(0));
    EXPECT_FALSE(pollAfter(10));
    EXPECT_TRUE(pollAfter(10));
    EXPECT_THAT(line.sent, ElementsAre(modules, readings));
    EXPECT_FALSE(pollAfter(10));
}

TEST_F(ChannelPollTest, APollReadsNothingFromTheLink)
{
    pollAfter(0);
    clock.advance(10);
    EXPECT_FALSE(poll.poll(session));
    EXPECT_THAT(line.sent, ElementsAre(modules));
    EXPECT_EQ(line.arrivals.size(), 1u);
}

TEST_F(ChannelPollTest, AnAnswerThatStaysAwayLeavesItsValuesUnknown)
{
    pollTimes(20);
    line.onLine = nullptr;
    poll.hurry();
    pollAfter(0);
    ASSERT_EQ(line.sent.back(), readings);
    EXPECT_FALSE(pollAfter(static_cast<int>(Session::patienceMs) - 1));
    EXPECT_EQ(poll.readouts().at(0).volts, 48.0);
    EXPECT_TRUE(pollAfter(1));
    EXPECT_EQ(poll.readouts().at(0).volts, std::nullopt);
    EXPECT_EQ(poll.readouts().at(0).loadOn, std::nullopt);
    EXPECT_EQ(poll.readouts().at(0).module, "K11");
}

TEST_F(ChannelPollTest, NothingIsSentWhileAReplyIsDue)
{
    line.onLine = nullptr;
    session.send(Requester::Application, "a?");
    pollTimes(20);
    EXPECT_THAT(line.sent, ElementsAre("a?"));
    EXPECT_FALSE(poll.isAwaiting());
    line.say("1\n");
    pollTimes(1);
    EXPECT_THAT(line.sent, ElementsAre("a?", modules));
    EXPECT_TRUE(poll.isAwaiting());
}

TEST_F(ChannelPollTest, AHurriedRoundBeginsAtTheNextPoll)
{
    pollTimes(10);
    line.sent.clear();
    poll.hurry();
    pollAfter(1);
    EXPECT_THAT(line.sent, ElementsAre(readings));
}

TEST_F(ChannelPollTest, AnAbandonedAnswerIsIgnoredAndARoundBeginsWhenItIsDue)
{
    pollTimes(3);
    ASSERT_EQ(line.sent.back(), modes);
    poll.abandon();
    EXPECT_FALSE(poll.isAwaiting());
    line.sent.clear();
    pollTimes(40);
    EXPECT_THAT(line.sent, IsEmpty());
    EXPECT_EQ(poll.readouts().at(0).mode, "");
    pollTimes(20);
    EXPECT_THAT(line.sent, ElementsAre(readings, modes, limits, setValues));
}

TEST_F(ChannelPollTest, TheModulesAreAskedForAgainAfterTheirAnswerWasAbandoned)
{
    pollTimes(1);
    poll.abandon();
    pollTimes(2);
    EXPECT_THAT(line.sent, ElementsAre(modules, modules, readings));
}

TEST_F(ChannelPollTest, ARoundWithoutAKnownModeEndsBeforeTheSetValues)
{
    line.onLine = [this](const QByteArray& query) {
        line.say('x' + QByteArray(";x").repeated(query.count('?') - 1) + '\n');
    };
    pollTimes(20);
    EXPECT_THAT(line.sent, ElementsAre(modules, readings, modes));
    line.sent.clear();
    pollTimes(50);
    EXPECT_THAT(line.sent, ElementsAre(readings, modes));
}

/// The same for an instrument that answers the queries of a line each in a line of its own.
class SeparatePollTest : public ChannelPollTest {
protected:
    SeparatePollTest()
    {
        line.onLine = [this](const QByteArray& text) {
            for (const QByteArray& query : text.split(';'))
                line.say(answers.value(query, "ZN,ORB3000,0001,1.0") + '\n', answerMs);
        };
    }
    /// Until each query goes out by itself and the next round is the third one of these.
    void becomeSeparate()
    {
        pollTimes(148);
        line.sent.clear();
        poll.hurry();
    }

    QHash<QByteArray, QByteArray> answers{{modules, "K11"},        {":FETC:ALLV?", "48,"},   {":FETC:ALLC?", "2,"},
                                          {":FETC:ALLP?", "96,"},  {":LOAD:ALL?", "1"},      {":MODE1?", "CCH"},
                                          {":VOLT1:RANG?", "LOW"}, {":LEV1?", "2"},          {":LOAD1:PROT?", "NONE"},
                                          {":CURR1:L2? MIN", "0"}, {":CURR1:L2? MAX", "20"}, {setValues, "2.5"}};
    const QList<QByteArray> eachReading = readings.split(';');
    const QList<QByteArray> eachMode = modes.split(';');
};

TEST_F(SeparatePollTest, TheSecondLoneAnswerToTheReadingsMakesEachQueryGoOutByItself)
{
    const QByteArray marker = "*IDN?";
    const QList<QByteArray> joined{modules, readings, marker, modes, marker, readings, marker};
    const QList<QByteArray> separate = (readings + ';' + modes + ';' + limits + ';' + setValues).split(';');
    pollTimes(90);
    EXPECT_EQ(line.sent.join('\n'), (joined + separate).join('\n'));
}

TEST_F(SeparatePollTest, TheAnswersToSeparateQueriesAreTheReadouts)
{
    becomeSeparate();
    const ChannelReadout& readout = poll.readouts().at(0);
    EXPECT_EQ(readout.volts, 48.0);
    EXPECT_EQ(readout.amperes, 2.0);
    EXPECT_EQ(readout.watts, 96.0);
    EXPECT_EQ(readout.loadOn, true);
    EXPECT_EQ(readout.mode, "CCH");
    EXPECT_EQ(readout.level, 2);
    EXPECT_EQ(readout.setValue, 2.5);
    EXPECT_EQ(readout.limits, (SetLimits{0, 20}));
}

TEST_F(SeparatePollTest, TheReadoutsAreNewWithTheLastAnswerOfTheirKind)
{
    becomeSeparate();
    answers[":FETC:ALLV?"] = "47,";
    for (int i = 0; i < 4; ++i)
        EXPECT_FALSE(pollAfter(10)) << i;
    EXPECT_EQ(poll.readouts().at(0).volts, 48.0);
    EXPECT_TRUE(pollAfter(10));
    EXPECT_EQ(poll.readouts().at(0).volts, 47.0);
}

TEST_F(SeparatePollTest, ReadoutsCarryTheNumberOfTheFirstOfTheirQueries)
{
    becomeSeparate();
    const int before = poll.sentCount();
    pollTimes(5);
    EXPECT_EQ(line.sent, (eachReading + QList<QByteArray>{eachMode[0]}));
    EXPECT_EQ(poll.numberOf(ChannelQueryKind::Readings), before + 1);
}

TEST_F(SeparatePollTest, AnAnswerThatStaysAwayLeavesItsOwnValueUnknown)
{
    becomeSeparate();
    const auto answer = line.onLine;
    line.onLine = [&](const QByteArray& text) { text == ":FETC:ALLC?" ? void() : answer(text); };
    pollTimes(2);
    pollAfter(static_cast<int>(Session::patienceMs));
    pollTimes(3);
    EXPECT_EQ(poll.readouts().at(0).volts, 48.0);
    EXPECT_EQ(poll.readouts().at(0).amperes, std::nullopt);
    EXPECT_EQ(poll.readouts().at(0).watts, 96.0);
}

TEST_F(SeparatePollTest, AHurriedRoundDoesNotWaitForTheEndOfALongOne)
{
    becomeSeparate();
    pollTimes(6);
    ASSERT_EQ(line.sent.back(), eachMode[1]);
    poll.hurry();
    line.sent.clear();
    pollTimes(5);
    EXPECT_EQ(line.sent, (eachReading + QList<QByteArray>{eachMode[0]}));
}

TEST_F(SeparatePollTest, AnAbandonedRoundBeginsWithItsFirstQuery)
{
    becomeSeparate();
    pollTimes(3);
    poll.abandon();
    line.sent.clear();
    poll.hurry();
    pollTimes(4);
    EXPECT_EQ(line.sent, eachReading);
}

TEST_F(SeparatePollTest, LoneAnswersWithAWholeOneBetweenThemChangeNothing)
{
    pollTimes(3);
    const auto separately = line.onLine;
    line.onLine = [this](const QByteArray& text) {
        line.say(text == readings ? "48,;2,;96,;1\n" : text == modes ? "CCH;LOW;2;NONE\n" : "ZN,ORB3000,0001,1.0\n");
    };
    pollTimes(60);
    line.onLine = separately;
    line.sent.clear();
    poll.hurry();
    pollTimes(2);
    EXPECT_THAT(line.sent, ElementsAre(readings, "*IDN?", modes));
}

TEST_F(SeparatePollTest, AnswersThatStayAwayChangeNothing)
{
    line.onLine = nullptr;
    for (int i = 0; i < 12; ++i)
        pollAfter(static_cast<int>(Session::patienceMs));
    EXPECT_THAT(line.sent, testing::Contains(readings).Times(testing::Ge(3)));
    EXPECT_THAT(line.sent, testing::Not(testing::Contains(eachReading[1])));
}

TEST_F(SeparatePollTest, TheNextConnectionBeginsWithJoinedQueries)
{
    becomeSeparate();
    pollTimes(2);
    poll.restart(1);
    line.sent.clear();
    pollTimes(4);
    EXPECT_THAT(line.sent, ElementsAre(modules, readings, "*IDN?", modes));
    pollTimes(86);
    EXPECT_EQ(line.sent.last(), setValues) << "found out anew, by two lone answers";
}

TEST_F(ChannelPollTest, ARestartForgetsEverything)
{
    pollTimes(3);
    poll.restart(2);
    EXPECT_FALSE(poll.isAwaiting());
    ASSERT_EQ(poll.readouts().size(), 2u);
    EXPECT_EQ(poll.readouts().at(0).module, "");
    line.sent.clear();
    pollTimes(2); // the round begins at once
    EXPECT_THAT(line.sent, ElementsAre(modules, readings));
}

TEST_F(ChannelPollTest, TheLimitsAreAskedForOnceInAModeAndRange)
{
    pollTimes(20);
    line.sent.clear();
    poll.hurry();
    pollTimes(10);
    EXPECT_THAT(line.sent, ElementsAre(readings, modes, setValues));
    EXPECT_EQ(poll.readouts().at(0).limits, (SetLimits{0, 20}));
    const auto answer = line.onLine;
    line.onLine = [&](const QByteArray& query) { query == modes ? line.say("CCL;LOW;2;NONE\n") : answer(query); };
    line.sent.clear();
    poll.hurry();
    pollTimes(10);
    EXPECT_THAT(line.sent, ElementsAre(readings, modes, limits, setValues));
}

TEST_F(ChannelPollTest, ReadoutsCarryTheNumberOfTheirQuery)
{
    EXPECT_EQ(poll.numberOf(ChannelQueryKind::Readings), 0);
    pollTimes(20);
    EXPECT_EQ(poll.sentCount(), 5);
    EXPECT_EQ(poll.numberOf(ChannelQueryKind::Modules), 1);
    EXPECT_EQ(poll.numberOf(ChannelQueryKind::Readings), 2);
    EXPECT_EQ(poll.numberOf(ChannelQueryKind::SetValues), 5);
    poll.hurry();
    pollAfter(0);
    EXPECT_EQ(poll.sentCount(), 6);
    EXPECT_EQ(poll.numberOf(ChannelQueryKind::Readings), 2) << "its new query is not answered yet";
    pollAfter(10);
    EXPECT_EQ(poll.numberOf(ChannelQueryKind::Readings), 6);
    poll.restart(1);
    EXPECT_EQ(poll.numberOf(ChannelQueryKind::Readings), 0);
    EXPECT_EQ(poll.sentCount(), 7);
}

} // namespace orb
