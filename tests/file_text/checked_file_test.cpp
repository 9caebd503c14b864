// SPDX-License-Identifier: GPL-3.0-or-later
#include "checked_file.h"

#include "csv.h"
#include "program_text.h"
#include "random_record.h"
#include "sequence_text.h"

#include <gmock/gmock.h>

#include <memory>

namespace orb {
namespace {

/// The content, in memory of exactly its size, so that a sanitizer sees any reading beyond it.
CheckedFile readAlone(const std::string& content)
{
    const auto alone = std::make_unique<char[]>(content.size());
    std::ranges::copy(content, alone.get());
    return readCheckedFile({alone.get(), content.size()});
}

std::string errorOf(const std::string& content)
{
    try {
        readAlone(content);
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "no error";
}

TEST(CheckedFileTest, TheLengthTellsWhichFileItIs)
{
    EXPECT_EQ(describe(readAlone(std::string(4380, '\0'))), "sequence file, 4380 bytes, checksum 0");
    EXPECT_EQ(describe(readAlone(std::string(5580, '\0'))), "program file, 5580 bytes, checksum 0");
}

TEST(CheckedFileTest, EveryOtherLengthIsAnError)
{
    for (std::size_t length = 0; length < 6000; ++length) {
        const bool isRight = length == 4380 || length == 5580;
        ASSERT_EQ(errorOf(std::string(length, '\0')),
                  isRight ? "no error"
                          : "a sequence file has 4380 bytes and a program file 5580, not " + std::to_string(length));
    }
}

TEST(CheckedFileTest, AChangeOfAnyByteIsAnError)
{
    std::mt19937 noise(1);
    const std::string sequence = bytesOf(randomRecord<SeqFileRecord>(noise));
    for (std::size_t at = 0; at < sequence.size(); ++at) {
        std::string changed = sequence;
        ++changed[at];
        ASSERT_THAT(errorOf(changed), testing::StartsWith("the checksum is ")) << at;
    }
    std::string program(5580, '\0');
    program[5579] = 7;
    EXPECT_EQ(errorOf(program), "the checksum is 0, and the sum of the bytes is 7");
    program[3] = 7;
    EXPECT_EQ(errorOf(program), "no error");
}

TEST(CheckedFileTest, RandomFilesAreShownAndMadeAgain)
{
    std::mt19937 noise(2);
    for (int i = 0; i < 100; ++i) {
        const SeqFileRecord sequence = sealed(randomRecord<SeqFileRecord>(noise));
        const FileTable shown = tableOf(readAlone(bytesOf(sequence)));
        ASSERT_EQ(bytesOf(readSequence(csvOf(shown))), bytesOf(sequence));
        const ProgFileRecord program = sealed(randomRecord<ProgFileRecord>(noise));
        ASSERT_EQ(bytesOf(readProgram(csvOf(tableOf(readAlone(bytesOf(program)))))), bytesOf(program));
        ASSERT_FALSE(alignedText(shown).empty());
    }
}

/// A text of comma-separated values with a few bytes changed, lost or doubled.
std::string damaged(std::string text, std::mt19937& noise)
{
    constexpr std::string_view telling = ",\n\"\r.-9'R\xff ";
    for (auto changes = 1 + noise() % 3; changes > 0 && !text.empty(); --changes) {
        const std::size_t at = noise() % text.size();
        switch (noise() % 4) {
        case 0:
            text[at] = static_cast<char>(noise() % 256);
            break;
        case 1:
            text.erase(at, 1 + noise() % 20);
            break;
        case 2:
            text.insert(at, text.substr(noise() % text.size(), noise() % 20));
            break;
        default:
            text[at] = telling[noise() % telling.size()];
            break;
        }
    }
    return text;
}

/// Whether the text was read; nothing but a `CsvError` may be thrown.
template <class Read> bool isRead(Read read, const std::string& text)
{
    const auto alone = std::make_unique<char[]>(text.size());
    std::ranges::copy(text, alone.get());
    try {
        read(std::string_view(alone.get(), text.size()));
        return true;
    } catch (const CsvError& error) {
        EXPECT_THAT(error.what(), testing::StartsWith("line "));
        return false;
    }
}

TEST(FileTextFuzzTest, DamagedTextsAreReadOrRefused)
{
    std::mt19937 noise(3);
    int read = 0;
    constexpr int rounds = 400;
    for (int i = 0; i < rounds; ++i) {
        const std::string sequence = csvOf(sequenceTable(sensibleSequence(noise)));
        read += isRead(readSequence, damaged(sequence, noise)) ? 1 : 0;
        const std::string program = csvOf(programTable(sensibleProgram(noise)));
        read += isRead(readProgram, damaged(program, noise)) ? 1 : 0;
    }
    EXPECT_GT(read, 0);
    EXPECT_LT(read, 2 * rounds);
}

TEST(FileTextFuzzTest, RandomBytesAreRefused)
{
    std::mt19937 noise(4);
    for (int i = 0; i < 5000; ++i) {
        std::string bytes(noise() % 300, '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(noise() % (i % 2 == 0 ? 256 : 64));
        ASSERT_FALSE(isRead(readSequence, bytes));
        ASSERT_FALSE(isRead(readProgram, bytes));
    }
}

TEST(FileTextFuzzTest, EveryBeginningOfATextIsReadOrRefused)
{
    std::mt19937 noise(5);
    const std::string sequence = csvOf(sequenceTable(randomRecord<SeqFileRecord>(noise)));
    for (std::size_t length = 0; length <= sequence.size(); length += 7)
        isRead(readSequence, sequence.substr(0, length));
    const std::string program = csvOf(programTable(randomRecord<ProgFileRecord>(noise)));
    for (std::size_t length = 0; length <= program.size(); length += 7)
        isRead(readProgram, program.substr(0, length));
}

} // namespace
} // namespace orb
