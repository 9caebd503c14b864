// SPDX-License-Identifier: GPL-3.0-or-later
#include "command_table.h"

#include "instrument_error.h"

#include <gmock/gmock.h>

namespace orb {
namespace {

std::string nothing(CommandContext&, const CommandCall&)
{
    return "";
}

/// A table of queries with these headers.
class QueryTable {
public:
    explicit QueryTable(const std::vector<std::string_view>& headers)
    {
        for (const std::string_view header : headers)
            rows_.push_back({.header = header, .query = nothing});
        const CommandSection section{"Test", rows_};
        table_.emplace(std::span(&section, 1));
    }

    CommandTable::Match find(std::string_view header) const { return table_->find(readUnit(header).nodes); }
    /// The row of a header, "" for none.
    std::string_view row(std::string_view header) const
    {
        const CommandTable::Match match = find(header);
        return match.command == nullptr ? "" : match.command->header;
    }

private:
    std::vector<Command> rows_;
    std::optional<CommandTable> table_;
};

TEST(CommandTableTest, AHeaderHasAShortAndALongFormAndNothingBetween)
{
    const QueryTable table({"CHANnel:COUNt"});
    for (const char* header : {"CHAN:COUN", "CHANNEL:COUNT", "chan:Count", ":Channel:coun"})
        EXPECT_EQ(table.row(header), "CHANnel:COUNt") << header;
    for (const char* header : {"CHANN:COUN", "CHA:COUN", "CHAN:COU", "CHAN", "COUN", "CHAN:COUN:X", "CHANNELS:COUN"})
        EXPECT_EQ(table.row(header), "") << header;
}

TEST(CommandTableTest, OptionalNodesMayBeLeftOutOneByOne)
{
    const QueryTable table({"A[:B][:C]:D"});
    for (const char* header : {"A:B:C:D", "A:B:D", "A:C:D", "A:D"})
        EXPECT_EQ(table.row(header), "A[:B][:C]:D") << header;
    EXPECT_EQ(table.row("A:C:B:D"), "");
}

TEST(CommandTableTest, TheNumbersAfterNodesComeInTheOrderOfTheRow)
{
    const QueryTable table({"CURRent#[:STATic][:L#]"});
    const auto numbers = [&](std::string_view header) { return table.find(header).suffixes; };
    const std::optional<int> none;
    EXPECT_THAT(numbers("CURR"), testing::ElementsAre(none, none));
    EXPECT_THAT(numbers("CURR3:L2"), testing::ElementsAre(3, 2));
    EXPECT_THAT(numbers("CURR:STAT:L2"), testing::ElementsAre(none, 2));
    EXPECT_THAT(numbers("CURR7:STAT"), testing::ElementsAre(7, none));
}

TEST(CommandTableTest, ANumberAfterANodeThatHasNoneIsAnError)
{
    const QueryTable table({"LOAD#[:STATe]", "LOAD:ALL"});
    EXPECT_EQ(table.row("LOAD3"), "LOAD#[:STATe]");
    try {
        table.find("LOAD3:ALL");
        FAIL();
    } catch (const CommandFailure& failure) {
        EXPECT_EQ(failure.number, ErrorNumber::HeaderSuffixOutOfRange);
    }
}

TEST(CommandTableTest, TwoRowsMustNotHaveOneHeader)
{
    EXPECT_THROW(QueryTable({"A:B", "A:B"}), std::logic_error);
    EXPECT_THROW(QueryTable({"A[:B]", "A"}), std::logic_error);
}

TEST(CommandTableTest, TwoMnemonicsMustNotShareAForm)
{
    EXPECT_THROW(QueryTable({"CHANnel", "CHANge"}), std::logic_error);
}

TEST(CommandTableTest, TheParametersOfARowAreCounted)
{
    const auto expect = [](std::string_view description, std::size_t least, std::size_t most) {
        const ParameterCount count = countParameters(description);
        EXPECT_EQ(count.least, least) << description;
        EXPECT_EQ(count.most, most) << description;
    };
    expect("", 0, 0);
    expect("<n>", 1, 1);
    expect("ON|OFF", 1, 1);
    expect("<code>,<count>", 2, 2);
    expect("[MINimum|MAXimum]", 0, 1);
    expect("<n>[,<m>]", 1, 2);
    expect("[<n>,<m>]", 0, 2);
}

} // namespace
} // namespace orb
