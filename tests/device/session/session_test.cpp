// SPDX-License-Identifier: GPL-3.0-or-later
#include "recorded_exit.h"
#include "scripted_line.h"
#include "session.h"
#include "virtual_clock.h"

#include <gmock/gmock.h>

#include <random>

namespace orb {

namespace {
using testing::ElementsAre;
using testing::IsEmpty;
} // namespace

class SessionTest : public testing::Test {
protected:
    SessionTest() { transport.open(100); }

    bool send(const QByteArray& text) { return session.send(Requester::Application, text); }
    /// What the application would read now.
    QByteArray reply() { return session.awaitAnswer(Requester::Application, 50).value_or("nothing"); }
    /// Each query is answered with its own text and a number that counts up, `ms` later.
    void echo(int ms)
    {
        line.onLine = [this, ms](const QByteArray& text) {
            if (isQuery(text))
                line.say(text + " #" + QByteArray::number(++answers) + '\n', ms);
        };
    }

    RecordedExit processExit;
    orb::Run run{processExit};
    VirtualClock clock{run};
    ScriptedLine line{clock};
    ScriptedTransport transport{line};
    Session session{clock, transport};
    int answers = 0;
};

TEST_F(SessionTest, SendsALineAndReadsItsAnswer)
{
    echo(1);
    EXPECT_TRUE(send("*IDN?"));
    EXPECT_EQ(reply(), "*IDN? #1");
    EXPECT_EQ(reply(), "*IDN? #1");
    EXPECT_THAT(line.sent, ElementsAre("*IDN?"));
}

TEST_F(SessionTest, ReadsNothingBehindACommandThatAsksNothing)
{
    echo(0);
    send(":CURR 5");
    EXPECT_EQ(reply(), "nothing");
    send("*IDN?");
    EXPECT_EQ(reply(), "*IDN? #1");
    send(":CURR 6"); // the answer to the last query stays
    EXPECT_EQ(reply(), "*IDN? #1");
}

TEST_F(SessionTest, WaitsForAnAnswerThatIsUnderWay)
{
    echo(49);
    send("a?");
    EXPECT_EQ(reply(), "a? #1");
    EXPECT_THAT(clock.sleeps, ElementsAre(49));
}

TEST_F(SessionTest, WaitsNoLongerThanItIsTold)
{
    echo(51);
    send("a?");
    EXPECT_EQ(reply(), "nothing");
    EXPECT_EQ(clock.elapsed(), 50);
    clock.sleep(1);
    EXPECT_EQ(reply(), "a? #1");
}

TEST_F(SessionTest, DoesNotWaitWhenNoAnswerIsUnderWay)
{
    EXPECT_EQ(reply(), "nothing"); // nothing was asked
    send(":CURR 5");
    EXPECT_EQ(reply(), "nothing"); // this asks nothing
    send("a?");
    clock.sleep(100);
    clock.sleeps.clear();
    EXPECT_EQ(reply(), "nothing"); // it was asked long enough ago
    EXPECT_THAT(clock.sleeps, IsEmpty());
}

TEST_F(SessionTest, PutsASplitAnswerTogether)
{
    send("a?");
    for (int i = 0; i < 5; ++i)
        line.say(QByteArray::number(i) + ',', 10 * i);
    line.say("5\r\n", 90);
    EXPECT_EQ(reply(), "nothing");
    clock.sleep(10); // 60: a part is in and the rest may come at any moment
    EXPECT_EQ(reply(), "0,1,2,3,4,5");
}

TEST_F(SessionTest, GivesALateAnswerToNobodyAndTheNextQueryItsOwn)
{
    line.onLine = [this](const QByteArray& text) { line.say(text + "!\n", text == "a?" ? 450 : 60); };
    send("a?");
    clock.sleep(400);
    EXPECT_EQ(reply(), "nothing");
    send("b?");
    clock.sleep(51);
    EXPECT_EQ(reply(), "nothing"); // the answer to a? is in, and b? is not answered
    clock.sleep(10);
    EXPECT_EQ(reply(), "b?!");
}

TEST_F(SessionTest, GivesTheNextQueryItsOwnWhenBothAnswersComeAtOnce)
{
    QByteArray held;
    line.onLine = [this, &held](const QByteArray& text) {
        if (text == "a?")
            held = text + "!\n";
        else
            line.say(held + text + "!\n", 1);
    };
    send("a?");
    clock.sleep(400);
    send("b?");
    EXPECT_EQ(reply(), "b?!");
}

TEST_F(SessionTest, AnswersTheRepeatOfAQueryWhoseAnswerWasLost)
{
    send("a?"); // lost
    clock.sleep(400);
    EXPECT_EQ(reply(), "nothing");
    echo(2);
    send("a?");
    clock.sleep(100);
    EXPECT_EQ(reply(), "a? #1");
}

TEST_F(SessionTest, IsInStepAgainAfterALostAnswerAndAPause)
{
    send("a?"); // lost
    clock.sleep(2000);
    echo(2);
    send("b?");
    EXPECT_EQ(reply(), "b? #1");
    send("c?");
    EXPECT_EQ(reply(), "c? #2");
}

TEST_F(SessionTest, GivesGarbageToItsQueryAlone)
{
    send("a?");
    line.say("\xff\x80\x01garbage\nmore\n\n\r\n", 5);
    EXPECT_EQ(reply(), "\xff\x80\x01garbage");
    echo(5);
    send("b?");
    EXPECT_EQ(reply(), "b? #1");
}

TEST_F(SessionTest, DropsAPartThatNeverBecomesAnAnswer)
{
    send("a?");
    line.say("garbage with no end", 5);
    clock.sleep(10);
    EXPECT_EQ(reply(), "nothing");
    clock.sleep(2000);
    echo(5);
    send("b?");
    EXPECT_EQ(reply(), "b? #1");
}

TEST_F(SessionTest, DoesNotMistakeTheTailOfALateAnswerForTheNext)
{
    send("a?");
    line.say("1.0,2.", 5);
    clock.sleep(10);
    reply();
    line.say("5,\n", 20);
    clock.sleep(10);
    send("a?"); // the same query, so that the text does not tell them apart
    EXPECT_EQ(reply(), "nothing");
    line.say("3.0,4.0,\n");
    EXPECT_EQ(reply(), "3.0,4.0,");
}

TEST_F(SessionTest, GivesAnOversizeAnswerAsAnEmptyOneAndKeepsInStep)
{
    send("a?");
    line.say(QByteArray(3 * Framer::longestText, 'x') + '\n', 1);
    EXPECT_EQ(reply(), "");
    echo(1);
    send("b?");
    EXPECT_EQ(reply(), "b? #1");
}

TEST_F(SessionTest, FindsItsWayBackAfterABlockThatIsNone)
{
    send("a?");
    line.say("#9987654321 and so on\n and on\n", 1);
    EXPECT_EQ(reply(), "nothing");
    clock.sleep(2000);
    echo(1);
    send("b?");
    EXPECT_EQ(reply(), "b? #1");
}

TEST_F(SessionTest, FindsItsWayBackAfterATruncatedBlock)
{
    send("screen?");
    line.say("#41000" + QByteArray(500, '\n'), 1);
    EXPECT_EQ(reply(), "nothing");
    clock.sleep(2000);
    echo(1);
    send("b?");
    EXPECT_EQ(reply(), "b? #1");
}

TEST_F(SessionTest, HandsOutNoPartOfAnAnswerInWhichThePeerCloses)
{
    send("a?");
    line.say("1.0,2.", 1);
    line.close(2);
    EXPECT_EQ(reply(), "nothing");
    clock.sleep(10);
    EXPECT_EQ(reply(), "nothing");
    EXPECT_FALSE(send("b?"));
}

TEST_F(SessionTest, HandsOutAWholeAnswerBehindWhichThePeerCloses)
{
    send("a?");
    line.say("1\n", 1);
    line.close(1);
    clock.sleep(10);
    EXPECT_EQ(reply(), "1");
}

TEST_F(SessionTest, CostsNoMoreThanTheLimitWhenThePeerClosesMeanwhile)
{
    send("a?");
    line.close(10);
    EXPECT_EQ(reply(), "nothing");
    EXPECT_LE(clock.elapsed(), 50);
}

TEST_F(SessionTest, AsksAndWaitsWithinALimit)
{
    echo(300);
    EXPECT_EQ(session.ask(Requester::Control, "a?", 1000), "a? #1");
    EXPECT_EQ(clock.elapsed(), 300);
    line.onLine = nullptr;
    EXPECT_EQ(session.ask(Requester::Control, "b?", 1000), std::nullopt);
    EXPECT_EQ(clock.elapsed(), 1300);
}

TEST_F(SessionTest, FetchesABlockThatComesInPieces)
{
    const QByteArray picture(230'454, '\n');
    line.onLine = [&](const QByteArray&) {
        const QByteArray answer = asBlock(picture) + '\n';
        for (qsizetype at = 0; at < answer.size(); at += 1460)
            line.say(answer.mid(at, 1460), static_cast<int>(at / 1460));
    };
    const auto answer = session.ask(Requester::Control, "screen?", 2000);
    ASSERT_TRUE(answer);
    EXPECT_EQ(blockData(*answer), picture);
}

TEST_F(SessionTest, SendsABlockBehindALine)
{
    EXPECT_TRUE(session.sendBlock(":MEM:DATA ", "a?\nb", 100));
    EXPECT_THAT(line.sent, ElementsAre(":MEM:DATA #14a?\nb"));
    echo(0);
    send("a?");
    EXPECT_EQ(reply(), "a? #1"); // the question mark in the block asked nothing
}

TEST_F(SessionTest, DoesNotSendALineThatIsTooLong)
{
    EXPECT_FALSE(send(QByteArray(Session::longestLine + 1, 'x')));
    EXPECT_THAT(line.sent, IsEmpty());
}

TEST_F(SessionTest, EndsALookAtAPeerThatNeverStopsTalking)
{
    struct Chatterbox final : Transport {
        void begin() override {}
        bool open(int) override { return true; }
        void close() override {}
        State state() override { return State::Open; }
        LinkError error() const override { return LinkError::None; }
        bool write(const QByteArray&) override { return true; }
        bool flush(int) override { return true; }
        QByteArray read() override { return QByteArray(longestRead, 'x'); }
        bool waitReadable(int) override { return true; }
    } chatterbox;
    Session chat(clock, chatterbox);
    chat.send(Requester::Application, "a?");
    chat.poll();
    EXPECT_EQ(chat.answer(Requester::Application), std::nullopt);
}

TEST_F(SessionTest, HandsOutOnlyWholeAnswersOfItsOwnWhateverTheBytesAndTheirCuts)
{
    for (unsigned seed = 0; seed < 100; ++seed) {
        std::mt19937 random(seed);
        const auto below = [&](unsigned limit) { return static_cast<int>(random() % limit); };
        ScriptedLine other(clock);
        ScriptedTransport end(other);
        end.open(100);
        Session talk(clock, end);
        int count = 0;
        int nextAt = 0; // in order, each at some time within the instrument's patience
        for (int i = 0; i < 60; ++i) {
            const QByteArray question = "q" + QByteArray::number(below(3)) + '?';
            other.onLine = [&](const QByteArray& text) {
                const QByteArray answer = text + " is " + QByteArray::number(++count) + (below(2) ? "\r\n" : "\n");
                const int now = static_cast<int>(clock.elapsed());
                nextAt = std::max(nextAt, now + below(below(4) == 0 ? 900 : 10));
                for (qsizetype at = 0; at < answer.size();) {
                    const qsizetype size = 1 + below(8);
                    other.say(answer.mid(at, size), nextAt - now);
                    nextAt += below(3) == 0 ? below(20) : 0;
                    at += size;
                }
            };
            talk.send(Requester::Application, question);
            for (int look = 0; look < 3; ++look) {
                const auto answer = talk.awaitAnswer(Requester::Application, 50);
                ASSERT_TRUE(!answer || answer->startsWith(question + " is "))
                    << "seed " << seed << ": " << answer->toStdString();
                clock.sleep(below(150));
            }
        }
        clock.sleep(3000);
        other.onLine = [&](const QByteArray&) { other.say("in step\n", 1); };
        talk.send(Requester::Application, "last?");
        ASSERT_EQ(talk.awaitAnswer(Requester::Application, 50), "in step") << "seed " << seed;
    }
}

TEST_F(SessionTest, TakesAnyBytesAndIsInStepAgainBehindThem)
{
    clock.allow(36'000'000);
    const QByteArray alphabet("#0123456789\r\n\n,;\"? \0\xff"
                              "A",
                              21);
    for (unsigned seed = 0; seed < 200; ++seed) {
        std::mt19937 random(seed);
        ScriptedLine other(clock);
        ScriptedTransport end(other);
        end.open(100);
        Session talk(clock, end);
        for (int i = 0; i < 20; ++i) {
            QByteArray bytes;
            for (auto n = random() % 200; n > 0; --n)
                bytes += alphabet[static_cast<qsizetype>(random() % static_cast<std::size_t>(alphabet.size()))];
            other.say(bytes, static_cast<int>(random() % 100));
            talk.send(Requester::Application, "q" + QByteArray::number(i) + '?');
            talk.awaitAnswer(Requester::Application, 50);
            clock.sleep(static_cast<int>(random() % 300));
        }
        clock.sleep(200);
        talk.poll();
        clock.sleep(3000);
        other.onLine = [&](const QByteArray&) { other.say("in step\n", 1); };
        talk.send(Requester::Application, "last?");
        ASSERT_EQ(talk.awaitAnswer(Requester::Application, 50), "in step") << "seed " << seed;
    }
}

} // namespace orb
