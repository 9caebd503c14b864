// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator_configuration.h"

namespace orb {

SimulatorClock steadyClock()
{
    return [] {
        return std::chrono::duration_cast<std::chrono::nanoseconds>(
            std::chrono::steady_clock::now().time_since_epoch());
    };
}

// A table of data. NOLINTNEXTLINE(readability-function-size)
SimulatorConfiguration defaultConfiguration(int channelCount)
{
    SimulatorConfiguration configuration;
    configuration.channels = {
        {.module = "K11",
         .source = {.name = "12 V lead-acid battery",
                    .openCircuitVoltage = 12.72,
                    .seriesResistance = 0.028,
                    .noise = 0.0015,
                    .capacity = 7.2,
                    .emptyVoltage = 10.5},
         .setValue = 2},
        {.module = "K12A",
         .source = {.name = "5 V adapter",
                    .openCircuitVoltage = 5.08,
                    .seriesResistance = 0.06,
                    .noise = 0.003,
                    .swing = 0.006,
                    .swingPeriod = 23},
         .setValue = 1},
        {.module = "K12B",
         .source = {.name = "48 V supply",
                    .openCircuitVoltage = 48.2,
                    .seriesResistance = 0.02,
                    .noise = 0.006,
                    .swing = 0.04,
                    .swingPeriod = 61},
         .setValue = 3},
        {.module = "K13",
         .source = {.name = "four Li-ion cells",
                    .openCircuitVoltage = 16.4,
                    .seriesResistance = 0.09,
                    .noise = 0.001,
                    .capacity = 3,
                    .emptyVoltage = 12},
         .function = LoadFunction::Resistance,
         .range = LoadRange::Low,
         .setValue = 4.7},
        {.module = "K14",
         .source = {.name = "3.3 V regulator", .openCircuitVoltage = 3.305, .seriesResistance = 0.012, .noise = 0.0008},
         .range = LoadRange::Low,
         .setValue = 0.5},
        {.module = "K11AB",
         .source = {.name = "solar panel",
                    .openCircuitVoltage = 21.4,
                    .seriesResistance = 4.2,
                    .noise = 0.004,
                    .swing = 0.7,
                    .swingPeriod = 97},
         .function = LoadFunction::Resistance,
         .range = LoadRange::High,
         .setValue = 10},
        {.module = "K11",
         .source = {.name = "24 V transformer supply",
                    .openCircuitVoltage = 25.6,
                    .seriesResistance = 0.5,
                    .noise = 0.012,
                    .swing = 0.15,
                    .swingPeriod = 41},
         .function = LoadFunction::Voltage,
         .setValue = 24},
        {.module = "K14",
         .source = {.name = "Li-ion cell",
                    .openCircuitVoltage = 4.18,
                    .seriesResistance = 0.045,
                    .noise = 0.0006,
                    .capacity = 2.6,
                    .emptyVoltage = 3},
         .setValue = 1.3},
    };
    configuration.channels.resize(static_cast<std::size_t>(channelCount));
    return configuration;
}

} // namespace orb
