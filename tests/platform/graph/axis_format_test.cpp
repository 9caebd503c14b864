// SPDX-License-Identifier: GPL-3.0-or-later
#include "axis_format.h"
#include "failure.h"

#include <gmock/gmock.h>

#include <cmath>

namespace orb {
namespace {

constexpr double second = 1 / 86'400.0;
constexpr double minute = 60 * second;
constexpr double hour = 60 * minute;

std::string label(double value, const char* format, double step)
{
    return axisLabel(value, format, step).toStdString();
}

TEST(AxisTimeTest, ATimeIsHoursMinutesAndSeconds)
{
    EXPECT_EQ(axisTime("0:0:0"), 0);
    EXPECT_EQ(axisTime("0:0"), 0);
    EXPECT_EQ(axisTime("0:00"), 0);
    EXPECT_EQ(axisTime("0:0:00.0000"), 0);
    EXPECT_DOUBLE_EQ(axisTime("0:5:00"), 5 * minute);
    EXPECT_DOUBLE_EQ(axisTime("0:05"), 5 * minute);
    EXPECT_DOUBLE_EQ(axisTime("1:0:00"), hour);
    EXPECT_DOUBLE_EQ(axisTime("1:00"), hour);
    EXPECT_DOUBLE_EQ(axisTime("23:59"), 23 * hour + 59 * minute);
    EXPECT_DOUBLE_EQ(axisTime("48:00"), 2);
    EXPECT_DOUBLE_EQ(axisTime("0:0:01.5000"), 1.5 * second);
}

TEST(AxisTimeTest, ATextThatIsNoTimeIsRefused)
{
    for (const char* text : {"", "5", "a:b", "1:", ":1", "1:2:3:4", "-1:00", "0:60", "0:0:60", "1.5:00", "0:0:1.",
                             "0:0:.5", "1: 2", "9999999999:00", "0x1:00", "1e3:00"}) {
        try {
            axisTime(text);
            ADD_FAILURE() << text;
        } catch (const RuntimeFailure& failed) {
            EXPECT_EQ(failed.number(), failure::TypeMismatch) << text;
        }
    }
}

TEST(AxisLabelTest, ALabelFollowsEachFormatOfTheTimeAxis)
{
    const double time = 7 * hour + 4 * minute + 5 * second;
    EXPECT_EQ(label(time, "h:n:ss", minute), "7:4:05");
    EXPECT_EQ(label(time, "h:nn", minute), "7:04");
    EXPECT_EQ(label(time, "hh:nn", minute), "07:04");
    EXPECT_EQ(label(2 + time, "dd h:nn", minute), "02 7:04");
    EXPECT_EQ(label(2 + time, "dd h:n", minute), "02 7:4");
    EXPECT_EQ(label(2880, "dd h:nn", 480), "2880 0:00");
    EXPECT_EQ(label(time, "H:NN", minute), "7:04");
    EXPECT_EQ(label(time, "hhhh", hour), "0007");
    EXPECT_EQ(label(time, "hH", hour), "77");
    EXPECT_EQ(label(time, "n", minute), "424");
    EXPECT_EQ(label(time, "sss", second), "25445");
    EXPECT_EQ(label(2 + time, "d, n", minute), "2, 4");
    EXPECT_EQ(label(time, "T+h'", hour), "T+7'");
}

TEST(AxisLabelTest, HoursRunOnWhereNoDaysAreNamed)
{
    EXPECT_EQ(label(1.5, "h:nn", hour), "36:00");
    EXPECT_EQ(label(1.5, "dd h:nn", hour), "01 12:00");
}

TEST(AxisLabelTest, ALabelIsCutToTheSmallestPartNamedButNotBelowAWholeOne)
{
    EXPECT_EQ(label(axisTime("23:59") / 6, "hh:nn", axisTime("23:59") / 6), "03:59");
    for (int i = 0; i <= 1440; ++i) { // sums of doubles fall a little short of the whole minute
        double sum = 0;
        for (int k = 0; k < i; ++k)
            sum += minute;
        ASSERT_EQ(axisLabel(sum, "h:nn", minute), QStringLiteral("%1:%2").arg(i / 60).arg(i % 60, 2, 10, QChar(u'0')));
    }
}

TEST(AxisLabelTest, ALabelGetsPartsUntilNeighboursDiffer)
{
    const double time = hour + 2 * minute + 3.25 * second;
    EXPECT_EQ(label(time, "h:nn", 30 * second), "1:02:03");
    EXPECT_EQ(label(time, "h:nn", 0.5 * second), "1:02:03.2");
    EXPECT_EQ(label(time, "h:n:ss", 0.05 * second), "1:2:03.25");
    EXPECT_EQ(label(1 + time, "dd h:n", second), "01 1:2:03");
    EXPECT_EQ(label(1.5, "dd", 0.25), "01 12");
    EXPECT_EQ(label(time, "h", minute), "1:02");
    EXPECT_EQ(label(0, "h:nn:ss", 1e-9 * second), "0:00:00.000000");
}

TEST(AxisLabelTest, ATimeBeforeTheStartHasAMinusSign)
{
    EXPECT_EQ(label(-5 * minute, "h:nn", minute), "-0:05");
    EXPECT_EQ(label(-1e-18, "h:nn", minute), "0:00");
}

TEST(AxisLabelTest, APlainNumberHasThePlacesOfTheStep)
{
    EXPECT_EQ(label(30, "", 6), "30");
    EXPECT_EQ(label(0.30000000000000004, "", 0.1), "0.3");
    EXPECT_EQ(label(4.5, "", 0.9), "4.5");
    EXPECT_EQ(label(0.02, "", 0.02), "0.02");
    EXPECT_EQ(label(10.5, "", 10.5), "10.5");
    EXPECT_EQ(label(1e-17, "", 0.2), "0");
    EXPECT_EQ(label(-12.25, "", 0.25), "-12.25");
    EXPECT_EQ(label(1e-6, "", 2e-7), "1e-06");
    EXPECT_EQ(label(8e-7, "", 2e-7), "8e-07");
    EXPECT_EQ(label(1e20, "", 2e19), "1e+20");
    EXPECT_EQ(label(1'500'000, "", 500'000), "1500000");
}

TEST(AxisLabelTest, WhatIsNoPlaceHasNoLabel)
{
    EXPECT_EQ(label(std::nan(""), "h:nn", 1), "");
    EXPECT_EQ(label(INFINITY, "", 1), "");
    EXPECT_EQ(label(1, "", 0), "");
    EXPECT_EQ(label(1e300, "h:nn", 1e299), "1e+300");
}

} // namespace
} // namespace orb
