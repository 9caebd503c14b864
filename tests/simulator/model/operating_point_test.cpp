// SPDX-License-Identifier: GPL-3.0-or-later
#include "operating_point.h"

#include <gtest/gtest.h>

namespace orb {
namespace {

constexpr double onResistance = 0.02;

LoadInput input(LoadFunction function, double setValue, double maxCurrent = 20)
{
    return {function, setValue, maxCurrent, onResistance};
}

void expectPoint(const OperatingPoint& point, double voltage, double current, bool limited = false)
{
    EXPECT_NEAR(point.voltage, voltage, 1e-9);
    EXPECT_NEAR(point.current, current, 1e-9);
    EXPECT_EQ(point.limited, limited);
}

TEST(OperatingPointTest, ConstantCurrentBelowTheSourceIsHeld)
{
    expectPoint(operatingPoint(12, 0.5, input(LoadFunction::Current, 2)), 11, 2);
}

TEST(OperatingPointTest, ConstantCurrentAboveTheSourceEndsAtTheLeastResistanceOfTheInput)
{
    const double current = 5 / (1 + onResistance);
    expectPoint(operatingPoint(5, 1, input(LoadFunction::Current, 10)), current * onResistance, current);
}

TEST(OperatingPointTest, ConstantCurrentOfZeroDoesNotChangeTheVoltage)
{
    expectPoint(operatingPoint(12, 0.5, input(LoadFunction::Current, 0)), 12, 0);
}

TEST(OperatingPointTest, ConstantResistanceDividesTheVoltage)
{
    expectPoint(operatingPoint(12, 0.5, input(LoadFunction::Resistance, 5.5)), 11, 2);
}

TEST(OperatingPointTest, ConstantResistanceIsNeverBelowTheLeastResistanceOfTheInput)
{
    const double current = 1 / (0.5 + onResistance);
    expectPoint(operatingPoint(1, 0.5, input(LoadFunction::Resistance, 0.001)), current * onResistance, current);
}

TEST(OperatingPointTest, ConstantVoltageBelowTheSourceIsHeld)
{
    expectPoint(operatingPoint(12, 0.5, input(LoadFunction::Voltage, 10)), 10, 4);
}

TEST(OperatingPointTest, ConstantVoltageAboveTheSourceDrawsNothing)
{
    expectPoint(operatingPoint(12, 0.5, input(LoadFunction::Voltage, 12.5)), 12, 0);
}

TEST(OperatingPointTest, TheRangeLimitsTheCurrentOfConstantVoltage)
{
    expectPoint(operatingPoint(3, 0.1, input(LoadFunction::Voltage, 0.5)), 1, 20, true);
}

TEST(OperatingPointTest, TheRangeLimitsTheCurrentOfConstantResistance)
{
    expectPoint(operatingPoint(30, 1, input(LoadFunction::Resistance, 0.05)), 10, 20, true);
}

TEST(OperatingPointTest, ASourceWithoutResistanceDeliversWhatTheRangeAllows)
{
    expectPoint(operatingPoint(12, 0, input(LoadFunction::Voltage, 10, 3)), 12, 3, true);
    expectPoint(operatingPoint(12, 0, input(LoadFunction::Current, 2, 3)), 12, 2);
}

TEST(OperatingPointTest, ASourceOfZeroVoltsDeliversNothingInAnyMode)
{
    for (const LoadFunction function : {LoadFunction::Current, LoadFunction::Resistance, LoadFunction::Voltage})
        expectPoint(operatingPoint(0, 0.5, input(function, 1)), 0, 0);
}

TEST(OperatingPointTest, OpenTerminalsShowTheSourceItself)
{
    expectPoint(openTerminals(12), 12, 0);
}

} // namespace
} // namespace orb
