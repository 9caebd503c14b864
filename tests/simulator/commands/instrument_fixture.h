// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "mainframe.h"
#include "simulated_instrument.h"

#include <gmock/gmock.h>

#include <memory>

namespace orb {

/// A clock that a test sets.
class ManualClock {
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

/// A source without noise.
inline Source quietSource(double volts, double ohms)
{
    return {.name = "quiet", .openCircuitVoltage = volts, .seriesResistance = ohms};
}

/// An instrument of the given modules, each with a source of 12 V and 0.5 ohm, without any noise: readings are exact.
inline SimulatorConfiguration quietConfiguration(const std::vector<std::string>& modules = {"K11", "K14", "K12A"})
{
    SimulatorConfiguration configuration;
    configuration.meterNoise = 0;
    for (const std::string& module : modules)
        configuration.channels.push_back({.module = module, .source = quietSource(12, 0.5)});
    return configuration;
}

/// An instrument without noise, on a clock that the test sets.
class InstrumentFixture : public testing::Test {
protected:
    std::string query(std::string_view message) { return instrument->execute(message); }
    void send(std::string_view message) { EXPECT_EQ(query(message), "") << message; }
    /// Takes all errors out of the queue.
    std::string errors() { return query(":SYST:ERR:ALL?"); }
    const LoadChannel& channel(int number) const { return instrument->mainframe().channel(number); }
    void build(const SimulatorConfiguration& configuration)
    {
        instrument = std::make_unique<SimulatedInstrument>(configuration, time.clock());
    }

    static constexpr const char* noError = "0,\"No error\"";

    ManualClock time;
    std::unique_ptr<SimulatedInstrument> instrument =
        std::make_unique<SimulatedInstrument>(quietConfiguration(), time.clock());
};

} // namespace orb
