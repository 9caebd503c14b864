// SPDX-License-Identifier: GPL-3.0-or-later
#include "csv.h"

#include <gmock/gmock.h>

namespace orb {
namespace {

/// All cells as "line:column text".
std::vector<std::string> cellsOf(std::string_view text)
{
    std::vector<std::string> cells;
    for (const CsvLine& line : readCsv(text)) {
        for (const CsvCell& cell : line.cells)
            cells.push_back(std::to_string(cell.line) + ':' + std::to_string(cell.column) + ' ' + cell.text);
    }
    return cells;
}

std::string errorOf(std::string_view text)
{
    try {
        readCsv(text);
    } catch (const CsvError& error) {
        return error.what();
    }
    return "no error";
}

using testing::ElementsAre;

TEST(CsvTest, ACellHasItsPlace)
{
    EXPECT_THAT(cellsOf("a,b\nc\n"), ElementsAre("1:1 a", "1:2 b", "2:1 c"));
}

TEST(CsvTest, EveryLineEndCountsOnce)
{
    EXPECT_THAT(cellsOf("a\r\nb\rc\n\nd"), ElementsAre("1:1 a", "2:1 b", "3:1 c", "5:1 d"));
}

TEST(CsvTest, EmptyLinesAndEmptyCellsAtTheEndAreLeftOut)
{
    EXPECT_THAT(cellsOf(",,\na,,b,, \n \n"), ElementsAre("2:1 a", "2:2 ", "2:3 b"));
}

TEST(CsvTest, BlanksAroundACellAreLeftOut)
{
    EXPECT_THAT(cellsOf(" a b\t, \"c\" \n"), ElementsAre("1:1 a b", "1:2 c"));
}

TEST(CsvTest, ACellBetweenQuotationMarksHoldsAnything)
{
    EXPECT_THAT(cellsOf("\"a,b\",\"say \"\"x\"\"\",\"\"\n\"two\nlines\",c\nd"),
                ElementsAre("1:1 a,b", "1:2 say \"x\"", "2:1 two\nlines", "3:2 c", "4:1 d"));
}

TEST(CsvTest, AByteOrderMarkIsSkipped)
{
    EXPECT_THAT(cellsOf("\xEF\xBB\xBFMode,CC"), ElementsAre("1:1 Mode", "1:2 CC"));
}

TEST(CsvTest, AQuotationMarkThatIsNotClosedIsAnErrorWithItsPlace)
{
    EXPECT_EQ(errorOf("a\nb,\"c\nd"), "line 2, column 2: the quotation mark is not closed");
    EXPECT_EQ(errorOf("\"a\"\""), "line 1, column 1: the quotation mark is not closed");
    EXPECT_EQ(errorOf("a,\"b\"c"), "line 1, column 2: text follows the quotation marks");
}

TEST(CsvTest, AWrittenLineIsReadBackAsItsCells)
{
    const std::vector<std::string> cells{"a", "b,c", "say \"x\"", "two\nlines", "", "'1.00'"};
    EXPECT_EQ(csvLine(cells), "a,\"b,c\",\"say \"\"x\"\"\",\"two\nlines\",,'1.00'\n");
    std::vector<std::string> read;
    const std::vector<CsvLine> lines = readCsv(csvLine(cells));
    for (const CsvCell& cell : lines.front().cells)
        read.push_back(cell.text);
    EXPECT_EQ(read, cells);
}

} // namespace
} // namespace orb
