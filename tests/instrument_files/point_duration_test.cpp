// SPDX-License-Identifier: GPL-3.0-or-later
#include "point_duration.h"

#include "sequence_values.h"

#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

namespace orb {
namespace {

/// The seconds that an editor shows to the millisecond; it computes with single precision.
double shownSeconds(const PointDuration& duration)
{
    const auto base = static_cast<float>(*timeBaseSeconds(duration.timeBaseCode));
    const double seconds = static_cast<double>(static_cast<float>(duration.count)) * static_cast<double>(base);
    return std::round(seconds * 1000) / 1000;
}

TEST(PointDurationTest, TheTimeBaseIsTheCoarsestThatGivesTheDuration)
{
    const std::tuple<double, int, int> cases[] = {{0, 11, 0},
                                                  {7, 11, 7},
                                                  {0.5, 10, 5},
                                                  {0.25, 9, 25},
                                                  {0.001, 8, 1},
                                                  {0.0004, 7, 4},
                                                  {0.00003, 6, 3},
                                                  {0.000001, 5, 1},
                                                  {2000.000001, 5, 2000000001},
                                                  {100000, 11, 100000},
                                                  {2147483647, 11, 2147483647}};
    for (const auto& [seconds, code, count] : cases) {
        const PointDuration duration = pointDuration(seconds);
        EXPECT_EQ(duration.timeBaseCode, code) << seconds;
        EXPECT_EQ(duration.count, count) << seconds;
    }
}

TEST(PointDurationTest, ALongDurationIsShownRightInSinglePrecision)
{
    for (const double seconds : {1234.567, 12345.678, 9999.999, 16777.217, 99999.0})
        EXPECT_EQ(shownSeconds(pointDuration(seconds)), seconds);
}

TEST(PointDurationTest, ADurationThatNoTimeBaseShowsRightIsShownNearlyRight)
{
    for (const double seconds : {54321.5, 99'999.123456})
        EXPECT_NEAR(shownSeconds(pointDuration(seconds)), seconds, 0.002);
}

TEST(PointDurationTest, EveryDurationUpToAMinuteIsExactAndShownRight)
{
    for (int milliseconds = 0; milliseconds < 60'000; milliseconds += 7) {
        const PointDuration duration = pointDuration(milliseconds / 1000.0);
        ASSERT_DOUBLE_EQ(duration.count * *timeBaseSeconds(duration.timeBaseCode), milliseconds / 1000.0);
        ASSERT_EQ(shownSeconds(duration), milliseconds / 1000.0);
    }
}

} // namespace
} // namespace orb
