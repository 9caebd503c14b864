// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "mainframe.h"
#include "simulated_instrument.h"

#include <gmock/gmock.h>

#include <memory>

namespace orb {

/// A time that stands still until it is moved.
class StandingClock {
public:
    SimulatorClock clock() const
    {
        return [now = now_] { return *now; };
    }
    void advance(std::chrono::nanoseconds time) { *now_ += time; }
    void set(std::chrono::nanoseconds time) { *now_ = time; }

private:
    std::shared_ptr<std::chrono::nanoseconds> now_ = std::make_shared<std::chrono::nanoseconds>(0);
};

/// A source without any noise, so that its voltage is exact.
inline Source quietSource(double volts, double ohms)
{
    return {.name = "quiet", .openCircuitVoltage = volts, .seriesResistance = ohms};
}

/// An instrument of the given modules, each on 12 V behind 0.5 ohm, and no noise anywhere: readings are exact.
inline SimulatorConfiguration quietConfiguration(const std::vector<std::string>& modules = {"K11", "K14", "K12A"})
{
    SimulatorConfiguration configuration;
    configuration.meterNoise = 0;
    for (const std::string& module : modules)
        configuration.channels.push_back({.module = module, .source = quietSource(12, 0.5)});
    return configuration;
}

/// An instrument on a bench where time stands still and no source is noisy.
class BenchTest : public testing::Test {
protected:
    std::string ask(std::string_view message) { return instrument->execute(message); }
    void tell(std::string_view message) { EXPECT_EQ(ask(message), "") << message; }
    /// What the error queue holds, which is empty afterwards.
    std::string errors() { return ask(":SYST:ERR:ALL?"); }
    const LoadChannel& channel(int number) const { return instrument->mainframe().channel(number); }
    void build(const SimulatorConfiguration& configuration)
    {
        instrument = std::make_unique<SimulatedInstrument>(configuration, time.clock());
    }

    static constexpr const char* noError = "0,\"No error\"";

    StandingClock time;
    std::unique_ptr<SimulatedInstrument> instrument =
        std::make_unique<SimulatedInstrument>(quietConfiguration(), time.clock());
};

} // namespace orb
