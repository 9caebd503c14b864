// SPDX-License-Identifier: GPL-3.0-or-later
#include "framer.h"

#include "definite_length_block.h"

#include <gmock/gmock.h>

#include <random>

namespace orb {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The answers in `bytes`; one that is not whole is marked.
std::vector<QByteArray> answersIn(Framer& framer, const QByteArray& bytes, bool mayBeBlock = false)
{
    framer.append(bytes);
    std::vector<QByteArray> answers;
    while (const auto answer = framer.next(mayBeBlock))
        answers.push_back(answer->isWhole ? answer->text : "mixed: " + answer->text);
    return answers;
}

std::vector<QByteArray> blocksIn(Framer& framer, const QByteArray& bytes)
{
    return answersIn(framer, bytes, true);
}

} // namespace

TEST(FramerTest, AnAnswerEndsAtALineFeedAndACarriageReturnBeforeItIsNoPartOfIt)
{
    Framer framer;
    EXPECT_THAT(answersIn(framer, "1.5\n2.5\r\n3\r5\n4\r\r\n"), ElementsAre("1.5", "2.5", "3\r5", "4\r"));
    EXPECT_FALSE(framer.isMidAnswer());
}

TEST(FramerTest, AnEmptyLineIsNoAnswer)
{
    Framer framer;
    EXPECT_THAT(answersIn(framer, "\n\r\n1\n\n\n2\n\r\n"), ElementsAre("1", "2"));
    EXPECT_FALSE(framer.isMidAnswer());
    framer.append("\n");
    framer.append("\r");
    EXPECT_THAT(answersIn(framer, "\n\n3\n"), ElementsAre("3"));
}

TEST(FramerTest, AnAnswerWaitsForItsRest)
{
    Framer framer;
    EXPECT_THAT(answersIn(framer, "1."), IsEmpty());
    EXPECT_TRUE(framer.isMidAnswer());
    EXPECT_EQ(framer.part(), "1.");
    EXPECT_THAT(answersIn(framer, "5\r"), IsEmpty());
    EXPECT_THAT(answersIn(framer, "\n2"), ElementsAre("1.5"));
    EXPECT_EQ(framer.part(), "2");
}

TEST(FramerTest, ALineThatAQueryWentOutInTheMidstOfIsNotWhole)
{
    Framer framer;
    EXPECT_THAT(answersIn(framer, "1.0,2."), IsEmpty());
    framer.distrustPart();
    EXPECT_THAT(answersIn(framer, "5,\n3.0,\n"), ElementsAre("mixed: 1.0,2.5,", "3.0,"));
    framer.distrustPart(); // no part is in
    EXPECT_THAT(answersIn(framer, "4.0,\n"), ElementsAre("4.0,"));
    EXPECT_THAT(answersIn(framer, "5.0"), IsEmpty());
    framer.distrustPart();
    EXPECT_THAT(answersIn(framer, "\n6.0\n"), ElementsAre("mixed: 5.0", "6.0"));
}

TEST(FramerTest, ABlockKeepsEveryByte)
{
    Framer framer;
    EXPECT_THAT(blocksIn(framer, QByteArray("#15a\n\r\n\0\r\n7\n", 12)),
                ElementsAre(QByteArray("#15a\n\r\n\0", 8), "7"));
    EXPECT_THAT(blocksIn(framer, "#13ab\r\n"), ElementsAre("#13ab\r")); // its own carriage return
    EXPECT_THAT(blocksIn(framer, "#13ab\r\r\n"), ElementsAre("#13ab\r"));
    EXPECT_THAT(blocksIn(framer, "#12\n\n;x\r\n"), ElementsAre("#12\n\n;x"));
}

TEST(FramerTest, ABlockThatComesByteByByteIsFound)
{
    Framer framer;
    std::vector<QByteArray> answers;
    for (const char c : QByteArray("1\n#212\n\n\n\n\n\n\n\n\n\n\n\n\nend\n")) {
        const auto found = blocksIn(framer, QByteArray(1, c));
        answers.insert(answers.end(), found.begin(), found.end());
    }
    EXPECT_THAT(answers, ElementsAre("1", "#212\n\n\n\n\n\n\n\n\n\n\n\n", "end"));
}

