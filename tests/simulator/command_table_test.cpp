// SPDX-License-Identifier: GPL-3.0-or-later
#include "bench.h"
#include "headers.h"
#include "instrument_commands.h"
#include "instrument_error.h"

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

class EveryRowTest : public BenchTest {};

TEST_F(EveryRowTest, IsDescribed)
{
    for (const CommandSection& section : instrumentCommands()) {
        for (const Command& command : section.commands) {
            EXPECT_TRUE(command.set != nullptr || command.query != nullptr) << command.header;
            EXPECT_TRUE(command.summary.ends_with('.')) << command.header;
            EXPECT_EQ(command.parameters.empty(), command.example.empty()) << command.header;
            EXPECT_TRUE(command.set != nullptr || command.parameters.empty()) << command.header;
            EXPECT_EQ(command.summary.find('|'), std::string_view::npos) << command.header;
        }
    }
}

TEST_F(EveryRowTest, TakesItsExampleInEveryFormOfItsHeader)
{
    for (const CommandSection& section : instrumentCommands()) {
        for (const Command& command : section.commands) {
            if (command.set == nullptr)
                continue;
            for (const std::string& header : waysToWrite(command.header)) {
                const std::string message =
                    header + (command.example.empty() ? "" : " ") + std::string(command.example);
                tell(message);
                EXPECT_EQ(errors(), noError) << message;
            }
        }
    }
}

TEST_F(EveryRowTest, AnswersInEveryFormOfItsHeader)
{
    for (const CommandSection& section : instrumentCommands()) {
        for (const Command& command : section.commands) {
            if (command.query == nullptr)
                continue;
            for (const std::string& header : waysToWrite(command.header)) {
                EXPECT_NE(ask(header + "?"), "") << header;
                EXPECT_EQ(errors(), noError) << header;
            }
        }
    }
}

TEST_F(EveryRowTest, RefusesTheFormsThatItDoesNotHave)
{
    for (const CommandSection& section : instrumentCommands()) {
        for (const Command& command : section.commands) {
            const std::string header = waysToWrite(command.header).front();
            if (command.set == nullptr) {
                tell(header);
                EXPECT_EQ(errors(), "-113,\"Undefined header\"") << header;
            }
            if (command.query == nullptr) {
                tell(header + "?");
                EXPECT_EQ(errors(), "-113,\"Undefined header\"") << header;
            }
        }
    }
}

TEST_F(EveryRowTest, RefusesOneParameterTooMany)
{
    for (const CommandSection& section : instrumentCommands()) {
        for (const Command& command : section.commands) {
            const std::string header = waysToWrite(command.header).front();
            const std::string tooMany = command.queryParameters.empty() ? " MAX" : " MAX,MAX";
            if (command.query != nullptr) {
                tell(header + "?" + tooMany);
                EXPECT_EQ(errors(), "-108,\"Parameter not allowed\"") << header;
            }
            if (command.set != nullptr && !command.parameters.empty()) {
                tell(header);
                EXPECT_EQ(errors(), "-109,\"Missing parameter\"") << header;
            }
        }
    }
}

} // namespace
} // namespace orb
