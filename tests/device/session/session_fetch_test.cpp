// SPDX-License-Identifier: GPL-3.0-or-later
#include "session_fixture.h"

namespace orb {

using testing::ElementsAre;

/// Blocks that a session fetches.
class SessionFetchTest : public SessionTest {};

TEST_F(SessionFetchTest, ABlockIsFetchedInPieces)
{
    const QByteArray picture(230'454, '\n');
    line.onLine = [&](const QByteArray&) {
        const QByteArray answer = asBlock(picture) + '\n';
        for (qsizetype at = 0; at < answer.size(); at += 1460)
            line.say(answer.mid(at, 1460), static_cast<int>(at / 1460));
    };
    EXPECT_EQ(session.fetchBlock("screen?", 2000), picture);
    EXPECT_EQ(clock.elapsed(), 157);
    echo(1);
    EXPECT_EQ(ask("b?"), "b? #1");
    EXPECT_THAT(line.sent, ElementsAre("screen?", "b?"));
}

TEST_F(SessionFetchTest, AFetchEndsAtItsLimitAndALaterAnswerIsRight)
{
    for (const QByteArray& answer :
         {QByteArray(), QByteArray("#41000" + QByteArray(500, '\n')), QByteArray("#74000000"), QByteArray("1.5\n"),
          QByteArray("#9987654321 and so on\n and on\n")}) {
        line.onLine = [&](const QByteArray& text) { line.say(text == "*IDN?" ? identity + '\n' : answer, 1); };
        const qint64 begin = clock.elapsed();
        EXPECT_EQ(session.fetchBlock("screen?", 1000), std::nullopt);
        EXPECT_LE(clock.elapsed() - begin, 1000);
        line.say("x\n\ny\n", 30); // the rest
        echo(50);
        send("b?");
        clock.sleep(60);
        EXPECT_TRUE(reply().startsWith("b? #")) << answer.left(10).toStdString();
        EXPECT_EQ(session.answer(Requester::Control), std::nullopt);
    }
}

TEST_F(SessionFetchTest, AFetchFindsItsPlaceWhereAQueryIsUnanswered)
{
    send("lost?");
    clock.sleep(100);
    line.onLine = [&](const QByteArray& text) {
        line.say(text == "*IDN?" ? identity + '\n' : QByteArray("#15a\nb\nc\n"), 1);
    };
    EXPECT_EQ(session.fetchBlock("screen?", 1000), "a\nb\nc");
    EXPECT_THAT(line.sent, ElementsAre("lost?", "*IDN?", "screen?"));
}

TEST_F(SessionFetchTest, ALateAnswerOfTheApplicationIsNotTakenForABlock)
{
    send("a?");
    line.say("#15abc\n", 20);
    line.onLine = [&](const QByteArray& text) {
        line.say(text == "*IDN?" ? identity + '\n' : QByteArray("#15a\nb\nc\n"), 30);
    };
    EXPECT_EQ(session.fetchBlock("screen?", 1000), "a\nb\nc");
    EXPECT_EQ(reply(), "nothing");
}

TEST_F(SessionFetchTest, AFetchOverALinkThatIsDownReturnsAtOnce)
{
    line.close();
    EXPECT_EQ(session.fetchBlock("screen?", 1000), std::nullopt);
    EXPECT_EQ(clock.elapsed(), 0);
}

TEST_F(SessionFetchTest, AFetchEndsWhenTheInstrumentCloses)
{
    line.close(100);
    EXPECT_EQ(session.fetchBlock("screen?", 1000), std::nullopt);
    EXPECT_LE(clock.elapsed(), 1000);
}

TEST_F(SessionFetchTest, ABlockFollowsItsLine)
{
    EXPECT_TRUE(session.sendBlock(":MEM:DATA ", "a?\nb", 100));
    EXPECT_THAT(line.sent, ElementsAre(":MEM:DATA #14a?\nb"));
    echo(0);
    EXPECT_EQ(ask("a?"), "a? #1"); // the question mark in the block asked nothing
    line.close();
    EXPECT_FALSE(session.sendBlock(":MEM:DATA ", "a", 100));
}

} // namespace orb
