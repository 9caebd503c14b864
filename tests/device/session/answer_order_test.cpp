// SPDX-License-Identifier: GPL-3.0-or-later
// Which answer a query gets from an instrument that answers in order, over all latencies up to the session's patience.
#include "clock.h"
#include "recorded_exit.h"
#include "session.h"

#include <gtest/gtest.h>

#include <deque>

namespace orb {

namespace {

const QByteArray identity = "ZN,ORB3000,0001,1.0";
constexpr int shortLatency = 20;
constexpr qint64 recoveryMs = 3000; // after the latency has fallen

/// A clock without timers that only the test moves.
class PlainClock final : public Clock {
public:
    using Clock::Clock;
    QDateTime now() const override { return {}; }
    qint64 elapsed() const override { return elapsed_; }
    void sleep(int ms) override { elapsed_ += ms; }
    void yield() override {}
    void reschedule(Timer&) override {}
    void forget(Timer&) override {}

private:
    qint64 elapsed_ = 0;
};

struct Case {
    int latency = 0;
    bool isJittery = false;
    int period = 0;
    int queries = 0;              // of the list
    int unanswered = 0;           // how many of them the instrument never answers
    bool asksMore = false;        // the list begins with *IDN? and ends with two joined queries
    QByteArray joint = ";";       // between the answers to joined queries
    unsigned lostPercent = 0;     // of all answers until the latency falls
    qint64 recovery = recoveryMs; // how long it may take until every query has its answer again

    /// When the latency falls: there has been time for two markers at the longest one.
    qint64 fallsAt() const { return 4000 + latency % 7 * 100; }
};

/// What the instrument answers a line: the line itself, the identity where it asks for it.
QByteArray answerTo(const QByteArray& line, const Case& one)
{
    return QByteArray(line).replace("*IDN?", identity).replace(";", one.joint);
}

std::string text(const Case& c)
{
    return std::to_string(c.latency) + (c.isJittery ? " ms with jitter" : " ms") + ", period " +
           std::to_string(c.period) + ", " + std::to_string(c.queries) + " queries, " + std::to_string(c.unanswered) +
           " never answered";
}

/// An instrument that answers each line in order with the text of the line, after the latency, and those that begin
/// with n never.
class OrderedInstrument final : public Transport {
public:
    OrderedInstrument(Clock& clock, const Case& theCase) : clock_(clock), case_(theCase), random_(1U + theCase.latency)
    {}

    void begin() override {}
    bool open(int) override { return true; }
    void close() override {}
    State state() override { return State::Open; }
    LinkError error() const override { return LinkError::None; }
    bool flush(int) override { return true; }

    bool write(const QByteArray& line) override
    {
        ++lines;
        if (line.startsWith('n') || isLost())
            return true;
        due_.push_back(
            {std::max(due_.empty() ? 0 : due_.back().at, clock_.elapsed() + delay()), answerTo(line, case_)});
        return true;
    }
    QByteArray read() override
    {
        QByteArray bytes;
        for (; !due_.empty() && due_.front().at <= clock_.elapsed(); due_.pop_front())
            bytes += due_.front().line;
        return bytes;
    }
    bool waitReadable(int limitMs) override
    {
        const bool comes = !due_.empty() && due_.front().at <= clock_.elapsed() + limitMs;
        clock_.sleep(comes ? static_cast<int>(std::max<qint64>(due_.front().at - clock_.elapsed(), 0)) : limitMs);
        return comes;
    }

    int lines = 0;

private:
    struct Answer {
        qint64 at = 0;
        QByteArray line;
    };

    unsigned below(unsigned limit)
    {
        random_ = random_ * 1664525 + 1013904223;
        return (random_ >> 8) % limit;
    }
    bool isFast() const { return clock_.elapsed() >= case_.fallsAt() || clock_.elapsed() == 0; }
    bool isLost() { return !isFast() && case_.lostPercent > 0 && below(100) < case_.lostPercent; }
    int delay()
    {
        if (isFast())
            return shortLatency;
        return case_.isJittery ? static_cast<int>(below(static_cast<unsigned>(case_.latency + 1))) : case_.latency;
    }

