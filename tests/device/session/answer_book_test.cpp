// SPDX-License-Identifier: GPL-3.0-or-later
#include "answer_book_fixture.h"

namespace orb {

TEST_F(AnswerBookTest, AnAnswerStaysUntilTheNextQuery)
{
    EXPECT_EQ(seen(), "nothing");
    ask("a?");
    EXPECT_EQ(seen(), "nothing");
    EXPECT_TRUE(book.awaits(Requester::Application));
    come("1");
    EXPECT_EQ(seen(), "1");
    EXPECT_FALSE(book.awaits(Requester::Application));
    ask("b?");
    EXPECT_EQ(seen(), "nothing");
}

TEST_F(AnswerBookTest, WhatNobodyAskedForIsIgnored)
{
    come("hello");
    ask("a?");
    come("1");
    come("2");
    EXPECT_EQ(seen(), "1");
}

TEST_F(AnswerBookTest, TheKthAnswerBelongsToTheKthQuery)
{
    ask("a?");
    ask("b?", 400);
    ask("c?", 800);
    come("1");
    come("2");
    EXPECT_EQ(seen(), "nothing");
    come("3");
    EXPECT_EQ(seen(), "3");
}

TEST_F(AnswerBookTest, AnAnswerIsHeldBackWhileItMayBelongToAnotherQuery)
{
    ask("lost?");
    ask("b?", 400);
    come("2"); // that of b?, but it might be a late one
    EXPECT_EQ(seen(), "nothing");
    ask("c?", 800);
    come("3");
    EXPECT_EQ(seen(), "nothing");
}

TEST_F(AnswerBookTest, AnEarlierAnswerServesTheSameQueryRepeated)
{
    ask("a?");
    ask("a?", 400);
    come("1");
    EXPECT_EQ(seen(), "1");
    come("2"); // what was read once stays
    EXPECT_EQ(seen(), "1");
    ask("b?", 500);
    come("3");
    EXPECT_EQ(seen(), "3");
}

TEST_F(AnswerBookTest, TheLastQueryIsWaitedForWithoutALimit)
{
    ask("a?");
    come("1");
    EXPECT_EQ(seen(), "1");
}

TEST_F(AnswerBookTest, AnIdentityIsAnAnswerLikeAnyOtherWhileNoMarkerIsOut)
{
    ask(":SYST:NAME?");
    come(identity);
    EXPECT_EQ(seen(), identity);
}

TEST_F(AnswerBookTest, AnAnswerThatIsNotWholeIsNotGivenButCounts)
{
    ask("a?");
    book.answered("1.2.", false);
    EXPECT_EQ(seen(), "nothing");
    EXPECT_FALSE(book.awaits(Requester::Application));
    ask("b?", 10);
    come("b");
    EXPECT_EQ(seen(), "b");
}

TEST_F(AnswerBookTest, JoinedQueriesMayBeAnsweredInALineEach)
{
    ask("a?;b?");
    come("1");
    EXPECT_EQ(seen(), "1");
    EXPECT_EQ(ask("c?", 1), "*IDN?");
    come("2");
    EXPECT_EQ(seen(), "nothing");
    come(identity);
    come("c");
    EXPECT_EQ(seen(), "c");
    ask("lost?", 2);
    ask("a?;b?", 3);
    ask("c?", 4);
    come("1");
    come("2");
    EXPECT_EQ(seen(), "nothing");
}

TEST_F(AnswerBookTest, JoinedQueriesThatAreAnsweredInOneLineCostNoMarker)
{
    ask("a?;b?;:CURR 5");
    come("1;2");
    EXPECT_EQ(seen(), "1;2");
    EXPECT_EQ(ask("c?", 1), "");
}

TEST_F(AnswerBookTest, AJoinedQueryThatIsAnsweredDoesNotMakeALaterAnswerDoubtful)
{
    ask("a?;b?");
    ask("c?", 1);
    come("1;2");
    come("3");
    EXPECT_EQ(seen(), "3");
    EXPECT_EQ(ask("d?", 2), "");
}

TEST_F(AnswerBookTest, NothingIsGivenInADistrustWhileALaterMarkerIsOut)
{
    ask("lost?");
    ask("b?", 2000);
    book.distrust();
    ask("b?", 4000);
    come(identity);
    come("excess");
    EXPECT_EQ(seen(), "nothing");
}

TEST_F(AnswerBookTest, TheTextsThatAreRememberedAsUnansweredAreBounded)
{
    for (int i = 0; i <= 300; ++i) {
        const QByteArray text = "lost" + QByteArray::number(i) + '?';
        ask(text, 10'000 * i);
        EXPECT_EQ(ask("b?", 10'000 * i + patience), "*IDN?");
        come(identity);
        come("b");
    }
    ask("lost0?", 4'000'000);
    EXPECT_EQ(ask("b?", 4'000'001), "*IDN?");
    come(identity);
    come("b");
    ask("lost300?", 5'000'000);
    EXPECT_EQ(ask("b?", 5'000'001), "");
}

TEST_F(AnswerBookTest, TheAnswerToTheOtherRequesterIsNotGivenForAQueryThatIsOver)
{
    ask("a?");
    book.markerBefore("b?", false, patience);
    book.asked(Requester::Control, "b?", patience);
    come(identity);
    come("b");
    book.asked(Requester::Control, "a?", 3000);
    EXPECT_FALSE(book.awaits(Requester::Application));
    come("a");
    EXPECT_EQ(seen(), "nothing");
    EXPECT_EQ(book.answer(Requester::Control), "a");
    ask("screen?", 4000);
    book.asked(Requester::Control, "screen?", 4001);
    EXPECT_FALSE(book.isNext(Requester::Control));
}

TEST_F(AnswerBookTest, EverythingIsPassedOverUntilAMarkerEndsTheDistrust)
{
    ask("a?");
    come("1");
    book.distrust();
    come("excess");
    EXPECT_EQ(seen(), "1");
    EXPECT_EQ(ask("b?", 1), "*IDN?");
    come("more");
    EXPECT_EQ(seen(), "nothing");
    come(identity);
    come("b");
    EXPECT_EQ(seen(), "b");
    EXPECT_EQ(ask("c?", 2), "");
}

TEST_F(AnswerBookTest, ADistrustLastsUntilTheLastMarkerHasCome)
{
    ask("lost?");
    ask("b?", 2000);
    book.distrust();
    ask("c?", 4000);
    come(identity);
    come("of which query?");
    EXPECT_EQ(seen(), "nothing");
    come(twice);
    come("c");
    EXPECT_EQ(seen(), "c");
}

TEST_F(AnswerBookTest, EachRequesterHasItsOwnAnswer)
{
    book.asked(Requester::Control, "*OPT?", 0);
    come("K11");
    ask("a?", 2);
    come("1");
    EXPECT_EQ(book.answer(Requester::Control), "K11");
    EXPECT_EQ(seen(), "1");
    book.asked(Requester::Control, "*OPT?", 10);
    ask("b?", 11);
    EXPECT_EQ(book.askedAt(Requester::Control), 10);
    EXPECT_EQ(book.askedAt(Requester::Application), 11);
    come("K11");
    come("2");
    EXPECT_EQ(book.answer(Requester::Control), std::nullopt);
    EXPECT_EQ(seen(), "2");
}

TEST_F(AnswerBookTest, BothRequestersThatAskTheSameGetTheAnswer)
{
    book.asked(Requester::Control, "a?", 0);
    ask("a?", 1);
    come("1");
    come("2");
    EXPECT_EQ(book.answer(Requester::Control), "1");
    EXPECT_EQ(seen(), "1");
}

TEST_F(AnswerBookTest, ARequesterThatGaveUpGetsNoAnswer)
{
    book.asked(Requester::Control, "screen?", 0);
    book.abandon(Requester::Control);
    EXPECT_FALSE(book.awaits(Requester::Control));
    come("#15hello");
    EXPECT_EQ(book.answer(Requester::Control), std::nullopt);
    ask("screen?", 1);
    come("#10");
    EXPECT_EQ(book.answer(Requester::Control), std::nullopt);
    EXPECT_EQ(seen(), "#10");
}

TEST_F(AnswerBookTest, NothingIsDueWhereItIsKnownThatNothingIsComing)
{
    ask("a?");
    book.distrust();
    book.nothingIsComing();
    EXPECT_FALSE(book.awaits(Requester::Application));
    EXPECT_EQ(ask("b?", 5000), "");
    come("b");
    EXPECT_EQ(seen(), "b");
}

TEST_F(AnswerBookTest, TheLineIsQuietWithoutAnOpenQueryOrTwoSecondsAfterTheLast)
{
    EXPECT_TRUE(book.isQuiet(0));
    ask("lost?");
    ask("b?", 1000);
    EXPECT_FALSE(book.isQuiet(1000 + patience - 1));
    EXPECT_TRUE(book.isQuiet(1000 + patience));
    ask("c?", 5000);
    come(identity);
    EXPECT_FALSE(book.isQuiet(5000));
    come("c");
    EXPECT_TRUE(book.isQuiet(5000));
}

TEST_F(AnswerBookTest, NoMoreQueriesGoOutWhileTooManyAreUnanswered)
{
    for (std::size_t i = 0; i < AnswerBook::mostOpen; ++i)
        EXPECT_TRUE(book.asked(Requester::Application, "a?", 0));
    EXPECT_FALSE(book.asked(Requester::Application, "b?", 0));
    EXPECT_EQ(seen(), "nothing");
    EXPECT_EQ(book.markerBefore("c?", false, patience), "*IDN?");
    come(identity);
    EXPECT_TRUE(book.asked(Requester::Application, "c?", patience));
    come("c");
    EXPECT_EQ(seen(), "c");
}

} // namespace orb
