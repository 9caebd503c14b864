// SPDX-License-Identifier: GPL-3.0-or-later
#include "definite_length_block.h"

#include <gmock/gmock.h>

namespace orb {

TEST(DefiniteLengthBlockTest, TheDataIsThatOfOneWholeBlockAlone)
{
    EXPECT_EQ(blockData("#15a\nb\rc"), "a\nb\rc");
    EXPECT_EQ(blockData("#10"), "");
    for (const char* other : {"#15abcd", "#15abcdef", "12.5", "", "#", "#9", "#2", "#21", "#2x1a", "#a1b", "#:1b",
                              "#/1b", "x15abcde", "#0abc", "#1/", "#1:", "#99999999990"})
        EXPECT_EQ(blockData(other), std::nullopt) << other;
}

TEST(DefiniteLengthBlockTest, DataComesBackOutOfABlock)
{
    for (const int size : {0, 1, 9, 10, 5580, 230'454})
        EXPECT_EQ(blockData(asBlock(QByteArray(size, '\n'))), QByteArray(size, '\n'));
    EXPECT_EQ(asBlock("hello"), "#15hello");
}

TEST(DefiniteLengthBlockTest, AHeadIsReadAtItsPosition)
{
    const auto kind = [](const QByteArray& bytes, qsizetype at = 0) { return readBlockHead(bytes, at).kind; };
    EXPECT_EQ(kind(""), BlockHead::Kind::Incomplete);
    EXPECT_EQ(kind("#"), BlockHead::Kind::Incomplete);
    EXPECT_EQ(kind("#2"), BlockHead::Kind::Incomplete);
    EXPECT_EQ(kind("#21"), BlockHead::Kind::Incomplete);
    EXPECT_EQ(kind("#912345678"), BlockHead::Kind::Incomplete);
    EXPECT_EQ(kind("#212"), BlockHead::Kind::Complete);
    EXPECT_EQ(kind("x"), BlockHead::Kind::None);
    EXPECT_EQ(kind("#0"), BlockHead::Kind::None);
    EXPECT_EQ(kind("#2x"), BlockHead::Kind::None);
    const BlockHead head = readBlockHead("x\n#3123abc", 2);
    EXPECT_EQ(head.kind, BlockHead::Kind::Complete);
    EXPECT_EQ(head.size, 5);
    EXPECT_EQ(head.length, 123);
    EXPECT_EQ(kind("#15", 99), BlockHead::Kind::Incomplete); // nothing is there
}

TEST(DefiniteLengthBlockTest, ALengthBeyondTheLimitIsNone)
{
    EXPECT_EQ(readBlockHead("#74194304").kind, BlockHead::Kind::Complete);
    EXPECT_EQ(readBlockHead("#74194305").kind, BlockHead::Kind::None);
    EXPECT_EQ(readBlockHead("#9999999999").kind, BlockHead::Kind::None);
}

TEST(DefiniteLengthBlockTest, AnAnswerStartsAsABlockWithANumberSignAndADigit)
{
    for (const char* answer : {"#15hello", "#0", "#9999999999", "#42"})
        EXPECT_TRUE(startsAsBlock(answer)) << answer;
    for (const char* answer : {"", "#", "#H1F", "1#15", "15"})
        EXPECT_FALSE(startsAsBlock(answer)) << answer;
}

} // namespace orb