TEST(FramerTest, ABlockIsALineLikeAnyOtherWhereNoneIsExpected)
{
    Framer framer;
    EXPECT_THAT(answersIn(framer, "#74000000\n1\n#15a\nbcd\n"), ElementsAre("#74000000", "1", "#15a", "bcd"));
}

TEST(FramerTest, WhatOnlyResemblesABlockIsText)
{
    Framer framer;
    EXPECT_THAT(blocksIn(framer, "#H1F\n#0abc\n#2x\n#9\n1#15a\n"), ElementsAre("#H1F", "#0abc", "#2x", "#9", "1#15a"));
    EXPECT_THAT(blocksIn(framer, "#9999999999 and\nso on\n"), ElementsAre("#9999999999 and", "so on"));
}

TEST(FramerTest, ABlockMayBeAsLongAsTheLimitAndNoLonger)
{
    const QByteArray data(BlockHead::longestData, '\n');
    Framer framer;
    EXPECT_THAT(blocksIn(framer, asBlock(data) + '\n'), ElementsAre(asBlock(data)));
    EXPECT_THAT(blocksIn(framer, "#74194305" + QByteArray("\n")), ElementsAre("#74194305"));
}

TEST(FramerTest, ATextMayBeAsLongAsTheLimit)
{
    Framer framer;
    const QByteArray longest(Framer::longestText, 'x');
    EXPECT_THAT(answersIn(framer, longest + '\n'), ElementsAre(longest));
    EXPECT_THAT(answersIn(framer, longest), IsEmpty());
    EXPECT_THAT(answersIn(framer, "\n"), ElementsAre(longest));
}

TEST(FramerTest, ATextThatIsTooLongGivesAMessageInItsPlaceAndTheNextAnswerIsRight)
{
    Framer framer;
    const QByteArray tooLong(Framer::longestText + 1, 'x');
    EXPECT_THAT(answersIn(framer, tooLong), IsEmpty());
    EXPECT_TRUE(framer.isMidAnswer());
    EXPECT_TRUE(framer.part().isEmpty()); // it is not kept
    for (int i = 0; i < 100; ++i)
        EXPECT_THAT(answersIn(framer, tooLong), IsEmpty());
    EXPECT_THAT(answersIn(framer, "#15rest\nnext\n", true), ElementsAre(Framer::tooLong, "next"));
    EXPECT_THAT(answersIn(framer, tooLong + "\nnext\n"), ElementsAre(Framer::tooLong, "next"));
    EXPECT_THAT(answersIn(framer, tooLong), IsEmpty());
    EXPECT_THAT(answersIn(framer, "\nnext\n"), ElementsAre(Framer::tooLong, "next"));
    EXPECT_THAT(blocksIn(framer, "#12ab" + tooLong + "\nnext\n"), ElementsAre(Framer::tooLong, "next"));
}

TEST(FramerTest, TheAnswersAreTheSameHoweverTheBytesAreCut)
{
    std::mt19937 random(7);
    const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    const QByteArray alphabet("#0123456789\r\n\n\n,;. \0\xff"
                              "A",
                              23);
    for (int round = 0; round < 300; ++round) {
        const bool mayBeBlock = below(2) == 0;
        QByteArray stream;
        for (int i = below(400); i > 0; --i)
            stream += alphabet[below(static_cast<int>(alphabet.size()))];
        Framer whole;
        const auto expected = answersIn(whole, stream, mayBeBlock);

        Framer cut;
        std::vector<QByteArray> answers;
        for (qsizetype at = 0; at < stream.size();) {
            const qsizetype size = 1 + below(9);
            const auto found = answersIn(cut, stream.mid(at, size), mayBeBlock);
            answers.insert(answers.end(), found.begin(), found.end());
            at += size;
        }
        ASSERT_EQ(answers, expected) << "round " << round;
        ASSERT_EQ(cut.part(), whole.part()) << "round " << round;
    }
}

} // namespace orb
