// SPDX-License-Identifier: GPL-3.0-or-later
#include "like.h"

#include <gmock/gmock.h>

using namespace orb;

namespace {

bool like(const QString& text, const QString& pattern)
{
    const auto parsed = LikePattern::parse(pattern);
    EXPECT_TRUE(parsed) << pattern.toStdString();
    return parsed && parsed->matches(text);
}

TEST(Like, AnAsteriskIsAnyRunOfCharacters)
{
    EXPECT_TRUE(like("20240131001", "20240131*"));
    EXPECT_TRUE(like("20240131", "20240131*"));
    EXPECT_FALSE(like("20240130001", "20240131*"));
    EXPECT_TRUE(like("Repeat Count(0:inf)", "*Repeat Count*"));
    EXPECT_TRUE(like("", "*"));
    EXPECT_TRUE(like("aXbXc", "a*b*c"));
    EXPECT_FALSE(like("aXbXcX", "a*b*c"));
    EXPECT_TRUE(like("abab", "*ab"));
}

TEST(Like, AQuestionMarkIsOneCharacter)
{
    EXPECT_TRUE(like("cat", "c?t"));
    EXPECT_FALSE(like("ct", "c?t"));
    EXPECT_TRUE(like("c\u4e2dt", "c?t"));
    EXPECT_TRUE(like("\U0001F600", "?")); // one character, though it takes two units
}

TEST(Like, ANumberSignIsOneDigit)
{
    EXPECT_TRUE(like("K12B", "K##B"));
    EXPECT_FALSE(like("K1xB", "K##B"));
}

TEST(Like, AListIsOneOfItsCharacters)
{
    EXPECT_TRUE(like("b", "[a-c]"));
    EXPECT_FALSE(like("d", "[a-c]"));
    EXPECT_TRUE(like("7", "[a-c5-9]"));
    EXPECT_TRUE(like("-", "[-a]"));
    EXPECT_TRUE(like("-", "[a-]"));
    EXPECT_TRUE(like("*", "[*]"));
    EXPECT_FALSE(like("x", "[*]"));
    EXPECT_TRUE(like("?#[", "[?][#][[]"));
    EXPECT_TRUE(like("ab", "a[]b"));
}

TEST(Like, AListWithAnExclamationMarkIsNoneOfItsCharacters)
{
    EXPECT_TRUE(like("d", "[!a-c]"));
    EXPECT_FALSE(like("b", "[!a-c]"));
    EXPECT_FALSE(like("", "[!a-c]"));
    EXPECT_TRUE(like("!", "[!]"));
    EXPECT_TRUE(like("!", "[a!]"));
}

TEST(Like, HasNoRegardToCase)
{
    EXPECT_TRUE(like("ON_END_OF_SEQ value", "*On_End_Of_Seq Value*"));
    EXPECT_TRUE(like("M", "[a-z]"));
    EXPECT_TRUE(like("m", "[A-Z]"));
    EXPECT_FALSE(like("M", "[!a-z]"));
    EXPECT_TRUE(like("ÄÖÜ", "äöü"));
}

TEST(Like, ThePercentSignAndTheUnderscoreArePlainCharacters)
{
    EXPECT_FALSE(like("abc", "a%"));
    EXPECT_TRUE(like("a%", "a%"));
    EXPECT_FALSE(like("abc", "a_c"));
    EXPECT_TRUE(like("a_c", "a_c"));
    EXPECT_TRUE(like("a]b", "a]b"));
}

TEST(Like, RefusesAListThatIsNotClosedAndARangeThatRunsBackwards)
{
    EXPECT_FALSE(LikePattern::parse(u"a[bc"));
    EXPECT_FALSE(LikePattern::parse(u"["));
    EXPECT_FALSE(LikePattern::parse(u"[z-a]"));
}

TEST(Like, TakesNoLongerForManyRuns)
{
    const QString text(20000, 'a');
    EXPECT_FALSE(like(text, "*a*a*a*a*a*a*a*a*a*a*b"));
}

} // namespace
