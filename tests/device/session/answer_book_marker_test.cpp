// SPDX-License-Identifier: GPL-3.0-or-later
#include "answer_book_fixture.h"

namespace orb {

/// When markers go out, and what they tell about the answers around them.
class AnswerBookMarkerTest : public AnswerBookTest {};

TEST_F(AnswerBookMarkerTest, AMarkerGoesOutWhenAQueryHasBeenUnansweredForTwoSeconds)
{
    ask("lost?");
    EXPECT_EQ(ask("b?", patience - 1), "");
    EXPECT_EQ(ask("c?", patience), "*IDN?");
    EXPECT_EQ(ask("d?", patience + 1), ""); // one is out
}

TEST_F(AnswerBookMarkerTest, AMarkerGoesOutTwoSecondsAfterTheFirstDoubtThoughAnswersCome)
{
    ask("lost?");
    for (int at = 200; at < patience; at += 200) {
        EXPECT_EQ(ask("b" + QByteArray::number(at) + '?', at), "");
        come("b");
    }
    EXPECT_EQ(ask("c?", patience), "*IDN?");
}

TEST_F(AnswerBookMarkerTest, NoMarkerGoesOutWhileEveryQueryIsAnswered)
{
    for (int i = 0; i < 100; ++i) {
        EXPECT_EQ(ask("a?", patience * i), "");
        come("1");
    }
}

TEST_F(AnswerBookMarkerTest, NoMarkerGoesOutBeforeTheIdentityIsKnown)
{
    book = AnswerBook();
    ask("lost?");
    EXPECT_EQ(ask("b?", patience), "");
}

TEST_F(AnswerBookMarkerTest, TheAnswerAfterTheMarkersIsCertain)
{
    ask("lost?");
    ask("b?", patience);
    come(identity);
    EXPECT_EQ(seen(), "nothing");
    come("b");
    EXPECT_EQ(seen(), "b");
}

TEST_F(AnswerBookMarkerTest, ALateAnswerBeforeTheMarkersIsForAnEarlierQuery)
{
    ask("a?");
    ask("b?", patience);
    come("a");
    EXPECT_EQ(seen(), "nothing");
    come("more than was asked");
    EXPECT_EQ(seen(), "nothing");
    come(identity);
    EXPECT_EQ(seen(), "nothing");
    come("b");
    EXPECT_EQ(seen(), "b");
}

TEST_F(AnswerBookMarkerTest, QueriesThatGoOutWhileTheMarkerIsOutHaveTheirAnswersAfterIt)
{
    ask("lost?");
    ask("b?", patience);
    ask("c?", patience + 200);
    come(identity);
    come("b");
    EXPECT_EQ(seen(), "nothing");
    come("c");
    EXPECT_EQ(seen(), "c");
}

TEST_F(AnswerBookMarkerTest, AMarkerGoesOutAtOnceAfterAQueryThatStayedUnansweredBefore)
{
    learnThatLostIsNotAnswered();
    EXPECT_EQ(ask("lost?", 5000), "");
    EXPECT_EQ(ask("c?", 5001), "*IDN?");
    come(identity);
    come("c");
    EXPECT_EQ(seen(), "c");
    EXPECT_EQ(ask("d?", 5002), ""); // c? was answered
}

TEST_F(AnswerBookMarkerTest, AQueryThatIsAnsweredAfterAllIsTrustedAgain)
{
    learnThatLostIsNotAnswered();
    ask("lost?", 5000);
    come("found");
    EXPECT_EQ(seen(), "found");
    ask("lost?", 6000);
    EXPECT_EQ(ask("c?", 6001), "");
}

TEST_F(AnswerBookMarkerTest, EveryQueryOfADoubtIsSuspectedUntilItIsAnswered)
{
    ask("lost?");
    ask("b?", 200);
    come("b");
    ask("c?", patience);
    come(identity);
    come("c");
    ask("b?", 5000);
    EXPECT_EQ(ask("d?", 5100), "*IDN?");
    come("b");
    come(identity);
    come("d");
    EXPECT_EQ(seen(), "d");
    ask("b?", 6000);
    EXPECT_EQ(ask("d?", 6100), ""); // b? was answered
}

TEST_F(AnswerBookMarkerTest, AMarkerThatIsLateIsAskedForAgainAtEverLongerIntervalsAndCanBeTold)
{
    ask("lost?");
    EXPECT_EQ(ask("b?", 2000), "*IDN?");
    EXPECT_EQ(ask("c?", 3999), "");
    EXPECT_EQ(ask("d?", 4000), "*IDN?;*IDN?");
    EXPECT_EQ(ask("e?", 7999), "");
    EXPECT_EQ(ask("f?", 8000), "*IDN?;*IDN?;*IDN?");
    EXPECT_EQ(ask("g?", 15'999), "");
    EXPECT_EQ(ask("h?", 16'000), "*IDN?;*IDN?;*IDN?;*IDN?");
    come(identity); // the first
    for (const char* answer : {"b", "c"})
        come(answer);
    EXPECT_EQ(seen(), "nothing");
    come(identity + ';' + twice); // the third: the second was lost
    for (const char* answer : {"f", "g"})
        come(answer);
    come(twice + ';' + twice);
    EXPECT_EQ(seen(), "nothing");
    come("h");
    EXPECT_EQ(seen(), "h");
    EXPECT_EQ(ask("i?", 17'000), "");
}

TEST_F(AnswerBookMarkerTest, ALateMarkerIsNotTakenForTheNext)
{
    ask("lost?");
    ask("b?", 2000);
    ask("c?", 4000);
    come(identity); // the first
    come("b");
    EXPECT_EQ(seen(), "nothing");
    come(twice);
    come("c");
    EXPECT_EQ(seen(), "c");
}

TEST_F(AnswerBookMarkerTest, AMarkerMayBeAnsweredInLinesOfTheirOwn)
{
    ask("lost?");
    ask("b?", 2000);
    ask("c?", 4000);
    come(identity);
    come("b");
    come(identity);
    come(identity);
    come("c");
    EXPECT_EQ(seen(), "c");
}

TEST_F(AnswerBookMarkerTest, ALostMarkerIsNoticedWhereTheNextIsAnsweredInLinesOfTheirOwn)
{
    ask("lost?");
    ask("b?", 2000); // its marker is lost, and b? too
    ask("c?", 4000);
    come(identity);
    come(identity);
    EXPECT_EQ(seen(), "nothing");
    come("c");
    EXPECT_EQ(seen(), "c");
}

TEST_F(AnswerBookMarkerTest, AQueryForTheIdentityIsToldFromTheMarker)
{
    ask("*idn?");
    EXPECT_EQ(ask("b?", 2000), "*IDN?;*IDN?");
    come(identity);
    EXPECT_EQ(seen(), "nothing");
    come(twice);
    come("b");
    EXPECT_EQ(seen(), "b");
    ask("*IDN?;*IDN?", 3000);
    EXPECT_EQ(ask("c?", 5000), "*IDN?;*IDN?;*IDN?");
    come(twice);
    come(twice + ';' + identity);
    come("c");
    EXPECT_EQ(seen(), "c");
}

TEST_F(AnswerBookMarkerTest, AQueryForTheIdentityThatIsAnsweredMakesTheMarkerNoLonger)
{
    ask("*IDN?");
    ask("lost?", 1);
    come(identity);
    EXPECT_EQ(ask("b?", 2000), "*IDN?");
}

TEST_F(AnswerBookMarkerTest, AMarkerGoesOutBeforeAQueryForTheIdentityWhereAnotherIsUnanswered)
{
    EXPECT_EQ(ask("*IDN?"), "");
    come(identity);
    EXPECT_EQ(seen(), identity);
    ask("lost?");
    EXPECT_EQ(ask("*IDN?", 1), "*IDN?");
    come(identity);
    EXPECT_EQ(seen(), "nothing");
    come(identity);
    EXPECT_EQ(seen(), identity);
}

TEST_F(AnswerBookMarkerTest, AMarkerGoesOutBeforeAFetchWhereAQueryIsUnanswered)
{
    EXPECT_EQ(book.markerBefore("screen?", true, 0), "");
    ask("lost?");
    EXPECT_EQ(book.markerBefore("screen?", true, 1), "*IDN?");
    book.asked(Requester::Control, "screen?", 1);
    EXPECT_FALSE(book.isNext(Requester::Control));
    come(identity);
    EXPECT_TRUE(book.isNext(Requester::Control));
    EXPECT_FALSE(book.isNext(Requester::Application));
    come("#10");
    EXPECT_EQ(book.answer(Requester::Control), "#10");
    EXPECT_FALSE(book.isNext(Requester::Control));
}

TEST_F(AnswerBookMarkerTest, AMarkerThatEndsACutOffAnswerIsFound)
{
    ask("lost?");
    ask("b?", 2000);
    book.answered("1.0,2." + identity, false);
    come("b");
    EXPECT_EQ(seen(), "b");
}

} // namespace orb
