// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_fixture.h"

#include <limits>

namespace orb {
namespace {

void expectRefused(const SimulatorConfiguration& configuration)
{
    EXPECT_THROW(SimulatedInstrument{configuration}, std::invalid_argument);
}

TEST(SimulatorConfigurationTest, TheDefaultInstrumentHasSixChannelsUnlessItIsGivenAnotherNumber)
{
    EXPECT_EQ(SimulatedInstrument().execute("*OPT?"), "K11,K12A,K12B,K13,K14,K11AB");
    EXPECT_EQ(SimulatedInstrument(defaultConfiguration(1)).execute("*OPT?"), "K11");
    EXPECT_EQ(SimulatedInstrument(defaultConfiguration(8)).execute("*OPT?"), "K11,K12A,K12B,K13,K14,K11AB,K11,K14");
}

TEST(SimulatorConfigurationTest, AnInstrumentHasOneToEightChannels)
{
    expectRefused(quietConfiguration({}));
    expectRefused(quietConfiguration(std::vector<std::string>(9, "K11")));
    EXPECT_EQ(SimulatedInstrument(quietConfiguration({"K11"})).channelCount(), 1);
}

TEST(SimulatorConfigurationTest, EveryModuleCanBeConfigured)
{
    for (const LoadModule& module : loadModules()) {
        SimulatedInstrument instrument(quietConfiguration({std::string(module.name)}));
        EXPECT_EQ(instrument.execute(":CHAN:ID?"), module.name);
    }
}

TEST(SimulatorConfigurationTest, AnInvalidConfigurationIsRefused)
{
    expectRefused(quietConfiguration({"K99"}));
    SimulatorConfiguration noSuchRange = quietConfiguration({"K12A"});
    noSuchRange.channels[0].range = LoadRange::Low;
    expectRefused(noSuchRange);
    SimulatorConfiguration noNumber = quietConfiguration({"K11"});
    noNumber.channels[0].setValue = std::numeric_limits<double>::quiet_NaN();
    expectRefused(noNumber);
    SimulatorConfiguration noNoise = quietConfiguration({"K11"});
    noNoise.meterNoise = -1;
    expectRefused(noNoise);
    SimulatorConfiguration noSource = quietConfiguration({"K11"});
    noSource.channels[0].source.openCircuitVoltage = -1;
    expectRefused(noSource);
}

TEST(SimulatorConfigurationTest, EachChannelIsSetAsConfigured)
{
    SimulatorConfiguration configuration = quietConfiguration({"K11", "K14"});
    configuration.channels[0].function = LoadFunction::Voltage;
    configuration.channels[0].range = LoadRange::Low;
    configuration.channels[0].setValue = 9;
    configuration.channels[1].range = LoadRange::Low;
    configuration.channels[1].setValue = 99;
    SimulatedInstrument instrument(configuration);
    EXPECT_EQ(instrument.execute(":MODE1?;:VOLT1?;:VOLT1:RANG?;:MODE2?;:CURR2?"), "CV;9.0000;LOW;CCL;0.8000");
}

TEST(SimulatorConfigurationTest, ASourceNeedsAChannel)
{
    SimulatedInstrument instrument(quietConfiguration());
    EXPECT_THROW(instrument.connectSource(0, Source{}), std::invalid_argument);
    EXPECT_THROW(instrument.connectSource(4, Source{}), std::invalid_argument);
    EXPECT_THROW(instrument.connectSource(1, Source{.openCircuitVoltage = -1}), std::invalid_argument);
}

} // namespace
} // namespace orb
