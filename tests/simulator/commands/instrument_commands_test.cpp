// SPDX-License-Identifier: GPL-3.0-or-later
#include "command_rows.h"
#include "instrument_fixture.h"

namespace orb {
namespace {

class InstrumentCommandsTest : public InstrumentFixture {
protected:
    /// The set form with the example of its row.
    static std::string withExample(const Command& command, std::string header)
    {
        if (!command.example.empty())
            header.append(" ").append(command.example);
        return header;
    }
    /// One parameter more than the form takes.
    static std::string tooMany(std::string_view description)
    {
        std::string parameters = " MAX";
        for (std::size_t i = countParameters(description).most; i > 0; --i)
            parameters += ",MAX";
        return parameters;
    }
    void expectError(const std::string& message, std::string_view error)
    {
        send(message);
        EXPECT_EQ(errors(), error) << message;
    }

    const std::vector<Command> rows = allRows();
};

TEST_F(InstrumentCommandsTest, EveryRowIsDescribed)
{
    for (const Command& command : rows) {
        EXPECT_TRUE(command.set != nullptr || command.query != nullptr) << command.header;
        EXPECT_TRUE(command.set != nullptr || command.parameters.empty()) << command.header;
        EXPECT_TRUE(command.query != nullptr || command.queryParameters.empty()) << command.header;
        EXPECT_EQ(command.parameters.empty(), command.example.empty()) << command.header;
        EXPECT_EQ(countParameters(command.queryParameters).least == 0, command.queryExample.empty()) << command.header;
        EXPECT_TRUE(command.summary.ends_with('.')) << command.header;
        EXPECT_EQ(command.summary.find_first_of("|^\r\n"), std::string_view::npos) << command.header;
    }
}

TEST_F(InstrumentCommandsTest, EveryRowTakesItsExampleInEveryFormOfItsHeader)
{
    for (const Command& command : rows) {
        if (command.set == nullptr)
            continue;
        for (const std::string& header : formsOf(command.header)) {
            send("*RST");
            send(command.before);
            expectError(withExample(command, header), noError);
        }
    }
}

TEST_F(InstrumentCommandsTest, EveryRowAnswersInEveryFormOfItsHeader)
{
    for (const Command& command : rows) {
        if (command.query == nullptr)
            continue;
        for (const std::string& header : formsOf(command.header)) {
            EXPECT_NE(query(header + "? " + std::string(command.queryExample)), "") << header;
            EXPECT_EQ(errors(), noError) << header;
        }
    }
}

TEST_F(InstrumentCommandsTest, EveryRowRefusesAFormThatItDoesNotHave)
{
    for (const Command& command : rows) {
        const std::string header = formsOf(command.header).front();
        if (command.set == nullptr)
            expectError(header, "-113,\"Undefined header\"");
        if (command.query == nullptr)
            expectError(header + "?", "-113,\"Undefined header\"");
    }
}

TEST_F(InstrumentCommandsTest, EveryRowRefusesParametersThatAreMissingOrTooMany)
{
    for (const Command& command : rows) {
        const std::string header = formsOf(command.header).front();
        if (command.set != nullptr)
            expectError(header + tooMany(command.parameters), "-108,\"Parameter not allowed\"");
        if (command.set != nullptr && !command.parameters.empty())
            expectError(header, "-109,\"Missing parameter\"");
        if (!command.queryExample.empty())
            expectError(header + "?", "-109,\"Missing parameter\"");
        if (command.query != nullptr)
            expectError(header + "?" + tooMany(command.queryParameters), "-108,\"Parameter not allowed\"");
    }
}

} // namespace
} // namespace orb