    Clock& clock_;
    const Case& case_;
    unsigned random_;
    std::deque<Answer> due_;
};

struct Outcome {
    int wrong = 0;
    int missing = 0; // of the queries that are sent when all is well again
    int given = 0;
    int sent = 0;
    int lines = 0; // sent by the session, its own among them
};

std::vector<QByteArray> listOf(const Case& one)
{
    std::vector<QByteArray> list;
    for (int i = 0; i < one.queries; ++i) {
        const bool isUnanswered = (i + one.latency) % one.queries < one.unanswered;
        list.push_back((isUnanswered ? "n" : "q") + QByteArray::number(i) + '?');
    }
    if (one.asksMore) {
        list.insert(list.begin(), "*IDN?");
        list.push_back("j0?;j1?");
    }
    return list;
}

bool isRight(const std::optional<QByteArray>& answer, const QByteArray& query, const Case& one)
{
    return !answer || *answer == answerTo(query, one).split('\n').front();
}

/// A caller that sends the list round and round at its period, reads at once and again before the next query.
Outcome outcomeOf(const Case& one)
{
    RecordedExit processExit;
    orb::Run theRun(processExit);
    PlainClock clock(theRun);
    OrderedInstrument instrument(clock, one);
    Session session(clock, instrument);
    session.send(Requester::Control, "*IDN?");
    session.awaitAnswer(Requester::Control, 50);
    const auto list = listOf(one);
    Outcome outcome;
    const qint64 wellAt = one.fallsAt() + one.recovery;
    const qint64 end = wellAt + one.period * (static_cast<int>(list.size()) + 1);
    for (std::size_t i = 0; clock.elapsed() < end; i = (i + 1) % list.size()) {
        const qint64 sentAt = clock.elapsed();
        session.send(Requester::Application, list[i]);
        ++outcome.sent;
        const auto& atOnce = session.awaitAnswer(Requester::Application, 50);
        outcome.wrong += !isRight(atOnce, list[i], one);
        outcome.missing += sentAt >= wellAt && !atOnce && !list[i].startsWith('n');
        clock.sleep(static_cast<int>(sentAt + one.period - clock.elapsed()));
        session.poll();
        const auto& later = session.answer(Requester::Application);
        outcome.wrong += !isRight(later, list[i], one);
        outcome.given += later.has_value();
    }
    outcome.lines = instrument.lines;
    return outcome;
}

void expectRight(const Case& one)
{
    const Outcome outcome = outcomeOf(one);
    ASSERT_EQ(outcome.wrong, 0) << text(one);
    ASSERT_EQ(outcome.missing, 0) << text(one);
}

} // namespace

/// For each period of the caller.
class AnswerOrderTest : public testing::TestWithParam<int> {};

TEST_P(AnswerOrderTest, AnAnswerIsNeverUnderAnotherQueryAndThreeSecondsBringEveryQueryItsOwn)
{
    for (int latency = 0; latency <= 1900; ++latency)
        for (const bool isJittery : {false, true})
            for (int queries = 1; queries <= 4; ++queries)
                for (int unanswered = 0; unanswered <= std::min(queries, 2); ++unanswered)
                    ASSERT_NO_FATAL_FAILURE(expectRight({latency, isJittery, GetParam(), queries, unanswered}));
}

TEST_P(AnswerOrderTest, AnInstrumentThatIsFasterThanTheCallerAnswersEveryQueryAndIsAskedNothingMore)
{
    for (int latency = 0; latency < GetParam(); ++latency) {
        const Outcome outcome = outcomeOf({latency, latency % 2 == 1, GetParam(), 3, 0});
        ASSERT_EQ(outcome.given, outcome.sent) << latency;
        ASSERT_EQ(outcome.lines, outcome.sent + 1) << latency;
    }
}

TEST_P(AnswerOrderTest, AQueryThatIsTheMarkerItselfAndJoinedQueriesGetTheirOwnAnswersToo)
{
    for (int latency = 0; latency <= 1900; latency += 19)
        for (int unanswered = 0; unanswered <= 2; ++unanswered) {
            const Case inOneLine{latency, latency % 2 == 1, GetParam(), 3, unanswered, true};
            ASSERT_NO_FATAL_FAILURE(expectRight(inOneLine));
            Case inTwoLines = inOneLine;
            inTwoLines.joint = "\n";
            inTwoLines.recovery = 2 * recoveryMs; // markers are recognized by the lines that follow
            ASSERT_NO_FATAL_FAILURE(expectRight(inTwoLines));
        }
}

TEST_P(AnswerOrderTest, AnAnswerIsNeverUnderAnotherQueryThoughAnswersAndMarkersAreLostOrLaterThanTheNextMarker)
{
    for (int latency = 0; latency <= 12'000; latency += 131)
        for (const char* joint : {";", "\n"})
            for (const unsigned lostPercent : {0, 10, 50})
                ASSERT_NO_FATAL_FAILURE(expectRight(
                    {latency, latency % 2 == 1, GetParam(), 3, 1, latency % 3 != 0, joint, lostPercent, 60'000}))
                    << joint << lostPercent;
}

INSTANTIATE_TEST_SUITE_P(Periods, AnswerOrderTest, testing::Values(100, 200, 350, 1000));

} // namespace orb
