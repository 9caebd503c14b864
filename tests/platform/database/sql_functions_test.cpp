// SPDX-License-Identifier: GPL-3.0-or-later
#include "sql_functions.h"

#include <gmock/gmock.h>

using namespace orb;

namespace {

TEST(SqlFunctionsTest, AnAsteriskIsAnyRunOfCharacters)
{
    EXPECT_TRUE(isLike("20240131001", "20240131*"));
    EXPECT_TRUE(isLike("20240131", "20240131*"));
    EXPECT_FALSE(isLike("20240130001", "20240131*"));
    EXPECT_TRUE(isLike("Repeat Count(0:inf)", "*Repeat Count*"));
    EXPECT_TRUE(isLike("", "*"));
    EXPECT_TRUE(isLike("aXbXc", "a*b*c"));
    EXPECT_FALSE(isLike("aXbXcX", "a*b*c"));
    EXPECT_TRUE(isLike("abab", "*ab"));
}

TEST(SqlFunctionsTest, AQuestionMarkIsOneCharacter)
{
    EXPECT_TRUE(isLike("cat", "c?t"));
    EXPECT_FALSE(isLike("ct", "c?t"));
    EXPECT_TRUE(isLike("c\u4e2dt", "c?t"));
    EXPECT_TRUE(isLike("\U0001F600", "?")); // one character, though it takes two units
}

TEST(SqlFunctionsTest, ANumberSignIsOneDigit)
{
    EXPECT_TRUE(isLike("K12B", "K##B"));
    EXPECT_FALSE(isLike("K1xB", "K##B"));
    EXPECT_TRUE(isLike("a#1", "[a-c][#]#"));
}

TEST(SqlFunctionsTest, AListIsOneOfItsCharacters)
{
    EXPECT_TRUE(isLike("b", "[a-c]"));
    EXPECT_FALSE(isLike("d", "[a-c]"));
    EXPECT_TRUE(isLike("7", "[a-c5-9]"));
    EXPECT_TRUE(isLike("-", "[-a]"));
    EXPECT_TRUE(isLike("-", "[a-]"));
    EXPECT_TRUE(isLike("*", "[*]"));
    EXPECT_FALSE(isLike("x", "[*]"));
    EXPECT_TRUE(isLike("?#[", "[?][#][[]"));
}

TEST(SqlFunctionsTest, AListWithAnExclamationMarkIsNoneOfItsCharacters)
{
    EXPECT_TRUE(isLike("d", "[!a-c]"));
    EXPECT_FALSE(isLike("b", "[!a-c]"));
    EXPECT_FALSE(isLike("", "[!a-c]"));
    EXPECT_TRUE(isLike("!", "[a!]"));
    EXPECT_TRUE(isLike("!", "!"));
    EXPECT_FALSE(isLike("a", "!"));
}

TEST(SqlFunctionsTest, AListThatIsNeverClosedMatchesNothing)
{
    EXPECT_FALSE(isLike("a[bc", "a[bc"));
    EXPECT_FALSE(isLike("b", "["));
}

TEST(SqlFunctionsTest, LetterCaseMakesNoDifference)
{
    EXPECT_TRUE(isLike("ON_END_OF_SEQ value", "*On_End_Of_Seq Value*"));
    EXPECT_TRUE(isLike("M", "[a-z]"));
    EXPECT_TRUE(isLike("m", "[A-Z]"));
    EXPECT_FALSE(isLike("M", "[!a-z]"));
    EXPECT_TRUE(isLike("ÄÖÜ", "äöü"));
}

TEST(SqlFunctionsTest, ThePercentSignAndTheUnderscoreArePlainCharacters)
{
    EXPECT_FALSE(isLike("abc", "a%"));
    EXPECT_TRUE(isLike("a%", "a%"));
    EXPECT_FALSE(isLike("abc", "a_c"));
    EXPECT_TRUE(isLike("a_c", "a_c"));
    EXPECT_TRUE(isLike("a]b", "a]b"));
}

TEST(SqlFunctionsTest, ManyAsterisksTakeNoLonger)
{
    const QString text(20000, 'a');
    EXPECT_FALSE(isLike(text, "*a*a*a*a*a*a*a*a*a*a*b"));
}

} // namespace
