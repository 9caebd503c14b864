// SPDX-License-Identifier: GPL-3.0-or-later
#include "message_framer.h"

#include <random>

#include <gmock/gmock.h>

namespace orb {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The messages as texts; one that was too long as "overrun".
std::vector<std::string> texts(const std::vector<MessageFramer::Message>& messages)
{
    std::vector<std::string> result;
    for (const MessageFramer::Message& message : messages)
        result.push_back(message.overrun ? "overrun" : message.text);
    return result;
}

std::vector<std::string> framed(std::string_view bytes, std::size_t limit = 100)
{
    return texts(MessageFramer(limit).feed(bytes));
}

TEST(MessageFramerTest, AMessageEndsAtALineFeedWithOrWithoutCarriageReturn)
{
    EXPECT_THAT(framed("A\nB\r\nC"), ElementsAre("A", "B"));
}

TEST(MessageFramerTest, EmptyLinesAreSkipped)
{
    EXPECT_THAT(framed("\n\r\n\nA\n"), ElementsAre("A"));
}

TEST(MessageFramerTest, AMessageMayComeInPieces)
{
    MessageFramer framer(100);
    EXPECT_THAT(texts(framer.feed("*ID")), IsEmpty());
    EXPECT_EQ(framer.buffered(), 3U);
    EXPECT_THAT(texts(framer.feed("N?\r")), IsEmpty());
    EXPECT_THAT(texts(framer.feed("\n*O")), ElementsAre("*IDN?"));
    EXPECT_EQ(framer.buffered(), 2U);
}

TEST(MessageFramerTest, ALineFeedInABlockIsOneOfItsBytes)
{
    EXPECT_THAT(framed("A #15a\nb\nc;B\nC\n"), ElementsAre("A #15a\nb\nc;B", "C"));
    EXPECT_THAT(framed("A 1,#212" + std::string(12, '\n') + "\nC\n"),
                ElementsAre("A 1,#212" + std::string(12, '\n'), "C"));
}

TEST(MessageFramerTest, ACarriageReturnAtTheEndOfABlockIsKept)
{
    EXPECT_THAT(framed("A #13ab\r\n"), ElementsAre("A #13ab\r"));
    EXPECT_THAT(framed("A #13ab\r\r\n"), ElementsAre("A #13ab\r"));
}

TEST(MessageFramerTest, NoBlockBeginsInAStringOrAWord)
{
    EXPECT_THAT(framed("A \" #19\"\nB\n"), ElementsAre("A \" #19\"", "B"));
    EXPECT_THAT(framed("A#19\nB\n"), ElementsAre("A#19", "B"));
    EXPECT_THAT(framed("A #H19\nB\n"), ElementsAre("A #H19", "B"));
    EXPECT_THAT(framed("A #1x\nB\n"), ElementsAre("A #1x", "B"));
    EXPECT_THAT(framed("A #10\nB\n"), ElementsAre("A #10", "B"));
}

TEST(MessageFramerTest, ALineFeedEndsAMessageWithAnOpenQuotationMark)
{
    EXPECT_THAT(framed("A 'x\nB #13\n\n\n\n"), ElementsAre("A 'x", "B #13\n\n\n"));
}

TEST(MessageFramerTest, AMessageThatIsTooLongIsReportedAndTheNextOneIsRead)
{
    EXPECT_THAT(framed(std::string(11, 'x') + "\nB\n", 10), ElementsAre("overrun", "B"));
    EXPECT_THAT(framed(std::string(10, 'x') + "\nB\n", 10), ElementsAre("xxxxxxxxxx", "B"));
}

TEST(MessageFramerTest, ABlockThatCanNotFitEndsWithItsLine)
{
    EXPECT_THAT(framed("A #9999999999\nB\n"), ElementsAre("A #9999999999", "B"));
}

TEST(MessageFramerTest, TheBufferNeverExceedsItsLimit)
{
    MessageFramer framer(10);
    for (int i = 0; i < 1000; ++i) {
        framer.feed("xxxxxxx");
        EXPECT_LE(framer.buffered(), 10U);
    }
    EXPECT_THAT(texts(framer.feed("\nB\n")), ElementsAre("overrun", "B"));
}

TEST(MessageFramerTest, ABlockThatIsTooLongEndsAtItsFirstLineFeed)
{
    EXPECT_THAT(framed("ABCDEF #19x\nyyyyyyy\nB\n", 12), ElementsAre("overrun", "B"));
}

TEST(MessageFramerTest, TheMessagesDoNotDependOnTheSplitOfTheBytes)
{
    std::mt19937_64 noise(7);
    const std::string_view alphabet = "AB #123;,'\"\r\n\n";
    for (int round = 0; round < 2000; ++round) {
        std::string bytes;
        while (bytes.size() < 60)
            bytes += alphabet[noise() % alphabet.size()];
        MessageFramer whole(20);
        MessageFramer pieces(20);
        std::vector<std::string> one = texts(whole.feed(bytes));
        std::vector<std::string> many;
        for (const char byte : bytes) {
            for (const std::string& text : texts(pieces.feed({&byte, 1})))
                many.push_back(text);
        }
        ASSERT_EQ(one, many) << bytes;
    }
}

TEST(MessageFramerTest, AnEmptyStringEndsAtItsSecondQuotationMark)
{
    EXPECT_THAT(framed("A '' #12\n\n\nB \"\" #12\n\n\n"), ElementsAre("A '' #12\n\n", "B \"\" #12\n\n"));
}

} // namespace
} // namespace orb
