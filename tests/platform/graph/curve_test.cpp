// SPDX-License-Identifier: GPL-3.0-or-later
#include "curve.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <random>

namespace orb {
namespace {

using testing::ElementsAre;
using testing::Pair;

constexpr double infinity = std::numeric_limits<double>::infinity();
const double noNumber = std::nan("");

using Points = std::vector<std::pair<double, double>>;

Points pointsOf(const Curve& curve)
{
    Points points;
    for (std::size_t i = 0; i < curve.size(); ++i)
        points.emplace_back(curve.x(i), curve.y(i));
    return points;
}

Extent plainExtent(const Curve& curve, std::size_t first, std::size_t end)
{
    Extent extent;
    for (std::size_t i = first; i < end; ++i)
        if (!std::isnan(curve.y(i)))
            extent.add(curve.y(i));
    return extent;
}

TEST(CurveTest, ACurveStartsAtZeroWhateverTheFirstIncrement)
{
    Curve curve;
    curve.append(7, 0.5);
    curve.append(8, 0.5);
    EXPECT_THAT(pointsOf(curve), ElementsAre(Pair(0, 7), Pair(0.5, 8)));
}

TEST(CurveTest, APointFollowsTheLastByItsOwnIncrement)
{
    Curve curve;
    for (const double increment : {9.0, 1.0, 1.0, 3.0, 3.0, -2.0})
        curve.append(0, increment);
    std::vector<double> x;
    for (std::size_t i = 0; i < curve.size(); ++i)
        x.push_back(curve.x(i));
    EXPECT_THAT(x, ElementsAre(0, 1, 2, 5, 8, 6));
}

TEST(CurveTest, ADayOfSecondsHasNoDrift)
{
    Curve curve;
    for (int i = 0; i <= 86'400; ++i)
        curve.append(i, 1 / 86'400.0);
    EXPECT_EQ(curve.runs().size(), 1U);
    EXPECT_DOUBLE_EQ(curve.x(43'200), 0.5);
    EXPECT_DOUBLE_EQ(curve.x(86'400), 1.0);
}

TEST(CurveTest, ACurveGoesOnAfterAssignedValues)
{
    Curve curve;
    curve.append(99, 1);
    curve.assign({1, 2}, 10, 0.5);
    curve.append(3, 0.5);
    curve.append(4, 2);
    EXPECT_THAT(pointsOf(curve), ElementsAre(Pair(10, 1), Pair(10.5, 2), Pair(11, 3), Pair(13, 4)));
}

TEST(CurveTest, ACurveIsEmptyAfterNothingWasAssigned)
{
    Curve curve;
    curve.assign({}, 5, 1);
    EXPECT_EQ(curve.size(), 0U);
    EXPECT_TRUE(curve.extent().isEmpty());
    EXPECT_TRUE(curve.xExtent().isEmpty());
    EXPECT_EQ(curve.nearest(0), std::nullopt);
    curve.append(4, 1);
    EXPECT_THAT(pointsOf(curve), ElementsAre(Pair(0, 4)));
}

TEST(CurveTest, TheExtentOfAnyStretchOfAppendedValuesIsFound)
{
    std::mt19937 random(1);
    std::normal_distribution<double> value;
    Curve curve;
    for (int i = 0; i < 20'000; ++i)
        curve.append(value(random), 1);
    std::uniform_int_distribution<std::size_t> index(0, curve.size());
    for (int i = 0; i < 2000; ++i) {
        const std::size_t a = index(random);
        const std::size_t b = index(random);
        const auto [first, end] = std::minmax(a, b);
        ASSERT_EQ(curve.extent(first, end), plainExtent(curve, first, end)) << first << " to " << end;
    }
}

TEST(CurveTest, APeakIsFoundWhereverItStands)
{
    for (std::size_t peak = 0; peak < 9000; peak += peak < 200 ? 1 : 61) {
        Curve curve;
        for (std::size_t i = 0; i < 9000; ++i)
            curve.append(i == peak ? 1 : 0, 1);
        ASSERT_EQ(curve.extent().highest, 1) << peak;
        ASSERT_EQ(curve.extent(0, peak + 1).highest, 1) << peak;
        ASSERT_EQ(curve.extent(peak, 9000).highest, 1) << peak;
    }
}

TEST(CurveTest, TheExtentsAreRightAtEachLengthOnTheWay)
{
    std::mt19937 random(2);
    std::normal_distribution<double> value;
    Curve curve;
    std::vector<double> assigned(1000);
    for (double& one : assigned)
        one = value(random);
    curve.assign(assigned, 0, 1);
    Extent all = plainExtent(curve, 0, curve.size());
    for (int i = 0; i < 10'000; ++i) {
        curve.append(value(random), 1);
        all.add(curve.y(curve.size() - 1));
        ASSERT_EQ(curve.extent(), all) << curve.size();
        const std::size_t middle = curve.size() / 2;
        if (i % 37 == 0) {
            ASSERT_EQ(curve.extent(middle, curve.size()), plainExtent(curve, middle, curve.size())) << curve.size();
        }
    }
}

TEST(CurveTest, AssignedValuesOfEveryLengthHaveTheirExtent)
{
    for (const std::size_t length : {1U, 63U, 64U, 65U, 4095U, 4096U, 4097U, 300'000U}) {
        std::vector<double> values(length);
        for (std::size_t i = 0; i < length; ++i)
            values[i] = std::sin(static_cast<double>(i));
        Curve curve;
        curve.assign(values, 0, 1);
        EXPECT_EQ(curve.extent(), plainExtent(curve, 0, length)) << length;
        curve.append(5, 1);
        EXPECT_EQ(curve.extent().highest, 5) << length;
    }
}

TEST(CurveTest, TheExtentLeavesOutWhatIsNoNumberButNotTheInfinite)
{
    Curve curve;
    curve.assign({noNumber, 2, noNumber, 1}, 0, 1);
    EXPECT_EQ(curve.extent(), (Extent{1, 2}));
    EXPECT_TRUE(curve.extent(0, 1).isEmpty());
    curve.append(infinity, 1);
    EXPECT_EQ(curve.extent(), (Extent{1, infinity}));
}

TEST(CurveTest, TheNearestSampleIsFound)
{
    Curve curve;
    curve.assign({0, 1, 2, 3}, 10, 2);
    EXPECT_EQ(curve.nearest(-1e9), 0U);
    EXPECT_EQ(curve.nearest(12.9), 1U);
    EXPECT_EQ(curve.nearest(13.1), 2U);
    EXPECT_EQ(curve.nearest(1e300), 3U);
    curve.append(4, 100);
    EXPECT_EQ(curve.nearest(65), 3U);
    EXPECT_EQ(curve.nearest(67), 4U);
}

TEST(CurveTest, TheNearestSampleIsNeverAGap)
{
    Curve curve;
    curve.assign({1, noNumber, noNumber, noNumber, 5}, 0, 1);
    EXPECT_EQ(curve.nearest(1), 0U);
    EXPECT_EQ(curve.nearest(3), 4U);
    curve.assign({noNumber, infinity}, 0, 1);
    EXPECT_EQ(curve.nearest(0), std::nullopt);
}

TEST(CurveTest, TheExtentWithinARangeOfXIsThatOfThePointsInIt)
{
    Curve curve;
    curve.assign({1, 9, 3, 4, 5, 6}, 100, 10); // x 100 to 150
    const auto within = [&](double lowest, double highest) {
        const Extent extent = curve.extentWithin({lowest, highest});
        return extent.isEmpty() ? std::pair(noNumber, noNumber) : std::pair(extent.lowest, extent.highest);
    };
    EXPECT_THAT(within(110, 130), Pair(3, 9)) << "both ends count";
    EXPECT_THAT(within(111, 129), Pair(3, 3));
    EXPECT_THAT(within(-1000, 1000), Pair(1, 9));
    EXPECT_THAT(within(-1000, 100), Pair(1, 1));
    EXPECT_THAT(within(150, 1000), Pair(6, 6));
    EXPECT_TRUE(std::isnan(within(111, 119).first));
    EXPECT_TRUE(std::isnan(within(151, 1000).first));
    EXPECT_TRUE(std::isnan(within(0, 99).first));
}

TEST(CurveTest, TheExtentWithinARangeOfXIsThatOfAllRuns)
{
    Curve curve;
    for (int i = 0; i < 1000; ++i)
        curve.append(i, 1); // x 0 to 999
    for (int i = 0; i < 1000; ++i)
        curve.append(-i, -0.5); // and back to 499
    EXPECT_EQ(curve.extentWithin({600, 610}), (Extent{-797, 610}));
    EXPECT_EQ(curve.extentWithin({100, 110}), (Extent{100, 110}));
}

TEST(CurveTest, TheExtentWithinARangeOfXCountsTheEndsOfASecondInDays)
{
    constexpr double second = 1 / 86'400.0;
    Curve curve;
    for (int i = 0; i < 100'000; ++i)
        curve.append(i, second);
    for (int i = 0; i + 7 < 100'000; i += 997)
        EXPECT_EQ(curve.extentWithin({i * second, (i + 7) * second}), (Extent{double(i), double(i + 7)})) << i;
}

} // namespace
} // namespace orb
