// SPDX-License-Identifier: GPL-3.0-or-later
#include "axis_format.h"
#include "axis_scale.h"

#include <gmock/gmock.h>

namespace orb {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

constexpr double second = 1 / secondsPerDay;

TEST(AxisScaleTest, TheSetRangeIsDividedIntoEqualParts)
{
    const QCPRange home{0, axisTime("23:59")};
    const AxisScale scale = axisScale(home, home, 6, true);
    EXPECT_DOUBLE_EQ(scale.step, axisTime("23:59") / 6);
    EXPECT_THAT(scale.ticks(home), ElementsAre(0, 1, 2, 3, 4, 5, 6));
}

TEST(AxisScaleTest, TheDivisionsStayWhenTheViewIsOnlyShifted)
{
    const AxisScale scale = axisScale({3.3, 10.3}, {0, 7}, 7, false);
    EXPECT_DOUBLE_EQ(scale.origin, 0);
    EXPECT_DOUBLE_EQ(scale.step, 1);
    EXPECT_THAT(scale.ticks({3.3, 10.3}), ElementsAre(4, 5, 6, 7, 8, 9, 10));
}

TEST(AxisScaleTest, AZoomedViewHasRoundSteps)
{
    EXPECT_DOUBLE_EQ(axisScale({0, 3.7}, {0, 50}, 5, false).step, 1);
    EXPECT_DOUBLE_EQ(axisScale({0, 0.013}, {0, 50}, 5, false).step, 0.005);
    EXPECT_DOUBLE_EQ(axisScale({0, 100 * second}, {0, 1}, 6, true).step, 30 * second);
    EXPECT_DOUBLE_EQ(axisScale({0, 1.1 * second}, {0, 1}, 6, true).step, 0.2 * second);
    EXPECT_DOUBLE_EQ(axisScale({0, 5 * 3600 * second}, {0, 1}, 6, true).step, 3600 * second);
    EXPECT_DOUBLE_EQ(axisScale({0, 100}, {0, 1}, 6, true).step, 20);
}

TEST(AxisScaleTest, RoundTimeStepsDivideTheNextUnit)
{
    EXPECT_DOUBLE_EQ(roundStep(0.3 * second, true), 0.5 * second);
    EXPECT_DOUBLE_EQ(roundStep(0.7 * second, true), second);
    EXPECT_DOUBLE_EQ(roundStep(31 * second, true), 60 * second);
    EXPECT_DOUBLE_EQ(roundStep(60 * second, true), 60 * second);
    EXPECT_DOUBLE_EQ(roundStep(7201 * second, true), 10'800 * second);
    EXPECT_DOUBLE_EQ(roundStep(1, true), 1);
    EXPECT_DOUBLE_EQ(roundStep(1.01, true), 2);
}

TEST(AxisScaleTest, ThereAreNeverMoreTicksThanCanBeDrawn)
{
    EXPECT_THAT((AxisScale{0, 1e-12}.ticks({0, 1})), SizeIs(200));
    EXPECT_THAT((AxisScale{0, 1e-300}.ticks({0, 1})), SizeIs(0));
}

TEST(AxisScaleTest, EverySecondLabelIsLeftOutBeforeTwoTouch)
{
    EXPECT_EQ(labelStride(50, 50), 1);
    EXPECT_EQ(labelStride(51, 50), 2);
    EXPECT_EQ(labelStride(101, 50), 4);
    EXPECT_EQ(labelStride(1, 0), 256);
}

TEST(AxisScaleTest, ARangeWidensToRoundValuesAroundTheData)
{
    const QCPRange values = roundRange({0, 8.7}, 5, false);
    EXPECT_DOUBLE_EQ(values.lower, 0);
    EXPECT_DOUBLE_EQ(values.upper, 10);
    const QCPRange below = roundRange({-3, 4}, 5, false);
    EXPECT_DOUBLE_EQ(below.lower, -4);
    EXPECT_DOUBLE_EQ(below.upper, 4);
    const QCPRange flat = roundRange({0, 0}, 5, false);
    EXPECT_LT(flat.lower, flat.upper);
    const QCPRange instant = roundRange({0, 0}, 5, true);
    EXPECT_DOUBLE_EQ(instant.upper, second);
}

} // namespace
} // namespace orb
