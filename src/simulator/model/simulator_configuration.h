// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "load_module.h"
#include "source.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <vector>

namespace orb {

/// The time of the simulated instrument, counted from any origin. A time before an earlier one counts as that one.
using SimulatorClock = std::function<std::chrono::nanoseconds()>;

/// The system's monotonic clock.
SimulatorClock steadyClock();

/// One channel as it is when the instrument is switched on, with its input off.
struct ChannelConfiguration {
    /// A name of `loadModules()`.
    std::string module = "K11";
    Source source;
    LoadFunction function = LoadFunction::Current;
    LoadRange range = LoadRange::High;
    /// Amperes, ohms or volts, by the function; rounded to the nearest step of the range.
    double setValue = 0;
};

/// A whole instrument.
struct SimulatorConfiguration {
    /// The answer to *IDN?.
    std::string identity = "ZN,ORB3000,SIM0001,1.0";
    /// One to eight channels, channel 1 first.
    std::vector<ChannelConfiguration> channels;
    /// Of all noise: the same seed and the same commands at the same times give the same answers.
    std::uint64_t seed = 1;
    /// Of the current meters, in counts rms.
    double meterNoise = 1;
    /// The maximum age of a fetched reading.
    std::chrono::milliseconds measurementInterval{20};
};

/// The most channels that a mainframe has room for.
constexpr int maxChannels = 8;

/// The first `channelCount` (1 to `maxChannels`) of eight channels with batteries, supplies and a solar panel, set so
/// that each draws a sensible load once it is switched on.
SimulatorConfiguration defaultConfiguration(int channelCount = 6);

} // namespace orb
