// SPDX-License-Identifier: GPL-3.0-or-later
#include "command_catalogue.h"

#include "failure.h"
#include "printing.h"

#include <gmock/gmock.h>

using namespace orb;

namespace {

QString cut(const QString& line)
{
    const CatalogueLine result = catalogueLine(line);
    return QStringList{result.entry, result.row.Command(), result.row.Desc(), result.row.Format()}.join(" | ");
}

TEST(CommandCatalogueTest, TheNumberOfFieldsDecidesWhatALineMeans)
{
    const std::vector<std::pair<const char*, const char*>> lines{
        {"", " |  |  | "},          {"A", "A | A |  | "},
        {" A ", " A  |  A  |  | "}, {"B^b", "B^b |  |  | "},
        {"C^c^x", "C | C | c | x"}, {"^c^x", " |  | c | x"},
        {"C^^", "C | C |  | "},     {"D^d^d^x", "D^d^d^x |  |  | "},
        {"^", "^ |  |  | "},
    };
    for (const auto& [line, meaning] : lines)
        EXPECT_EQ(cut(line), meaning) << line;
}

TEST(CommandCatalogueTest, ARowKeepsAFieldThatIsSetToAnEmptyText)
{
    clsCommands row;
    row.setCommand("A");
    row.setDesc("B");
    row.setFormat("C");
    row.setCommand("");
    row.setDesc("");
    row.setFormat("");
    EXPECT_EQ(row.Command() + row.Desc() + row.Format(), "ABC");
}

TEST(CommandCatalogueTest, TheQueryMarkOfARowCanNotBeSet)
{
    clsCommands row;
    EXPECT_FALSE(row.QueryCmd());
    EXPECT_THROW(row.setQueryCmd(true), RuntimeFailure);
    EXPECT_FALSE(row.QueryCmd());
}

TEST(CommandCatalogueTest, TheKeysOfACollectionDifferWithoutRegardToCase)
{
    CommandCollection rows;
    clsCommands row;
    row.setCommand("A");
    rows.add(row, "Key");

    EXPECT_EQ(rows.item("kEY").Command(), "A");
    EXPECT_THROW(rows.add(row, "KEY"), RuntimeFailure);
    EXPECT_THROW(rows.item("other"), RuntimeFailure);
    EXPECT_EQ(rows.count(), 1);
}

} // namespace
