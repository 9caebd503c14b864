// SPDX-License-Identifier: GPL-3.0-or-later
#include "source.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

namespace orb {
namespace {

TEST(SourceTest, ABatteryDrainsFromFullToEmptyAndNoFurther)
{
    const Source battery{.openCircuitVoltage = 12, .capacity = 2, .emptyVoltage = 10};
    EXPECT_DOUBLE_EQ(battery.voltage(0, 0), 12);
    EXPECT_DOUBLE_EQ(battery.voltage(5000, 1), 11);
    EXPECT_DOUBLE_EQ(battery.voltage(0, 2), 10);
    EXPECT_DOUBLE_EQ(battery.voltage(0, 100), 10);
}

TEST(SourceTest, ASourceWithoutCapacityNeverDrains)
{
    EXPECT_DOUBLE_EQ((Source{.openCircuitVoltage = 5}).voltage(1e6, 1e6), 5);
}

TEST(SourceTest, ASwingGoesToBothSidesOnceAPeriod)
{
    const Source panel{.openCircuitVoltage = 20, .swing = 2, .swingPeriod = 40};
    EXPECT_NEAR(panel.voltage(0, 0), 20, 1e-9);
    EXPECT_NEAR(panel.voltage(10, 0), 22, 1e-9);
    EXPECT_NEAR(panel.voltage(30, 0), 18, 1e-9);
    EXPECT_NEAR(panel.voltage(50, 0), 22, 1e-9);
}

TEST(SourceTest, AVoltageIsNeverNegative)
{
    const Source source{.openCircuitVoltage = 1, .swing = 5, .swingPeriod = 40};
    EXPECT_DOUBLE_EQ(source.voltage(30, 0), 0);
}

TEST(SourceTest, AnInvalidSourceIsRefused)
{
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    constexpr double infinite = std::numeric_limits<double>::infinity();
    const Source bad[] = {
        {.openCircuitVoltage = -1},
        {.openCircuitVoltage = nan},
        {.openCircuitVoltage = infinite},
        {.seriesResistance = -0.1},
        {.noise = -1},
        {.swing = -1},
        {.swing = 1, .swingPeriod = 0},
        {.capacity = -1},
        {.openCircuitVoltage = 5, .emptyVoltage = 6},
    };
    for (const Source& source : bad)
        EXPECT_THROW(source.validate(), std::invalid_argument);
    EXPECT_NO_THROW(Source{}.validate());
}

} // namespace
} // namespace orb
