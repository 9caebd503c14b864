// SPDX-License-Identifier: GPL-3.0-or-later
#include "session_fixture.h"

#include <random>

namespace orb {

namespace {
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
} // namespace

TEST_F(SessionTest, ALineGoesOutAndItsAnswerCanBeReadAgainAndAgain)
{
    echo(1);
    EXPECT_TRUE(send("a?"));
    EXPECT_EQ(reply(), "a? #1");
    EXPECT_EQ(reply(), "a? #1");
    EXPECT_THAT(line.sent, ElementsAre("a?"));
}

TEST_F(SessionTest, ACommandThatAsksNothingLeavesTheLastAnswer)
{
    echo(0);
    EXPECT_EQ(ask(":CURR 5"), "nothing");
    EXPECT_EQ(ask("a?"), "a? #1");
    EXPECT_EQ(ask(":CURR 6"), "a? #1");
}

TEST_F(SessionTest, ANewQueryMakesTheAnswerEmptyUntilItsOwnHasCome)
{
    echo(60);
    EXPECT_EQ(ask("a?"), "nothing");
    clock.sleep(10);
    EXPECT_EQ(reply(), "a? #1");
    EXPECT_EQ(ask("b?"), "nothing");
}

TEST_F(SessionTest, ASendNeverWaits)
{
    for (int i = 0; i < 20; ++i)
        send("lost" + QByteArray::number(i) + '?');
    EXPECT_EQ(clock.elapsed(), 0);
}

TEST_F(SessionTest, AnAnswerThatIsUnderWayIsWaitedFor)
{
    echo(49);
    EXPECT_EQ(ask("a?"), "a? #1");
    EXPECT_THAT(clock.sleeps, ElementsAre(49));
}

TEST_F(SessionTest, TheWaitEndsAtItsLimit)
{
    echo(51);
    EXPECT_EQ(ask("a?"), "nothing");
    EXPECT_EQ(clock.elapsed(), 50);
    clock.sleep(1);
    EXPECT_EQ(reply(), "a? #1");
}

TEST_F(SessionTest, NothingIsWaitedForWhenNoAnswerIsUnderWay)
{
    EXPECT_EQ(reply(), "nothing");        // nothing was asked
    EXPECT_EQ(ask(":CURR 5"), "nothing"); // this asks nothing
    send("a?");
    clock.sleep(100);
    clock.sleeps.clear();
    EXPECT_EQ(reply(), "nothing"); // it was asked long enough ago
    EXPECT_THAT(clock.sleeps, IsEmpty());
}

TEST_F(SessionTest, APartThatIsInIsWaitedFor)
{
    send("a?");
    for (int i = 0; i < 5; ++i)
        line.say(QByteArray::number(i) + ',', 10 * i);
    line.say("5\r\n", 90);
    EXPECT_EQ(reply(), "nothing");
    clock.sleep(10); // 60: a part is in and the rest may come at any moment
    EXPECT_EQ(reply(), "0,1,2,3,4,5");
    EXPECT_EQ(clock.elapsed(), 90);
}

TEST_F(SessionTest, APartThatIsFoundLateIsWaitedFor)
{
    send("a?");
    line.say("1.", 200);
    line.say("5\n", 290);
    clock.sleep(250);
    EXPECT_EQ(reply(), "1.5");
    EXPECT_EQ(clock.elapsed(), 290);
}

TEST_F(SessionTest, APartThatDoesNotGrowIsWaitedForNoLongerThanTheLimit)
{
    send("a?");
    line.say("1.", 5);
    clock.sleep(100);
    EXPECT_EQ(reply(), "nothing");
    EXPECT_EQ(clock.elapsed(), 150);
    clock.sleep(100);
    EXPECT_EQ(reply(), "nothing");
    EXPECT_EQ(clock.elapsed(), 250); // it is not waited for again
}

TEST_F(SessionTest, TheTailOfAStalledAnswerIsNoAnswer)
{
    for (const char* next : {"b?", "a?"}) { // the same query too, so that the text does not tell them apart
        send("a?");
        line.say("1.0,2.", 5);
        clock.sleep(1500);
        send(next);
        line.say("5,6.5,\n", 10);
        line.say("7.0,8.0,\n", 20);
        EXPECT_EQ(reply(), "7.0,8.0,");
        clock.sleep(100);
    }
}

TEST_F(SessionTest, AnAnswerThatContinuesATruncatedOneIsNoAnswer)
{
    send("a?");
    line.say("1.0,2.", 5);
    clock.sleep(400);
    send("a?");
    line.say("3.0,4.0,\n", 5);
    EXPECT_EQ(reply(), "nothing");
    clock.sleep(400);
    send("a?");
    line.say("5.0,6.0,\n", 5);
    EXPECT_EQ(reply(), "5.0,6.0,");
}

TEST_F(SessionTest, AMarkerThatContinuesATruncatedAnswerStillTellsThePlace)
{
    send("a?");
    line.say("1.0,2.", 5);
    clock.sleep(2000);
    echo(5);
    EXPECT_EQ(ask("b?"), "b? #1");
    EXPECT_THAT(line.sent, ElementsAre("a?", "*IDN?", "b?"));
}

TEST_F(SessionTest, GarbageIsGivenToItsQueryAlone)
{
    send("a?");
    line.say("\xff\x80\x01garbage\nmore\n\n\r\n", 5);
    EXPECT_EQ(reply(), "\xff\x80\x01garbage");
    echo(5);
    EXPECT_EQ(ask("b?"), "b? #1");
}

TEST_F(SessionTest, AnAnswerThatIsTooLongHasAMessageInItsPlace)
{
    send("a?");
    line.say(QByteArray(3 * Framer::longestText, 'x') + '\n', 1);
    EXPECT_EQ(reply(), "(an answer of more than 64 KiB)");
    echo(1);
    EXPECT_EQ(ask("b?"), "b? #1");
}

TEST_F(SessionTest, ABlockHeadSwallowsNoLaterAnswer)
{
    send("a?");
    line.say("#74000000\n", 1);
    EXPECT_EQ(reply(), "#74000000");
    echo(1);
    EXPECT_EQ(ask("b?"), "b? #1");
    EXPECT_EQ(ask("c?"), "c? #2");
    EXPECT_THAT(line.sent, ElementsAre("a?", "*IDN?", "b?", "c?")); // a block may have more lines
}

TEST_F(SessionTest, TheLinesOfABlockThatNoMemberFetchesAreNoAnswers)
{
    send("screen?");
    line.say("#3100first\nsecond\n", 1);
    EXPECT_EQ(reply(), "#3100first");
    line.say("third\nfourth\n", 250);
    echo(300);
    clock.sleep(200);
    EXPECT_EQ(ask("b?"), "nothing");
    clock.sleep(270);
    EXPECT_EQ(reply(), "b? #1");
}

TEST_F(SessionTest, NoPartIsGivenWhenTheInstrumentClosesInTheMidstOfAnAnswer)
{
    send("a?");
    line.say("1.0,2.", 1);
    line.close(2);
    EXPECT_EQ(reply(), "nothing");
    clock.sleep(10);
    EXPECT_EQ(reply(), "nothing");
    EXPECT_FALSE(send("b?"));
}

TEST_F(SessionTest, AWholeAnswerIsGivenThoughTheInstrumentClosedAfterIt)
{
    send("a?");
    line.say("1\n", 1);
    line.close(1);
    clock.sleep(10);
    EXPECT_EQ(reply(), "1");
}

TEST_F(SessionTest, ACloseCostsNoMoreThanTheLimit)
{
    send("a?");
    line.close(10);
    EXPECT_EQ(reply(), "nothing");
    EXPECT_LE(clock.elapsed(), 50);
}

TEST_F(SessionTest, EverythingBeforeTheIdentityIsPassedOver)
{
    ScriptedLine other(clock);
    ScriptedTransport end(other);
    end.open(100);
    Session talk(clock, end);
    talk.send(Requester::Control, "*IDN?");
    other.say("Welcome!\nlast login, today\n");
    talk.poll();
    EXPECT_EQ(talk.answer(Requester::Control), std::nullopt);
    EXPECT_EQ(talk.rejected(), "Welcome!");
    other.say(identity + '\n');
    talk.poll();
    EXPECT_EQ(talk.answer(Requester::Control), identity);
}

TEST_F(SessionTest, AGreetingBeforeTheFirstQueryIsNoIdentityThoughItLooksLikeOne)
{
    ScriptedLine end{clock};
    ScriptedTransport link{end};
    link.open(100);
    Session talk{clock, link};
    end.say("LOAD, remote interface, 2 channels, ready\n");
    introduce(end, talk);

    talk.send(Requester::Application, "A?");
    clock.sleep(2000);
    talk.send(Requester::Application, "B?");
    EXPECT_THAT(end.sent, testing::ElementsAre("A?", "*IDN?", "B?"));
    end.say(identity + "\nb\n");
    EXPECT_EQ(talk.awaitAnswer(Requester::Application, 50).value_or("nothing"), "b");
}

TEST_F(SessionTest, WhatWasRejectedIsBounded)
{
    ScriptedLine other(clock);
    ScriptedTransport end(other);
    end.open(100);
    Session talk(clock, end);
    EXPECT_EQ(talk.rejected(), "");
    other.say(QByteArray(300, 'x'));
    talk.poll();
    EXPECT_EQ(talk.rejected(), QByteArray(256, 'x')); // it never ended its line
    other.say(QByteArray(300, 'x') + '\n');
    talk.poll();
    EXPECT_EQ(talk.rejected(), QByteArray(256, 'x'));
}

TEST_F(SessionTest, ALineThatIsTooLongOrHoldsANulIsRefused)
{
    EXPECT_FALSE(send(QByteArray(Session::longestLine + 1, 'x')));
    EXPECT_FALSE(send(QByteArray("a\0b?", 4)));
    EXPECT_THAT(line.sent, IsEmpty());
    EXPECT_TRUE(send(QByteArray(Session::longestLine, 'x')));
    EXPECT_TRUE(send("\x01\xff?"));
    EXPECT_TRUE(send(""));
    EXPECT_THAT(line.sent, SizeIs(3));
}

TEST_F(SessionTest, TheLineIsQuietWhenNothingIsDue)
{
    EXPECT_TRUE(session.isQuiet());
    send("a?");
    EXPECT_FALSE(session.isQuiet());
    clock.sleep(1999);
    EXPECT_FALSE(session.isQuiet());
    clock.sleep(1);
    EXPECT_TRUE(session.isQuiet());
}

TEST_F(SessionTest, OnlyWholeAnswersOfItsOwnAreGivenWhateverTheBytesAndTheirCuts)
{
    for (unsigned seed = 0; seed < 100; ++seed) {
        std::mt19937 random(seed);
        const auto below = [&](unsigned limit) { return static_cast<int>(random() % limit); };
        ScriptedLine other(clock);
        ScriptedTransport end(other);
        end.open(100);
        Session talk(clock, end);
        introduce(other, talk);
        int count = 0;
        int nextAt = 0; // in order, each at some time within the instrument's patience
        other.onLine = [&](const QByteArray& text) {
            const QByteArray answer =
                (text.startsWith('*') ? identities(text) : text + " is " + QByteArray::number(++count)) +
                (below(2) ? "\r\n" : "\n");
            const int now = static_cast<int>(clock.elapsed());
            nextAt = std::max(nextAt, now + below(below(4) == 0 ? 900 : 10));
            for (qsizetype at = 0; at < answer.size();) {
                const qsizetype size = 1 + below(8);
                other.say(answer.mid(at, size), nextAt - now);
                nextAt += below(3) == 0 ? below(20) : 0;
                at += size;
            }
        };
        for (int i = 0; i < 60; ++i) {
            const QByteArray question = "q" + QByteArray::number(below(3)) + '?';
            talk.send(Requester::Application, question);
            for (int read = 0; read < 3; ++read) {
                const auto answer = talk.awaitAnswer(Requester::Application, 50);
                ASSERT_TRUE(!answer || answer->startsWith(question + " is "))
                    << "seed " << seed << ": " << answer->toStdString();
                clock.sleep(below(150));
            }
        }
        clock.sleep(3000);
        other.onLine = [&](const QByteArray& text) {
            other.say(text.startsWith('*') ? identities(text) + '\n' : "in step\n", 1);
        };
        talk.send(Requester::Application, "last?");
        ASSERT_EQ(talk.awaitAnswer(Requester::Application, 50), "in step") << "seed " << seed;
    }
}

TEST_F(SessionTest, AnyBytesAreTakenAndALaterAnswerIsRight)
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
        introduce(other, talk);
        for (int i = 0; i < 20; ++i) {
            QByteArray bytes;
            for (auto n = random() % 200; n > 0; --n)
                bytes += alphabet[static_cast<qsizetype>(random() % static_cast<std::size_t>(alphabet.size()))];
            other.say(bytes, static_cast<int>(random() % 100));
            talk.send(Requester::Application, "q" + QByteArray::number(i) + '?');
            talk.awaitAnswer(Requester::Application, 50);
            clock.sleep(static_cast<int>(random() % 300));
        }
        other.onLine = [&](const QByteArray& text) {
            other.say(text.startsWith('*') ? identities(text) + '\n' : "in step\n", 1);
        };
        for (int i = 0; i < 3; ++i) { // a marker that was lost among the bytes is asked for again
            clock.sleep(9000);
            talk.send(Requester::Application, "last?");
            talk.awaitAnswer(Requester::Application, 50);
        }
        ASSERT_EQ(talk.answer(Requester::Application), "in step") << "seed " << seed;
    }
}

} // namespace orb
