// SPDX-License-Identifier: GPL-3.0-or-later
#include "sql_tokenizer.h"

#include <gmock/gmock.h>

#include <random>
#include <string>

using namespace orb;
using testing::ElementsAre;

namespace {

/// The tokens other than white space, each as a letter for its kind and its text.
std::vector<std::string> cut(std::string_view statement)
{
    std::vector<std::string> pieces;
    for (const SqlToken& token : tokenizeSql(statement))
        if (token.kind != SqlTokenKind::Space)
            pieces.push_back(std::string(1, "_cwnt\"b;.!"[static_cast<int>(token.kind)]) + " " +
                             std::string(token.text));
    return pieces;
}

TEST(SqlTokenizerTest, WordsNumbersAndSymbolsAreTokensOfTheirOwn)
{
    EXPECT_THAT(cut("select SeqNo,PVal1 from T_1$ where a>=-1.5"),
                ElementsAre("w select", "w SeqNo", ". ,", "w PVal1", "w from", "w T_1$", "w where", "w a", ". >",
                            ". =", ". -", "n 1.5"));
}

TEST(SqlTokenizerTest, ANumberHasManyForms)
{
    EXPECT_THAT(cut("1 .5 5. 1.2340 1e5 1.20E-03 2e+7 0x1F"),
                ElementsAre("n 1", "n .5", "n 5.", "n 1.2340", "n 1e5", "n 1.20E-03", "n 2e+7", "n 0x1F"));
}

TEST(SqlTokenizerTest, ANumberWithLettersAfterItIsBroken)
{
    EXPECT_THAT(cut("12V 1e 1e+ 0x 0xg 1.5abc"),
                ElementsAre("! 12V", "! 1e", "! 1e", ". +", "! 0x", "! 0xg", "! 1.5abc"));
}

TEST(SqlTokenizerTest, TheSecondPointOfANumberBeginsAnotherNumber)
{
    EXPECT_THAT(cut("1.2.3"), ElementsAre("n 1.2", "n .3"));
}

TEST(SqlTokenizerTest, ADoubledQuoteIsOneInsideTheText)
{
    EXPECT_THAT(cut(R"('it''s' "say ""so""" `a``b`)"), ElementsAre("t 'it''s'", R"(" "say ""so""")", "b `a``b`"));
}

TEST(SqlTokenizerTest, ATextInQuotesIsOneToken)
{
    EXPECT_THAT(cut(R"('a;b--c/*d' "e;'f" [g;"h])"), ElementsAre("t 'a;b--c/*d'", R"(" "e;'f")", R"(b [g;"h])"));
}

TEST(SqlTokenizerTest, ATextThatIsNeverClosedIsBroken)
{
    EXPECT_THAT(cut("a 'b;c"), ElementsAre("w a", "! 'b;c"));
    EXPECT_THAT(cut("a \"b''"), ElementsAre("w a", "! \"b''"));
    EXPECT_THAT(cut("a [b"), ElementsAre("w a", "! [b"));
    EXPECT_THAT(cut("'"), ElementsAre("! '"));
}

TEST(SqlTokenizerTest, ACommentGoesToItsEnd)
{
    EXPECT_THAT(cut("a--b;c\nd/*e;'*/f"), ElementsAre("w a", "c --b;c", "w d", "c /*e;'*/", "w f"));
    EXPECT_THAT(cut("a-- to the end"), ElementsAre("w a", "c -- to the end"));
    EXPECT_THAT(cut("a/* to the end; *"), ElementsAre("w a", "c /* to the end; *"));
    EXPECT_THAT(cut("/**/a"), ElementsAre("c /**/", "w a"));
}

TEST(SqlTokenizerTest, BytesBeyondAsciiAreLetters)
{
    EXPECT_THAT(cut("größe=1"), ElementsAre("w größe", ". =", "n 1"));
}

TEST(SqlTokenizerTest, ANulIsBroken)
{
    using namespace std::string_view_literals;
    EXPECT_THAT(cut("a\0b"sv), ElementsAre("w a", std::string("! \0", 3), "w b"));
    EXPECT_THAT(cut("'a\0b'"sv), ElementsAre(std::string("! 'a\0b'", 7)));
}

TEST(SqlTokenizerTest, ASemicolonIsATokenOfItsOwn)
{
    EXPECT_THAT(cut("a;b;"), ElementsAre("w a", "; ;", "w b", "; ;"));
}

TEST(SqlTokenizerTest, TheCaseOfAsciiLettersMakesNoDifference)
{
    EXPECT_TRUE(sameWord("SeLeCt", "select"));
    EXPECT_FALSE(sameWord("select", "selects"));
    EXPECT_FALSE(sameWord("@", "`"));
}

TEST(SqlTokenizerTest, TheTokensOfAnyBytesJoinToTheSameBytes)
{
    using namespace std::string_view_literals;
    constexpr auto alphabet = "ab1.e+-'\"[]`;/* \n\0x$\xC3\xA9#,()"sv;
    std::mt19937 random(20240131);
    for (int round = 0; round < 20000; ++round) {
        std::string statement;
        for (auto length = random() % 40; length > 0; --length)
            statement += alphabet[random() % alphabet.size()];
        std::string joined;
        for (const SqlToken& token : tokenizeSql(statement)) {
            ASSERT_FALSE(token.text.empty());
            joined += token.text;
        }
        ASSERT_EQ(joined, statement);
    }
}

} // namespace
