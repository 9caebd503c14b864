// SPDX-License-Identifier: GPL-3.0-or-later
#include "answer_book.h"

#include <gmock/gmock.h>

#include <random>

namespace orb {

namespace {

const QByteArray current = ":FETC:ALLC?";
const QByteArray voltage = ":FETC:ALLV?";

} // namespace

/// Questions of the application at given times, answers at given times. `seen` is what it would read.
class AnswerBookTest : public testing::Test {
protected:
    void ask(const QByteArray& question, qint64 at)
    {
        book.asked(Requester::Application, question, at);
        askedAt = at;
    }
    /// An answer that is seen at the time at which it came.
    void come(const QByteArray& answer, qint64 at) { book.answered(answer, at, at); }
    QByteArray seen(qint64 at)
    {
        book.pass(at);
        return book.answer(Requester::Application).value_or("nothing");
    }

    AnswerBook book;
    qint64 askedAt = 0;
};

TEST_F(AnswerBookTest, HandsOutAnAnswerAgainAndAgain)
{
    EXPECT_EQ(seen(0), "nothing");
    ask(current, 0);
    EXPECT_EQ(seen(1), "nothing");
    EXPECT_TRUE(book.awaits(Requester::Application));
    come("1,2,", 5);
    EXPECT_EQ(seen(5), "1,2,");
    EXPECT_EQ(seen(9999), "1,2,");
    EXPECT_FALSE(book.awaits(Requester::Application));
}

TEST_F(AnswerBookTest, IsEmptyAgainAtTheNextQuery)
{
    ask(current, 0);
    come("1", 5);
    ask(voltage, 10);
    EXPECT_EQ(seen(11), "nothing");
    come("2", 15);
    EXPECT_EQ(seen(15), "2");
}

TEST_F(AnswerBookTest, IgnoresWhatNobodyAskedFor)
{
    come("hello", 0);
    EXPECT_EQ(seen(0), "nothing");
    ask(current, 5);
    come("1", 6);
    come("2", 6);
    EXPECT_EQ(seen(7), "1");
}

TEST_F(AnswerBookTest, DiscardsALateAnswerAndGivesTheNextQueryItsOwn)
{
    ask(current, 0);
    ask(voltage, 400);
    come("late", 450);
    EXPECT_EQ(seen(500), "nothing");
    come("own", 501);
    EXPECT_EQ(seen(501), "own");
}

TEST_F(AnswerBookTest, DiscardsTwoLateAnswersInARow)
{
    ask(current, 0);
    ask(voltage, 400);
    ask(current, 800);
    come("1", 850);
    come("2", 860);
    EXPECT_EQ(seen(870), "nothing");
    come("3", 880);
    EXPECT_EQ(seen(880), "3");
}

TEST_F(AnswerBookTest, StaysRightWithAnInstrumentThatHoldsEachAnswerUntilTheNextQuery)
{
    ask("a?", 0);
    for (int i = 1; i <= 3; ++i) {
        ask(QByteArray("b") + QByteArray::number(i) + '?', 400 * i);
        come("of the query before", 400 * i + 1);
        EXPECT_EQ(seen(400 * i + 399), "nothing");
    }
    ask("c?", 1600);
    come("of the query before", 1601);
    come("own", 1601);
    EXPECT_EQ(seen(1601), "own");
}

TEST_F(AnswerBookTest, TakesAnEarlierAnswerForTheSameQueryRepeated)
{
    ask(current, 0);
    ask(current, 400);
    come("1", 450);
    EXPECT_EQ(seen(450), "1");
    come("2", 460); // what was read once stays
    EXPECT_EQ(seen(460), "1");
    ask(voltage, 500);
    come("3", 505);
    EXPECT_EQ(seen(505), "3");
}

TEST_F(AnswerBookTest, WaitsForTheLastQueryWithoutALimit)
{
    ask(current, 0);
    come("1", 60'000);
    EXPECT_EQ(seen(60'000), "1");
}

TEST_F(AnswerBookTest, WritesOffWhatWasNotAnsweredForTwoSeconds)
{
    ask(current, 0); // lost
    ask(voltage, AnswerBook::patienceMs);
    come("own", AnswerBook::patienceMs + 5);
    EXPECT_EQ(seen(AnswerBook::patienceMs + 5 + AnswerBook::settleMs), "own");
    ask(current, 3000); // nothing is owed any more
    come("own again", 3001);
    EXPECT_EQ(seen(3001), "own again");
}

TEST_F(AnswerBookTest, StillTellsAnAnswerThatWasWrittenOffByTheOneBehindIt)
{
    ask(current, 0);
    ask(voltage, 5000);
    come("five seconds late", 5010);
    EXPECT_EQ(seen(5011), "nothing");
    come("own", 5012);
    EXPECT_EQ(seen(5012), "own");
}

TEST_F(AnswerBookTest, ForgetsAWrittenOffAnswerThatComesWhileNothingIsAsked)
{
    ask(current, 0);
    ask(voltage, 2000);
    come("1", 2001);
    come("2", 2002);
    EXPECT_EQ(seen(2002), "2");
    ask(current, 2100);
    come("3", 2101);
    EXPECT_EQ(seen(2101), "3");
}

TEST_F(AnswerBookTest, CostsOneAnswerMoreWhereTheNextQueryFollowsAMissingOneSoon)
{
    ask(current, 0); // lost
    ask(voltage, 400);
    come("may be late, may be its own", 401);
    EXPECT_EQ(seen(800), "nothing");
    ask(voltage, 2500); // both were written off meanwhile
    come("own", 2501);
    EXPECT_EQ(seen(2531), "own");
}

TEST_F(AnswerBookTest, GivesTheRepeatAfterAMissingAnswerItsOwn)
{
    ask(current, 0); // lost
    ask(current, 400);
    come("1", 401);
    EXPECT_EQ(seen(401), "1");
}

TEST_F(AnswerBookTest, RecoversFromAMissingAnswerInTheMidstOfQueriesThatNeverPause)
{
    qint64 now = 0;
    int blanks = 0;
    int lastBlank = 0;
    for (int i = 0; i < 60; ++i, now += 250) {
        ask(QByteArray("q") + QByteArray::number(i % 7) + '?', now);
        if (i != 3) // the one that is lost
            come(QByteArray::number(i), now + 2);
        const QByteArray answer = seen(now + 50);
        EXPECT_TRUE(answer == QByteArray::number(i) || answer == "nothing") << i << " got " << answer.toStdString();
        if (answer == "nothing") {
            ++blanks;
            lastBlank = i;
        }
    }
    EXPECT_LE(blanks, 10);
    EXPECT_LE(lastBlank, 13);
}

TEST_F(AnswerBookTest, LearnsWhichQueryTheInstrumentNeverAnswers)
{
    qint64 now = 0;
    int blanks = 0;
    for (int i = 0; i < 120; ++i, now += 250) {
        ask(i % 3 == 0 ? QByteArray("unknown?") : QByteArray("q") + QByteArray::number(i % 3) + '?', now);
        if (i % 3 != 0)
            come(QByteArray::number(i), now + 2);
        const QByteArray answer = seen(now + 50);
        EXPECT_TRUE(answer == QByteArray::number(i) || answer == "nothing") << i << " got " << answer.toStdString();
        blanks += i % 3 != 0 && answer == "nothing";
    }
    EXPECT_LE(blanks, 10);
}

TEST_F(AnswerBookTest, ForgivesAQueryThatWasLostOnceItIsAnswered)
{
    for (int i = 0; i < 3; ++i)
        ask(current, i * 3000); // lost twice, then answered
    come("1", 6001);
    EXPECT_EQ(seen(6001 + AnswerBook::settleMs), "1");
    ask(current, 6100);
    ask(voltage, 6400); // a query that was lost often would be written off by now
    come("late", 6450);
    EXPECT_EQ(seen(6490), "nothing");
    come("own", 6500);
    EXPECT_EQ(seen(6500), "own");
}

TEST_F(AnswerBookTest, IsNotDeceivedByAnInstrumentThatIsSlowerThanTheQueries)
{
    // Each answer takes 600 ms, the queries come every 250 ms and never pause.
    std::vector<std::pair<qint64, QByteArray>> due;
    for (int i = 0; i < 100; ++i) {
        const qint64 now = 250 * i;
        qint64 looked = now;
        const auto takeUntil = [&](qint64 until) {
            while (!due.empty() && due.front().first <= until) {
                book.answered(due.front().second, until, looked);
                due.erase(due.begin());
            }
            looked = until;
        };
        takeUntil(now);
        const QByteArray question = QByteArray("q") + QByteArray::number(i % 5) + '?';
        ask(question, now);
        due.emplace_back(now + 600, question);
        for (const int look : {20, 50, 100, 200}) {
            takeUntil(now + look);
            const QByteArray answer = seen(now + look);
            ASSERT_TRUE(answer == "nothing" || answer == question)
                << question.toStdString() << " got the answer to " << answer.toStdString();
        }
    }
}

TEST_F(AnswerBookTest, NeverTakesAnAnswerThatBeganBeforeTheQueryForItsOwn)
{
    ask(current, 0);
    ask(current, 400);
    book.answered("begun at 300, whole at 410", 410, 405, true);
    EXPECT_EQ(seen(410), "nothing");
    come("own", 420);
    EXPECT_EQ(seen(420), "own");

    ask(voltage, 3000);
    book.answered("begun at 2990", 3010, 3005, true);
    come("own", 3011);
    EXPECT_EQ(seen(3011), "own");
}

TEST_F(AnswerBookTest, KeepsTheVoicesApart)
{
    book.asked(Requester::Control, "*OPT?", 0);
    come("K11", 1);
    book.asked(Requester::Application, current, 2);
    come("1", 3);
    EXPECT_EQ(book.answer(Requester::Control), "K11");
    EXPECT_EQ(book.answer(Requester::Application), "1");

    book.asked(Requester::Control, "*OPT?", 10);
    book.asked(Requester::Application, voltage, 11);
    come("K11", 12);
    come("2", 13);
    EXPECT_EQ(book.answer(Requester::Application), "2");
}

TEST_F(AnswerBookTest, AnswersBothVoicesThatAskTheSame)
{
    book.asked(Requester::Control, current, 0);
    book.asked(Requester::Application, current, 1);
    come("1", 2);
    come("2", 3);
    EXPECT_EQ(book.answer(Requester::Control), "1");
    EXPECT_EQ(book.answer(Requester::Application), "1");
}

TEST_F(AnswerBookTest, HandsNothingOutToAQueryThatWasGivenUp)
{
    book.asked(Requester::Control, "screen?", 0);
    book.abandon(Requester::Control);
    EXPECT_FALSE(book.awaits(Requester::Control));
    come("#15hello", 1);
    EXPECT_EQ(book.answer(Requester::Control), std::nullopt);
}

TEST_F(AnswerBookTest, OwesNothingWhenItIsKnownThatNothingIsComing)
{
    ask(current, 0);
    book.nothingIsComing();
    EXPECT_FALSE(book.awaits(Requester::Application));
    ask(voltage, 100);
    come("own", 101);
    EXPECT_EQ(seen(101), "own");
}

TEST_F(AnswerBookTest, KnowsWhenTheLineIsQuiet)
{
    EXPECT_TRUE(book.isQuiet(0));
    ask(current, 0);
    EXPECT_FALSE(book.isQuiet(AnswerBook::patienceMs - 1));
    EXPECT_TRUE(book.isQuiet(AnswerBook::patienceMs));
    come("1", 2100);
    EXPECT_TRUE(book.isQuiet(2100));
}

TEST_F(AnswerBookTest, NeverMixesTheAnswersOfAnInstrumentThatAnswersInOrderWithinItsPatience)
{
    for (unsigned seed = 0; seed < 200; ++seed) {
        book = {};
        std::mt19937 random(seed);
        std::vector<std::pair<qint64, QByteArray>> due;
        qint64 now = 0;
        qint64 lastAnswer = 0;
        qint64 looked = 0;
        for (int i = 0; i < 200; ++i) {
            const qint64 next = now + 20 + random() % 700;
            const QByteArray question = QByteArray("q") + QByteArray::number(random() % 4) + '?';
            ask(question, now);
            // Late now and then, by less than two seconds.
            lastAnswer = std::max<qint64>(lastAnswer, now + (random() % 5 == 0 ? random() % 1900 : random() % 20));
            due.emplace_back(lastAnswer, question);
            while (!due.empty() && due.front().first <= next) {
                now = due.front().first;
                book.answered(due.front().second, now, looked);
                looked = now;
                due.erase(due.begin());
                const QByteArray answer = seen(now);
                ASSERT_TRUE(answer == "nothing" || answer == question) << "seed " << seed << ", query " << i;
            }
            const QByteArray answer = seen(next);
            ASSERT_TRUE(answer == "nothing" || answer == question) << "seed " << seed << ", query " << i;
            now = looked = next;
        }
    }
}

} // namespace orb
