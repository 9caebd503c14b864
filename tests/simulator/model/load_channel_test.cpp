// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_fixture.h"

namespace orb {
namespace {

constexpr std::uint64_t seed = 1;

/// A channel in CC, high range, on a quiet source.
LoadChannel channelOn(std::string_view module, double volts, double ohms)
{
    return LoadChannel(*findLoadModule(module), quietSource(volts, ohms), seed, 0);
}

TEST(LoadChannelTest, ANewChannelIsOffAndDrawsNothing)
{
    LoadChannel channel = channelOn("K11", 12, 0.5);
    EXPECT_FALSE(channel.inputOn());
    const Reading reading = channel.measure();
    EXPECT_DOUBLE_EQ(reading.voltage, 12);
    EXPECT_DOUBLE_EQ(reading.current, 0);
    EXPECT_DOUBLE_EQ(reading.power, 0);
}

TEST(LoadChannelTest, AnInputThatIsOnFollowsAChangedLevel)
{
    LoadChannel channel = channelOn("K11", 12, 0.5);
    channel.switchOn();
    channel.setLevel(LoadFunction::Current, 0, 2);
    EXPECT_DOUBLE_EQ(channel.operatingPoint().voltage, 11);
    channel.setLevel(LoadFunction::Current, 1, 4);
    EXPECT_DOUBLE_EQ(channel.operatingPoint().voltage, 11);
    channel.chooseLevel(1);
    EXPECT_DOUBLE_EQ(channel.operatingPoint().voltage, 10);
}

TEST(LoadChannelTest, AChangeOfModeSwitchesTheInputOffAndTheSameModeDoesNot)
{
    LoadChannel channel = channelOn("K11", 12, 0.5);
    channel.switchOn();
    channel.setMode(LoadFunction::Current, LoadRange::High);
    EXPECT_TRUE(channel.inputOn());
    channel.setMode(LoadFunction::Current, LoadRange::Low);
    EXPECT_FALSE(channel.inputOn());
}

TEST(LoadChannelTest, AChangeOfTheVoltageRangeSwitchesTheInputOffAndTheSameRangeDoesNot)
{
    LoadChannel channel = channelOn("K11", 12, 0.5);
    channel.switchOn();
    channel.setVoltageRange(LoadRange::High);
    EXPECT_TRUE(channel.inputOn());
    channel.setVoltageRange(LoadRange::Low);
    EXPECT_FALSE(channel.inputOn());
}

TEST(LoadChannelTest, EachRangeKeepsItsOwnLevels)
{
    LoadChannel channel = channelOn("K11", 12, 0.5);
    channel.setLevel(LoadFunction::Current, 0, 15);
    channel.setMode(LoadFunction::Current, LoadRange::Low);
    channel.setLevel(LoadFunction::Current, 0, 1.5);
    channel.setMode(LoadFunction::Current, LoadRange::High);
    EXPECT_DOUBLE_EQ(channel.settings().setValue(), 15);
}

TEST(LoadChannelTest, TheLowRangeLimitsTheCurrentOfCcAndTheHighRangeThatOfTheOtherModes)
{
    LoadChannel channel = channelOn("K11", 3, 0.1);
    channel.setMode(LoadFunction::Voltage, LoadRange::High);
    channel.setLevel(LoadFunction::Voltage, 0, 0.5);
    channel.switchOn();
    EXPECT_DOUBLE_EQ(channel.operatingPoint().current, 20);
    EXPECT_EQ(channel.condition(), LoadChannel::OverCurrent);
    EXPECT_TRUE(channel.inputOn());
}

TEST(LoadChannelTest, TooMuchPowerSwitchesTheInputOffUntilItIsCleared)
{
    LoadChannel channel = channelOn("K14", 12, 0.01);
    channel.setLevel(LoadFunction::Current, 0, 5.2);
    channel.switchOn();
    EXPECT_TRUE(channel.inputOn()) << "within the margin of 5 %";
    channel.setLevel(LoadFunction::Current, 0, 5.4);
    EXPECT_FALSE(channel.inputOn());
    EXPECT_EQ(channel.condition(), LoadChannel::OverPower);
    EXPECT_DOUBLE_EQ(channel.operatingPoint().current, 0);
    channel.clearTrips();
    EXPECT_EQ(channel.condition(), 0U);
    EXPECT_FALSE(channel.inputOn()) << "clearing is no switching on";
}

TEST(LoadChannelTest, TooMuchVoltageSwitchesTheInputOff)
{
    LoadChannel channel = channelOn("K11", 84.1, 1);
    channel.switchOn();
    EXPECT_FALSE(channel.inputOn());
    EXPECT_EQ(channel.condition(), LoadChannel::OverVoltage);
}

TEST(LoadChannelTest, SwitchingOnAgainTripsAgainWhileTheReasonIsThere)
{
    LoadChannel channel = channelOn("K11", 100, 1);
    channel.switchOn();
    channel.switchOn();
    EXPECT_FALSE(channel.inputOn());
    channel.connectSource(quietSource(12, 1));
    EXPECT_FALSE(channel.inputOn()) << "another source does not switch the input on";
    channel.switchOn();
    EXPECT_TRUE(channel.inputOn());
    EXPECT_EQ(channel.condition(), 0U);
}

TEST(LoadChannelTest, ProtectionTripsWhenTheSourceRisesWithTime)
{
    LoadChannel channel(*findLoadModule("K11"),
                        {.openCircuitVoltage = 80, .seriesResistance = 1, .swing = 10, .swingPeriod = 40}, seed, 0);
    channel.switchOn();
    EXPECT_TRUE(channel.inputOn());
    channel.advanceTo(10);
    EXPECT_FALSE(channel.inputOn());
    channel.advanceTo(30);
    EXPECT_FALSE(channel.inputOn());
}

TEST(LoadChannelTest, ABatteryDrainsOnlyUnderLoad)
{
    LoadChannel channel(*findLoadModule("K11"),
                        {.openCircuitVoltage = 12, .seriesResistance = 0, .capacity = 1, .emptyVoltage = 10}, seed, 0);
    channel.advanceTo(1000);
    EXPECT_DOUBLE_EQ(channel.operatingPoint().voltage, 12);
    channel.setLevel(LoadFunction::Current, 0, 1);
    channel.switchOn();
    channel.advanceTo(2800);
    EXPECT_DOUBLE_EQ(channel.operatingPoint().voltage, 11);
}

TEST(LoadChannelTest, TimeNeverGoesBackwards)
{
    LoadChannel channel(*findLoadModule("K11"),
                        {.openCircuitVoltage = 12, .seriesResistance = 0, .capacity = 1, .emptyVoltage = 10}, seed, 0);
    channel.setLevel(LoadFunction::Current, 0, 1);
    channel.switchOn();
    channel.advanceTo(1800);
    channel.advanceTo(0);
    EXPECT_DOUBLE_EQ(channel.operatingPoint().voltage, 11);
}

TEST(LoadChannelTest, AMeterEndsALittleAboveItsRange)
{
    LoadChannel channel = channelOn("K11", 48, 0.5);
    channel.setVoltageRange(LoadRange::Low);
    EXPECT_NEAR(channel.measure().voltage, 16.8, 1e-9);
    channel.setVoltageRange(LoadRange::High);
    EXPECT_NEAR(channel.measure().voltage, 48, 1e-9);
}

TEST(LoadChannelTest, ReadingsAreWholeCountsAndPowerIsTheirProduct)
{
    LoadChannel channel(*findLoadModule("K11"), {.openCircuitVoltage = 12, .seriesResistance = 0.5, .noise = 0.01},
                        seed, 1);
    channel.setLevel(LoadFunction::Current, 0, 2);
    channel.switchOn();
    const Reading reading = channel.measure();
    EXPECT_NEAR(std::remainder(reading.voltage, 0.002), 0, 1e-9);
    EXPECT_NEAR(std::remainder(reading.current, 0.0005), 0, 1e-9);
    EXPECT_DOUBLE_EQ(reading.power, reading.voltage * reading.current);
}

TEST(LoadChannelTest, NoiseHasItsSizeAndItsMean)
{
    LoadChannel channel(*findLoadModule("K11"), {.openCircuitVoltage = 12, .seriesResistance = 0.5, .noise = 0.02},
                        seed, 0);
    constexpr int count = 2000;
    double sum = 0;
    double squares = 0;
    for (int i = 0; i < count; ++i) {
        const double deviation = channel.measure().voltage - 12;
        sum += deviation;
        squares += deviation * deviation;
    }
    EXPECT_NEAR(sum / count, 0, 0.002);
    EXPECT_NEAR(std::sqrt(squares / count), 0.02, 0.002);
}

TEST(LoadChannelTest, ARecallSwitchesTheInputOff)
{
    LoadChannel channel = channelOn("K11", 12, 0.5);
    const LoadSettings before = channel.settings();
    channel.switchOn();
    channel.setLevel(LoadFunction::Current, 0, 3);
    channel.recall(before);
    EXPECT_FALSE(channel.inputOn());
    EXPECT_DOUBLE_EQ(channel.settings().setValue(), 0);
}

} // namespace
} // namespace orb
