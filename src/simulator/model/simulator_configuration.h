// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "load_module.h"
#include "source.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <vector>

namespace orb {

/// The time that the simulated instrument lives in: only ever grows, from an origin of the clock's own.
using SimulatorClock = std::function<std::chrono::nanoseconds()>;

/// The time that passes outside.
SimulatorClock steadyClock();

/// One channel as it is when the instrument is switched on. Its input is off.
struct ChannelConfiguration {
    /// A name out of `loadModules()`.
    std::string module = "K11";
    Source source;
    LoadFunction function = LoadFunction::Current;
    LoadRange range = LoadRange::High;
    /// Amperes, ohms or volts, by the function; the nearest step inside of the range is taken.
    double setValue = 0;
};

/// A whole instrument.
struct SimulatorConfiguration {
    /// The answer to *IDN?.
    std::string identity = "ZN,ORB3000,SIM0001,1.0";
    /// One to eight channels, channel 1 first.
    std::vector<ChannelConfiguration> channels;
    /// Of all noise: the same seed, the same commands at the same times, the same answers.
    std::uint64_t seed = 1;
    /// Of the current meters, in counts rms.
    double meterNoise = 1;
    /// How often the instrument measures by itself; a fetched reading is not older than that.
    std::chrono::milliseconds measurementInterval{20};
};

/// The most channels that a mainframe has room for.
constexpr int maxChannels = 8;

/// The first `channelCount` (1 to `maxChannels`) of eight channels with batteries, supplies and a solar panel, set so
/// that each draws a sensible load once it is switched on.
SimulatorConfiguration defaultConfiguration(int channelCount = 6);

} // namespace orb
