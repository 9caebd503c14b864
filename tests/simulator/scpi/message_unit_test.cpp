// SPDX-License-Identifier: GPL-3.0-or-later
#include "message_unit.h"

#include "instrument_error.h"

#include <gmock/gmock.h>

namespace orb {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

ErrorNumber errorOf(std::string_view unit)
{
    try {
        readUnit(unit);
    } catch (const CommandFailure& failure) {
        return failure.number;
    }
    return ErrorNumber::NoError;
}

Parameter onlyParameter(std::string_view unit)
{
    const MessageUnit read = readUnit(unit);
    EXPECT_EQ(read.parameters.size(), 1U);
    return read.parameters.at(0);
}

TEST(MessageUnitTest, AMessageIsSplitAtSemicolons)
{
    EXPECT_THAT(unitsOf(" A ; B 1,2;C?"), ElementsAre("A", "B 1,2", "C?"));
}

TEST(MessageUnitTest, EmptyUnitsAreSkipped)
{
    EXPECT_THAT(unitsOf(" ;; \t;"), IsEmpty());
    EXPECT_THAT(unitsOf(""), IsEmpty());
    EXPECT_THAT(unitsOf(";A;;B;"), ElementsAre("A", "B"));
}

TEST(MessageUnitTest, ASemicolonInAStringSeparatesNothing)
{
    EXPECT_THAT(unitsOf("A \"x;y\";B 'p;\"q'"), ElementsAre("A \"x;y\"", "B 'p;\"q'"));
}

TEST(MessageUnitTest, ASemicolonInABlockSeparatesNothing)
{
    EXPECT_THAT(unitsOf("A #15a;b;\n;B"), ElementsAre("A #15a;b;\n", "B"));
    EXPECT_EQ(onlyParameter("A #13ab ").text, "ab ");
    EXPECT_EQ(onlyParameter("A #13ab\n \r").text, "ab\n");
}

TEST(MessageUnitTest, AHeaderHasNodesWithNumbers)
{
    const MessageUnit unit = readUnit(":CURR2:STAT:L1?");
    ASSERT_EQ(unit.nodes.size(), 3U);
    EXPECT_EQ(unit.nodes[0].mnemonic, "CURR");
    EXPECT_EQ(unit.nodes[0].suffix, 2);
    EXPECT_EQ(unit.nodes[1].suffix, std::nullopt);
    EXPECT_EQ(unit.nodes[2].mnemonic, "L");
    EXPECT_EQ(unit.nodes[2].suffix, 1);
    EXPECT_TRUE(unit.query);
    EXPECT_TRUE(unit.absolute);
    EXPECT_FALSE(unit.common);
}

TEST(MessageUnitTest, ACommonCommandBeginsWithAnAsterisk)
{
    const MessageUnit unit = readUnit("*idn?");
    EXPECT_EQ(unit.nodes.at(0).mnemonic, "*idn");
    EXPECT_TRUE(unit.common);
    EXPECT_TRUE(unit.query);
}

TEST(MessageUnitTest, ANumberIsReadInEveryForm)
{
    const std::pair<std::string_view, double> forms[] = {
        {"A 12", 12},        {"A +.5", 0.5},  {"A -3.25", -3.25}, {"A 1.", 1},    {"A 1E3", 1000},
        {"A 1.5e-2", 0.015}, {"A #HfF", 255}, {"A #q17", 15},     {"A #B101", 5}, {"A 1e-400", 0},
    };
    for (const auto& [unit, value] : forms)
        EXPECT_DOUBLE_EQ(onlyParameter(unit).number, value) << unit;
}

TEST(MessageUnitTest, AUnitMayFollowANumber)
{
    EXPECT_EQ(onlyParameter("A 1.5mA").suffix, "mA");
    EXPECT_EQ(onlyParameter("A 1.5 \t ohm").suffix, "ohm");
    EXPECT_EQ(onlyParameter("A 2A/us").suffix, "A/us");
    EXPECT_EQ(onlyParameter("A 2").suffix, "");
}

TEST(MessageUnitTest, AParameterIsAWordAStringOrABlock)
{
    EXPECT_EQ(onlyParameter("A MAX").kind, Parameter::Kind::Word);
    EXPECT_EQ(onlyParameter("A \"x, \"\"y\"\"\"").text, "x, \"\"y\"\"");
    EXPECT_EQ(onlyParameter("A ''").text, "");
    const Parameter block = onlyParameter(std::string_view("A #14\0;\n,", 9));
    EXPECT_EQ(block.kind, Parameter::Kind::Block);
    EXPECT_EQ(block.text, std::string_view("\0;\n,", 4));
}

TEST(MessageUnitTest, ParametersAreSeparatedByCommasWithWhiteSpaceAround)
{
    EXPECT_EQ(readUnit("A 1 , X,\t'b,c' ,#13,,,").parameters.size(), 4U);
}

TEST(MessageUnitTest, AMalformedUnitHasItsError)
{
    const std::pair<std::string_view, ErrorNumber> wrong[] = {
        {"?", ErrorNumber::SyntaxError},
        {"12", ErrorNumber::SyntaxError},
        {":", ErrorNumber::SyntaxError},
        {"A::B", ErrorNumber::SyntaxError},
        {"A:", ErrorNumber::SyntaxError},
        {"\xC3\xA4", ErrorNumber::InvalidCharacter},
        {"A\xFF", ErrorNumber::InvalidCharacter},
        {"A,1", ErrorNumber::HeaderSeparatorError},
        {"A?1", ErrorNumber::HeaderSeparatorError},
        {"ABCDEFGHIJKLM", ErrorNumber::ProgramMnemonicTooLong},
        {"A:B:C:D:E:F:G:H:I", ErrorNumber::UndefinedHeader},
        {"A12345", ErrorNumber::HeaderSuffixOutOfRange},
        {"A 1,", ErrorNumber::SyntaxError},
        {"A ,1", ErrorNumber::SyntaxError},
        {"A ?", ErrorNumber::SyntaxError},
        {"A \xFF", ErrorNumber::InvalidCharacter},
        {"A X Y", ErrorNumber::InvalidSeparator},
        {"A X$", ErrorNumber::InvalidCharacterData},
        {"A ABCDEFGHIJKLM", ErrorNumber::CharacterDataTooLong},
        {"A .", ErrorNumber::NumericDataError},
        {"A -", ErrorNumber::NumericDataError},
        {"A 1.2.3", ErrorNumber::InvalidCharacterInNumber},
        {"A 1 2", ErrorNumber::InvalidCharacterInNumber},
        {"A 1x$", ErrorNumber::InvalidSuffix},
        {"A 1e32001", ErrorNumber::ExponentTooLarge},
        {"A 1e400", ErrorNumber::DataOutOfRange},
        {"A -1e400", ErrorNumber::DataOutOfRange},
        {"A \"x", ErrorNumber::InvalidStringData},
        {"A \"x\"y", ErrorNumber::InvalidStringData},
        {"A #15abc", ErrorNumber::InvalidBlockData},
        {"A #13abcd", ErrorNumber::InvalidBlockData},
        {"A #", ErrorNumber::InvalidBlockData},
        {"A #3", ErrorNumber::InvalidBlockData},
        {"A #0abc", ErrorNumber::InvalidBlockData},
        {"A #H", ErrorNumber::NumericDataError},
        {"A #HG", ErrorNumber::InvalidCharacterInNumber},
        {"A #B2", ErrorNumber::InvalidCharacterInNumber},
        {"A (1)", ErrorNumber::ExpressionNotAllowed},
    };
    for (const auto& [unit, error] : wrong)
        EXPECT_EQ(errorOf(unit), error) << unit;
}

TEST(MessageUnitTest, ANumberThatIsTooLongIsAnError)
{
    EXPECT_EQ(errorOf("A " + std::string(256, '1')), ErrorNumber::TooManyDigits);
    EXPECT_EQ(errorOf("A #H" + std::string(33, '1')), ErrorNumber::TooManyDigits);
    EXPECT_EQ(errorOf("A 1" + std::string(13, 'A')), ErrorNumber::InvalidSuffix);
    EXPECT_EQ(errorOf("A 1e" + std::string(1000, '9')), ErrorNumber::ExponentTooLarge);
}

TEST(MessageUnitTest, AnEmptyStringEndsAtItsSecondQuotationMark)
{
    EXPECT_THAT(unitsOf("A '';B \"\";C"), ElementsAre("A ''", "B \"\"", "C"));
    const MessageUnit unit = readUnit("A '',\"\",1");
    ASSERT_EQ(unit.parameters.size(), 3U);
    EXPECT_EQ(unit.parameters[0].kind, Parameter::Kind::String);
    EXPECT_EQ(unit.parameters[0].text, "");
    EXPECT_EQ(unit.parameters[1].text, "");
    EXPECT_DOUBLE_EQ(unit.parameters[2].number, 1);
}

TEST(MessageUnitTest, MnemonicsNodesNumbersAndWordsHaveALongestForm)
{
    for (const char* longest : {"ABCDEFGHIJKL", "*ABCDEFGHIJKL", "A:B:C:D:E:F:G:H", "A1234", "A ABCDEFGHIJKL"})
        EXPECT_EQ(errorOf(longest), ErrorNumber::NoError) << longest;
    EXPECT_EQ(errorOf("*ABCDEFGHIJKLM"), ErrorNumber::ProgramMnemonicTooLong);
}

} // namespace
} // namespace orb
