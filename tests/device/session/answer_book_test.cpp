// SPDX-License-Identifier: GPL-3.0-or-later
#include "answer_book.h"

#include <gmock/gmock.h>

namespace orb {

namespace {

const QByteArray identity = "ZN,ORB3000,0001,1.0";
const QByteArray twice = identity + ';' + identity;
constexpr qint64 patience = AnswerBook::patienceMs;

} // namespace

/// Queries of the application and answers; what it would read, and which markers go out.
class AnswerBookTest : public testing::Test {
protected:
    AnswerBookTest() { book.setIdentity(identity); }

    /// A query goes out. The marker that goes out before it.
    QByteArray ask(const QByteArray& text, qint64 at = 0)
    {
        const QByteArray marker = book.markerBefore(text, false, at);
        book.asked(Requester::Application, text, at);
        return marker;
    }
    void come(const QByteArray& answer) { book.answered(answer); }
    QByteArray seen() const { return book.answer(Requester::Application).value_or("nothing"); }
    /// A query stayed unanswered, and the marker before `b?` has shown it.
    void learnThatLostIsNotAnswered()
    {
        ask("lost?");
        EXPECT_EQ(ask("b?", patience), "*IDN?");
        come(identity);
        come("b");
        EXPECT_EQ(seen(), "b");
    }

    AnswerBook book;
};

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

TEST_F(AnswerBookTest, AMarkerGoesOutWhenAQueryHasBeenUnansweredForTwoSeconds)
{
    ask("lost?");
    EXPECT_EQ(ask("b?", patience - 1), "");
    EXPECT_EQ(ask("c?", patience), "*IDN?");
    EXPECT_EQ(ask("d?", patience + 1), ""); // one is out
}

TEST_F(AnswerBookTest, AMarkerGoesOutTwoSecondsAfterTheFirstDoubtThoughAnswersCome)
{
    ask("lost?");
    for (int at = 200; at < patience; at += 200) {
        EXPECT_EQ(ask("b" + QByteArray::number(at) + '?', at), "");
        come("b");
    }
    EXPECT_EQ(ask("c?", patience), "*IDN?");
}

TEST_F(AnswerBookTest, NoMarkerGoesOutWhileEveryQueryIsAnswered)
{
    for (int i = 0; i < 100; ++i) {
        EXPECT_EQ(ask("a?", patience * i), "");
        come("1");
    }
}

TEST_F(AnswerBookTest, NoMarkerGoesOutBeforeTheIdentityIsKnown)
{
    book = AnswerBook();
    ask("lost?");
    EXPECT_EQ(ask("b?", patience), "");
}

TEST_F(AnswerBookTest, TheAnswerAfterTheMarkersIsCertain)
{
    ask("lost?");
    ask("b?", patience);
    come(identity);
    EXPECT_EQ(seen(), "nothing");
    come("b");
    EXPECT_EQ(seen(), "b");
}

TEST_F(AnswerBookTest, ALateAnswerBeforeTheMarkersIsForAnEarlierQuery)
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

TEST_F(AnswerBookTest, QueriesThatGoOutWhileTheMarkerIsOutHaveTheirAnswersAfterIt)
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

TEST_F(AnswerBookTest, AMarkerGoesOutAtOnceAfterAQueryThatStayedUnansweredBefore)
{
    learnThatLostIsNotAnswered();
    EXPECT_EQ(ask("lost?", 5000), "");
    EXPECT_EQ(ask("c?", 5001), "*IDN?");
    come(identity);
    come("c");
    EXPECT_EQ(seen(), "c");
    EXPECT_EQ(ask("d?", 5002), ""); // c? was answered
}

TEST_F(AnswerBookTest, AQueryThatIsAnsweredAfterAllIsTrustedAgain)
{
    learnThatLostIsNotAnswered();
    ask("lost?", 5000);
    come("found");
    EXPECT_EQ(seen(), "found");
    ask("lost?", 6000);
    EXPECT_EQ(ask("c?", 6001), "");
}

TEST_F(AnswerBookTest, EveryQueryOfADoubtIsSuspectedUntilItIsAnswered)
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

TEST_F(AnswerBookTest, AMarkerThatIsLateIsAskedForAgainAtEverLongerIntervalsAndCanBeTold)
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

TEST_F(AnswerBookTest, ALateMarkerIsNotTakenForTheNext)
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

TEST_F(AnswerBookTest, AMarkerMayBeAnsweredInLinesOfTheirOwn)
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

TEST_F(AnswerBookTest, ALostMarkerIsNoticedWhereTheNextIsAnsweredInLinesOfTheirOwn)
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

TEST_F(AnswerBookTest, AQueryForTheIdentityIsToldFromTheMarker)
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

TEST_F(AnswerBookTest, AQueryForTheIdentityThatIsAnsweredMakesTheMarkerNoLonger)
{
    ask("*IDN?");
    ask("lost?", 1);
    come(identity);
    EXPECT_EQ(ask("b?", 2000), "*IDN?");
}

TEST_F(AnswerBookTest, AMarkerGoesOutBeforeAQueryForTheIdentityWhereAnotherIsUnanswered)
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

TEST_F(AnswerBookTest, AMarkerGoesOutBeforeAFetchWhereAQueryIsUnanswered)
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

TEST_F(AnswerBookTest, AMarkerThatEndsACutOffAnswerIsFound)
{
    ask("lost?");
    ask("b?", 2000);
    book.answered("1.0,2." + identity, false);
    come("b");
    EXPECT_EQ(seen(), "b");
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
