// SPDX-License-Identifier: GPL-3.0-or-later
#include "bench.h"
#include "instrument_error.h"
#include "rows.h"

namespace orb {
namespace {

std::string nothing(CommandContext&, const CommandCall&)
{
    return "";
}

CommandTable tableOf(std::vector<std::string_view> headers)
{
    CommandSection section{"Test", {}};
    for (const std::string_view header : headers)
        section.commands.push_back({.header = header, .query = nothing});
    return CommandTable({section});
}

/// The row that a header leads to, "" for none.
std::string_view rowOf(const CommandTable& table, std::string_view header)
{
    const CommandTable::Match match = table.find(readUnit(header).nodes);
    return match.command == nullptr ? "" : match.command->header;
}

TEST(CommandTable, KnowsShortAndLongFormsAndNothingBetween)
{
    const CommandTable table = tableOf({"CHANnel:COUNt"});
    for (const char* header : {"CHAN:COUN", "CHANNEL:COUNT", "chan:Count", ":Channel:coun"})
        EXPECT_EQ(rowOf(table, header), "CHANnel:COUNt") << header;
    for (const char* header : {"CHANN:COUN", "CHA:COUN", "CHAN:COU", "CHAN", "COUN", "CHAN:COUN:X", "CHANNELS:COUN"})
        EXPECT_EQ(rowOf(table, header), "") << header;
}

TEST(CommandTable, OptionalNodesMayBeLeftOutOneByOne)
{
    const CommandTable table = tableOf({"A[:B][:C]:D"});
    for (const char* header : {"A:B:C:D", "A:B:D", "A:C:D", "A:D"})
        EXPECT_EQ(rowOf(table, header), "A[:B][:C]:D") << header;
    EXPECT_EQ(rowOf(table, "A:C:B:D"), "");
}

TEST(CommandTable, TellsTheNumbersBehindNodesByTheirPlaceInTheRow)
{
    const CommandTable table = tableOf({"CURRent#[:STATic][:L#]"});
    const auto numbers = [&](std::string_view header) { return table.find(readUnit(header).nodes).suffixes; };
    const std::optional<int> none;
    EXPECT_THAT(numbers("CURR"), testing::ElementsAre(none, none));
    EXPECT_THAT(numbers("CURR3:L2"), testing::ElementsAre(3, 2));
    EXPECT_THAT(numbers("CURR:STAT:L2"), testing::ElementsAre(none, 2));
    EXPECT_THAT(numbers("CURR7:STAT"), testing::ElementsAre(7, none));
}

TEST(CommandTable, RefusesANumberBehindANodeThatHasNone)
{
    const CommandTable table = tableOf({"LOAD#[:STATe]", "LOAD:ALL"});
    EXPECT_EQ(rowOf(table, "LOAD3"), "LOAD#[:STATe]");
    try {
        table.find(readUnit("LOAD3:ALL").nodes);
        FAIL();
    } catch (const CommandFailure& failure) {
        EXPECT_EQ(failure.number, ErrorNumber::HeaderSuffixOutOfRange);
    }
}

TEST(CommandTable, RefusesTwoRowsWithOneHeader)
{
    EXPECT_THROW(tableOf({"A:B", "A:B"}), std::logic_error);
    EXPECT_THROW(tableOf({"A[:B]", "A"}), std::logic_error);
}

TEST(CommandTable, RefusesMnemonicsThatAHeaderCanNotTell)
{
    EXPECT_THROW(tableOf({"CHANnel", "CHANge"}), std::logic_error);
}

TEST(CommandTable, CountsTheParametersThatARowDescribes)
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

class EveryRowTest : public BenchTest {
protected:
    /// The set form with the example of its row.
    static std::string withExample(const Command& command, std::string header)
    {
        if (!command.example.empty())
            header.append(" ").append(command.example);
        return header;
    }
    /// As many parameters as no form of the row takes.
    static std::string tooMany(std::string_view description)
    {
        std::string parameters = " MAX";
        for (std::size_t i = countParameters(description).most; i > 0; --i)
            parameters += ",MAX";
        return parameters;
    }
    void expectError(const std::string& message, std::string_view error)
    {
        tell(message);
        EXPECT_EQ(errors(), error) << message;
    }

    const std::vector<Command> rows = allRows();
};

TEST_F(EveryRowTest, IsDescribed)
{
    for (const Command& command : rows) {
        EXPECT_TRUE(command.set != nullptr || command.query != nullptr) << command.header;
        EXPECT_TRUE(command.set != nullptr || command.parameters.empty()) << command.header;
        EXPECT_TRUE(command.query != nullptr || command.queryParameters.empty()) << command.header;
        EXPECT_EQ(command.parameters.empty(), command.example.empty()) << command.header;
        EXPECT_TRUE(command.summary.ends_with('.')) << command.header;
        EXPECT_EQ(command.summary.find_first_of("|^\r\n"), std::string_view::npos) << command.header;
    }
}

TEST_F(EveryRowTest, TakesItsExampleInEveryFormOfItsHeader)
{
    for (const Command& command : rows) {
        if (command.set == nullptr)
            continue;
        for (const std::string& header : waysToWrite(command.header)) {
            tell("*RST");
            tell(command.before);
            expectError(withExample(command, header), noError);
        }
    }
}

TEST_F(EveryRowTest, AnswersInEveryFormOfItsHeader)
{
    for (const Command& command : rows) {
        if (command.query == nullptr)
            continue;
        for (const std::string& header : waysToWrite(command.header)) {
            EXPECT_NE(ask(header + "?"), "") << header;
            EXPECT_EQ(errors(), noError) << header;
        }
    }
}

TEST_F(EveryRowTest, RefusesTheFormsThatItDoesNotHave)
{
    for (const Command& command : rows) {
        const std::string header = waysToWrite(command.header).front();
        if (command.set == nullptr)
            expectError(header, "-113,\"Undefined header\"");
        if (command.query == nullptr)
            expectError(header + "?", "-113,\"Undefined header\"");
    }
}

TEST_F(EveryRowTest, RefusesParametersThatAreMissingOrTooMany)
{
    for (const Command& command : rows) {
        const std::string header = waysToWrite(command.header).front();
        if (command.set != nullptr)
            expectError(header + tooMany(command.parameters), "-108,\"Parameter not allowed\"");
        if (command.set != nullptr && !command.parameters.empty())
            expectError(header, "-109,\"Missing parameter\"");
        if (command.query != nullptr)
            expectError(header + "?" + tooMany(command.queryParameters), "-108,\"Parameter not allowed\"");
    }
}

} // namespace
} // namespace orb
