// SPDX-License-Identifier: GPL-3.0-or-later
#include "failure.h"
#include "values.h"

#include <gtest/gtest.h>

using namespace orb;

namespace {

TEST(Values, TheNumericValueIsTheNumberThatTheLeadingCharactersForm)
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
}

TEST(Values, ATextThatIsNoNumberIsATypeMismatchAndOneBeyondADoubleOverflows)
{
    EXPECT_EQ(toDouble(" 1.25 "), 1.25);
    EXPECT_THROW(toDouble("1.25V"), RuntimeFailure);
    EXPECT_THROW(toDouble(""), RuntimeFailure);
    try {
        numericValue("1e999");
        FAIL();
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.number(), failure::Overflow);
    }
}

TEST(Values, ATieIsRoundedToTheEvenNeighbour)
{
    EXPECT_EQ(toByte(2.5), 2);
    EXPECT_EQ(toByte(3.5), 4);
    EXPECT_EQ(toLong(-2.5), -2);
    EXPECT_EQ(toInteger(0.5), 0);
}

TEST(Values, ARoundedNumberOutsideOfTheTypesRangeOverflows)
{
    EXPECT_EQ(toByte(255.4), 255);
    EXPECT_THROW(toByte(255.5), RuntimeFailure);
    EXPECT_THROW(toByte(-0.6), RuntimeFailure);
    EXPECT_EQ(toByte(-0.5), 0);
    EXPECT_THROW(toInteger(32768), RuntimeFailure);
    EXPECT_THROW(toLong(2147483648.0), RuntimeFailure);
}

TEST(Values, TheTextOfANumberHasNoZerosThatSayNothing)
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
}

TEST(Values, ASingleIsToldInSevenDigits)
{
    EXPECT_EQ(text(0.1F), "0.1");
    EXPECT_EQ(text(0.2109375F), "0.2109375");
    EXPECT_EQ(text(-86399.8F), "-86399.8");
    EXPECT_EQ(text(1.0F / 3), "0.3333333");
}

} // namespace
