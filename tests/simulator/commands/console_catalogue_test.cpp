// SPDX-License-Identifier: GPL-3.0-or-later
#include "ascii.h"
#include "command_rows.h"
#include "console_catalogue.h"
#include "instrument_fixture.h"

#include <set>

namespace orb {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// A command that is not there to be executed.
void nothing(CommandContext&, const CommandCall&) {}
std::string noAnswer(CommandContext&, const CommandCall&)
{
    return "";
}

std::vector<std::string> textsOf(const Command& command)
{
    std::vector<std::string> texts;
    for (const CatalogueEntry& entry : catalogueEntries(command))
        texts.push_back(entry.text + '^' + entry.description + '^' + entry.format);
    return texts;
}

TEST(ConsoleCatalogueTest, AnEntryIsTheShortFormWithoutOptionalNodesAndNumbers)
{
    EXPECT_THAT(textsOf({.header = "ALPHa#[:BETA]:GAMMa", .parameters = "<n>", .summary = "Text.", .set = nothing}),
                ElementsAre(":ALPH:GAMM^Text.^<n>"));
    EXPECT_THAT(textsOf({.header = "*CLS", .summary = "Text.", .set = nothing}),
                ElementsAre("*CLS^Text.^no parameter"));
}

TEST(ConsoleCatalogueTest, AnEntryWithoutASetFormHasAQuestionMark)
{
    EXPECT_THAT(textsOf({.header = "ALPHa[:BETA]", .summary = "Text.", .query = noAnswer}),
                ElementsAre(":ALPH?^Text.^query"));
    EXPECT_THAT(textsOf({.header = "ALPHa", .queryParameters = "[<n>]", .summary = "Text.", .query = noAnswer}),
                ElementsAre(":ALPH?^Text.^[<n>]"));
    EXPECT_THAT(
        textsOf({.header = "ALPHa", .parameters = "<n>", .summary = "Text.", .set = nothing, .query = noAnswer}),
        ElementsAre(":ALPH^Text.^<n>"));
}

TEST(ConsoleCatalogueTest, EachLevelAndEachLimitHasAnEntry)
{
    EXPECT_THAT(textsOf({.header = "ALPHa#[:BETA][:L#]",
                         .parameters = "<n>",
                         .queryParameters = "[MINimum|MAXimum]",
                         .summary = "Text.",
                         .set = nothing,
                         .query = noAnswer}),
                ElementsAre(":ALPH^Text.^<n>", ":ALPH:L1^Level 1 of :ALPH.^<n>", ":ALPH:L2^Level 2 of :ALPH.^<n>",
                            ":ALPH? MIN^The least that :ALPH can be set to.^query",
                            ":ALPH? MAX^The most that :ALPH can be set to.^query"));
}

TEST(ConsoleCatalogueTest, AQueryThatNeedsAParameterHasAnEntryWithItsExample)
{
    EXPECT_THAT(textsOf({.header = "ALPHa",
                         .parameters = "<n>",
                         .queryParameters = "<file>",
                         .queryExample = "\"x\"",
                         .summary = "Text.",
                         .set = nothing,
                         .query = noAnswer}),
                ElementsAre(":ALPH^Text.^<n>", ":ALPH? \"x\"^Text.^query"));
}

TEST(ConsoleCatalogueTest, EachEntryIsALineWithTwoCarets)
{
    const std::string catalogue = commandCatalogue();
    EXPECT_THAT(catalogue,
                HasSubstr("\r\n*CLS^Empties the error queue and clears the event registers.^no parameter\r\n"));
    EXPECT_THAT(catalogue, HasSubstr("\r\n:FETC:VOLT?^The latest reading of the channel's volts.^query\r\n"));
    std::size_t begin = 0;
    while (begin < catalogue.size()) {
        const std::size_t end = catalogue.find("\r\n", begin);
        ASSERT_NE(end, std::string::npos);
        const std::string line = catalogue.substr(begin, end - begin);
        EXPECT_EQ(std::ranges::count(line, '^'), 2) << line;
        EXPECT_EQ(line.find_first_of("\r\n"), std::string::npos) << line;
        begin = end + 2;
    }
}

TEST(ConsoleCatalogueTest, AllEntriesDifferInAnyLetterCase)
{
    std::set<std::string> seen;
    for (const Command& command : allRows()) {
        for (const CatalogueEntry& entry : catalogueEntries(command))
            EXPECT_TRUE(seen.insert(ascii::upper(entry.text)).second) << entry.text;
    }
    EXPECT_GE(seen.size(), 150U);
}

class FreshInstrumentTest : public InstrumentFixture {};

TEST_F(FreshInstrumentTest, AFreshInstrumentTakesEveryEntry)
{
    for (const Command& command : allRows()) {
        for (const CatalogueEntry& entry : catalogueEntries(command)) {
            build(defaultConfiguration());
            const bool marked = entry.text.find('?') != std::string::npos;
            if (command.query != nullptr)
                EXPECT_NE(query(marked ? entry.text : entry.text + "? " + std::string(command.queryExample)), "")
                    << entry.text;
            else
                send(std::string(command.before) + ';' + entry.text + ' ' + std::string(command.example));
            EXPECT_EQ(errors(), noError) << entry.text;
        }
    }
}

} // namespace
} // namespace orb
