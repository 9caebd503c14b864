// SPDX-License-Identifier: GPL-3.0-or-later
#include "framer.h"

#include <QList>

#include <gmock/gmock.h>

#include <random>

namespace orb {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<QByteArray> answersIn(Framer& framer, const QByteArray& bytes)
{
    framer.take(bytes);
    std::vector<QByteArray> answers;
    while (const auto answer = framer.next())
        answers.push_back(*answer);
    return answers;
}

} // namespace

TEST(Framer, CutsAtLineFeedsAndTakesACarriageReturnBeforeThemAway)
{
    Framer framer;
    EXPECT_THAT(answersIn(framer, "1.5\n2.5\r\n\n\r\n3\r5\n"), ElementsAre("1.5", "2.5", "", "", "3\r5"));
    EXPECT_FALSE(framer.isMidAnswer());
}

TEST(Framer, WaitsForTheRestOfAnAnswer)
{
    Framer framer;
    EXPECT_THAT(answersIn(framer, "1."), IsEmpty());
    EXPECT_TRUE(framer.isMidAnswer());
    EXPECT_THAT(answersIn(framer, "5\r"), IsEmpty());
    EXPECT_THAT(answersIn(framer, "\n2"), ElementsAre("1.5"));
    EXPECT_EQ(framer.part(), "2");
}

TEST(Framer, KeepsEveryByteOfABlock)
{
    Framer framer;
    EXPECT_THAT(answersIn(framer, QByteArray("#15a\n\r\n\0\r\n7\n", 12)),
                ElementsAre(QByteArray("#15a\n\r\n\0", 8), "7"));
    EXPECT_THAT(answersIn(framer, "#13ab\r\n"), ElementsAre("#13ab\r")); // its own carriage return
    EXPECT_THAT(answersIn(framer, "#13ab\r\r\n"), ElementsAre("#13ab\r"));
}

TEST(Framer, FindsABlockThatComesByteByByte)
{
    Framer framer;
    std::vector<QByteArray> answers;
    for (const char c : QByteArray("#212\n\n\n\n\n\n\n\n\n\n\n\n\nend\n")) {
        const auto found = answersIn(framer, QByteArray(1, c));
        answers.insert(answers.end(), found.begin(), found.end());
    }
    EXPECT_THAT(answers, ElementsAre("#212\n\n\n\n\n\n\n\n\n\n\n\n", "end"));
}

TEST(Framer, TakesWhatOnlyLooksLikeABlockForText)
{
    Framer framer;
    EXPECT_THAT(answersIn(framer, "#H1F\n#0abc\n#2x\n#9\n1#15a\n"), ElementsAre("#H1F", "#0abc", "#2x", "#9", "1#15a"));
}

TEST(Framer, GivesATextThatIsTooLongAsAnEmptyAnswerAndKeepsItsPlace)
{
    Framer framer;
    const QByteArray tooLong(Framer::longestText + 1, 'x');
    EXPECT_THAT(answersIn(framer, tooLong), IsEmpty());
    EXPECT_TRUE(framer.isMidAnswer());
    EXPECT_TRUE(framer.part().isEmpty()); // it is not kept
    for (int i = 0; i < 100; ++i)
        EXPECT_THAT(answersIn(framer, tooLong), IsEmpty());
    EXPECT_THAT(answersIn(framer, "rest\nnext\n"), ElementsAre("", "next"));
    EXPECT_THAT(answersIn(framer, tooLong + "\nnext\n"), ElementsAre("", "next"));
}

TEST(Framer, IsLostBehindABlockThatCanNotBeOneUntilItForgets)
{
    Framer framer;
    EXPECT_THAT(answersIn(framer, "#9999999999 and\nso on\n"), IsEmpty());
    EXPECT_TRUE(framer.isLost());
    EXPECT_THAT(answersIn(framer, "more\n"), IsEmpty());
    framer.forget();
    EXPECT_THAT(answersIn(framer, "1\n"), ElementsAre("1"));
}

TEST(Framer, GivesTheSameAnswersHoweverTheBytesAreCut)
{
    std::mt19937 random(7);
    const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    for (int round = 0; round < 300; ++round) {
        QByteArray stream;
        const QByteArray alphabet("#0123456789\r\n\n\n,;. \0\xff"
                                  "A",
                                  23);
        for (int i = below(400); i > 0; --i)
            stream += alphabet[below(static_cast<int>(alphabet.size()))];
        Framer whole;
        const auto expected = answersIn(whole, stream);

        Framer cut;
        std::vector<QByteArray> answers;
        for (qsizetype at = 0; at < stream.size();) {
            const qsizetype size = 1 + below(9);
            const auto found = answersIn(cut, stream.mid(at, size));
            answers.insert(answers.end(), found.begin(), found.end());
            at += size;
        }
        // Where a block is too long, how much is thrown away hangs on what came with its head.
        ASSERT_TRUE(whole.isLost() || answers == expected) << "round " << round;
    }
}

TEST(BlockData, IsOfOneWholeBlockAlone)
{
    EXPECT_EQ(blockData("#15a\nb\rc"), "a\nb\rc");
    EXPECT_EQ(blockData("#10"), "");
    EXPECT_EQ(blockData("#15abcd"), std::nullopt);
    EXPECT_EQ(blockData("#15abcdef"), std::nullopt);
    EXPECT_EQ(blockData("12.5"), std::nullopt);
    EXPECT_EQ(blockData(""), std::nullopt);
    EXPECT_EQ(blockData("#"), std::nullopt);
    EXPECT_EQ(blockData("#9"), std::nullopt);
}

TEST(BlockData, ComesBackOutOfABlock)
{
    for (const int size : {0, 1, 9, 10, 5580, 230'454})
        EXPECT_EQ(blockData(asBlock(QByteArray(size, '\n'))), QByteArray(size, '\n'));
    EXPECT_EQ(asBlock("hello"), "#15hello");
}

} // namespace orb
