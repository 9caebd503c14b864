// SPDX-License-Identifier: GPL-3.0-or-later
#include "number_reader.h"

#include "instrument_error.h"

#include <gtest/gtest.h>

namespace orb {
namespace {

ErrorNumber errorOf(std::string_view text)
{
    try {
        readDecimal(text);
    } catch (const CommandFailure& failure) {
        return failure.number;
    }
    return ErrorNumber::NoError;
}

TEST(NumberReaderTest, WhiteSpaceMayStandBeforeAndAfterTheLetterOfAnExponent)
{
    const std::pair<std::string_view, double> forms[] = {
        {"1 E 0", 1},         {"1 E0", 1},      {"1E 0", 1},    {"2.5 \t e \t -3", 0.0025},
        {"-12.5E +2", -1250}, {"+.5 E\t2", 50}, {"1. E 1", 10},
    };
    for (const auto& [text, value] : forms) {
        EXPECT_DOUBLE_EQ(readDecimal(text).value, value) << text;
        EXPECT_EQ(readDecimal(text).suffix, "") << text;
    }
}

TEST(NumberReaderTest, AUnitMayFollowAnExponent)
{
    const DecimalNumber number = readDecimal("1 E 3 mV");
    EXPECT_DOUBLE_EQ(number.value, 1000);
    EXPECT_EQ(number.suffix, "mV");
    EXPECT_EQ(readDecimal("1E3V").suffix, "V");
}

TEST(NumberReaderTest, WhiteSpaceInsideOfDigitsIsAnError)
{
    EXPECT_EQ(errorOf("1 2"), ErrorNumber::InvalidCharacterInNumber);
    EXPECT_EQ(errorOf("- 1"), ErrorNumber::NumericDataError);
    EXPECT_EQ(errorOf("1 .5"), ErrorNumber::InvalidCharacterInNumber);
    EXPECT_EQ(errorOf("1 E - 3"), ErrorNumber::InvalidSuffix);
    EXPECT_EQ(errorOf("1 E 1 2"), ErrorNumber::InvalidCharacterInNumber);
}

TEST(NumberReaderTest, ANumberHasAtMost255DigitsAndAnExponentUpTo32000)
{
    EXPECT_EQ(errorOf(std::string(128, '0') + "." + std::string(127, '0')), ErrorNumber::NoError);
    EXPECT_EQ(errorOf(std::string(128, '0') + "." + std::string(128, '0')), ErrorNumber::TooManyDigits);
    EXPECT_EQ(errorOf("0E32000"), ErrorNumber::NoError);
    EXPECT_EQ(errorOf("0E32001"), ErrorNumber::ExponentTooLarge);
    EXPECT_EQ(errorOf("1E-32000"), ErrorNumber::NoError);
    EXPECT_EQ(errorOf("1ABCDEFGHIJKL"), ErrorNumber::NoError);
    EXPECT_EQ(errorOf("1ABCDEFGHIJKLM"), ErrorNumber::InvalidSuffix);
}

TEST(NumberReaderTest, ANumberMayBeHexadecimalOctalOrBinary)
{
    EXPECT_DOUBLE_EQ(readNonDecimal("#H1Fa"), 506);
    EXPECT_DOUBLE_EQ(readNonDecimal("#q17"), 15);
    EXPECT_DOUBLE_EQ(readNonDecimal("#B101"), 5);
    EXPECT_DOUBLE_EQ(readNonDecimal("#H" + std::string(31, '0') + "1"), 1);
}

} // namespace
} // namespace orb
