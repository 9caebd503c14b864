// SPDX-License-Identifier: GPL-3.0-or-later
#include "failure.h"
#include "values.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace orb;

namespace {

template <typename Action> int failureOf(Action action)
{
    try {
        action();
    } catch (const RuntimeFailure& failure) {
        return failure.number();
    }
    return 0;
}

TEST(ValuesTest, TheNumericValueIsTheNumberThatTheLeadingCharactersForm)
{
    EXPECT_EQ(numericValue("12.5S"), 12.5);
    EXPECT_EQ(numericValue(""), 0);
    EXPECT_EQ(numericValue("Off"), 0);
    EXPECT_EQ(numericValue("0.1 A"), 0.1);
    EXPECT_EQ(numericValue("  -1.5e2x"), -150);
    EXPECT_EQ(numericValue("1e"), 1);
    EXPECT_EQ(numericValue("."), 0);
    EXPECT_EQ(numericValue(".5"), 0.5);
    EXPECT_EQ(numericValue("-"), 0);
    EXPECT_EQ(numericValue("1,5"), 1);
    EXPECT_EQ(numericValue("+2.5"), 2.5);
    EXPECT_EQ(numericValue("+-2.5"), 0);
    EXPECT_EQ(numericValue("--1"), 0);
    EXPECT_EQ(numericValue("1."), 1);
    EXPECT_EQ(numericValue("1.5e+2"), 150);
    EXPECT_EQ(numericValue("1.5E-2V"), 0.015);
    EXPECT_EQ(numericValue("1e+V"), 1);
    EXPECT_EQ(numericValue("0x10"), 0);
    EXPECT_EQ(numericValue("\t 7"), 7);
    EXPECT_EQ(numericValue("\u00A07"), 7);
    EXPECT_EQ(numericValue("\u0665"), 0);
    for (const char* noNumber : {"inf", "-inf", "+inf", "nan", "-nan", "Infinity", "e5", ".e5", "+", "+.", " "})
        EXPECT_EQ(numericValue(noNumber), 0) << noNumber;
}

TEST(ValuesTest, OnlyAWholeNumberIsNumeric)
{
    for (const char* number : {"1", " 1.25 ", "-.5", "+1", "1.", "1e3", "1e999"})
        EXPECT_TRUE(isNumeric(number)) << number;
    for (const char* other : {"", " ", "1 2", "1V", "V", "inf", "nan", "-", ".", "1e", "1,5", "+-1"})
        EXPECT_FALSE(isNumeric(other)) << other;
}

TEST(ValuesTest, ATextThatIsNoNumberIsATypeMismatchAndOneBeyondADoubleOverflows)
{
    EXPECT_EQ(toDouble(" 1.25 "), 1.25);
    EXPECT_THROW(toDouble("1.25V"), RuntimeFailure);
    EXPECT_THROW(toDouble(""), RuntimeFailure);
    EXPECT_EQ(failureOf([] { toDouble("1.25V"); }), failure::TypeMismatch);
    EXPECT_EQ(failureOf([] { toDouble("1e999"); }), failure::Overflow);
    EXPECT_EQ(failureOf([] { numericValue("-1e999V"); }), failure::Overflow);
    EXPECT_EQ(failureOf([] { numericValue("1e-999"); }), failure::Overflow);
    EXPECT_EQ(numericValue("0e999"), 0);
    EXPECT_EQ(numericValue("1.7e308"), 1.7e308);
}

TEST(ValuesTest, ATieIsRoundedToTheEvenNeighbour)
{
    EXPECT_EQ(toByte(2.5), 2);
    EXPECT_EQ(toByte(3.5), 4);
    EXPECT_EQ(toLong(-2.5), -2);
    EXPECT_EQ(toInteger(0.5), 0);
}

TEST(ValuesTest, ARoundedNumberOutsideOfTheTypesRangeOverflows)
{
    EXPECT_EQ(toByte(255.4), 255);
    EXPECT_THROW(toByte(255.5), RuntimeFailure);
    EXPECT_THROW(toByte(-0.6), RuntimeFailure);
    EXPECT_EQ(toByte(-0.5), 0);
    EXPECT_EQ(toInteger(32767.4), 32767);
    EXPECT_EQ(toInteger(-32768.5), -32768);
    EXPECT_EQ(failureOf([] { toInteger(32767.5); }), failure::Overflow);
    EXPECT_EQ(failureOf([] { toInteger(-32769); }), failure::Overflow);
    EXPECT_EQ(toLong(2147483647.0), 2147483647);
    EXPECT_EQ(failureOf([] { toLong(2147483648.0); }), failure::Overflow);
    EXPECT_EQ(failureOf([] { toLong(-2147483649.0); }), failure::Overflow);
    EXPECT_EQ(failureOf([] { toLong(std::nan("")); }), failure::Overflow);
}

TEST(ValuesTest, TheTextOfANumberHasNoTrailingZeros)
{
    EXPECT_EQ(text(15.0), "15");
    EXPECT_EQ(text(0.5), "0.5");
    EXPECT_EQ(text(-0.05), "-0.05");
    EXPECT_EQ(text(0.0), "0");
    EXPECT_EQ(text(-0.0), "0");
    EXPECT_EQ(text(0.1 + 0.2), "0.3");
    EXPECT_EQ(text(1.0 / 3), "0.333333333333333");
    EXPECT_EQ(text(1e20), "1E+20");
    EXPECT_EQ(text(1.5e-20), "1.5E-20");
    EXPECT_EQ(text(0.000001), "0.000001");
    EXPECT_EQ(text(1234.5678), "1234.5678");
    EXPECT_EQ(text(100000.0), "100000");
    EXPECT_EQ(text(123456789012345.0), "123456789012345");
    EXPECT_EQ(text(100000000000000.0), "100000000000000");
    EXPECT_EQ(text(1e15), "1E+15");
    EXPECT_EQ(text(-1234567890123456.0), "-1.23456789012346E+15");
    EXPECT_EQ(text(1e100), "1E+100");
    EXPECT_EQ(text(1e-15), "0.000000000000001");
    EXPECT_EQ(text(1.5e-15), "1.5E-15");
    EXPECT_EQ(text(1e-16), "1E-16");
    EXPECT_EQ(text(0.0000123), "0.0000123");
    EXPECT_EQ(text(99999.9999999999999), "100000");
    EXPECT_EQ(text(INFINITY), "Inf");
    EXPECT_EQ(text(-INFINITY), "-Inf");
    EXPECT_EQ(text(std::nan("")), "NaN");
    EXPECT_EQ(text(42), "42");
    EXPECT_EQ(text(std::int64_t{-9007199254740993}), "-9007199254740993");
}

TEST(ValuesTest, ASingleHasSevenDigits)
{
    EXPECT_EQ(text(0.1F), "0.1");
    EXPECT_EQ(text(0.2109375F), "0.2109375");
    EXPECT_EQ(text(-86399.8F), "-86399.8");
    EXPECT_EQ(text(1.0F / 3), "0.3333333");
    EXPECT_EQ(text(16777216.0F), "1.677722E+07");
}

} // namespace
