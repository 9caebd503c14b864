// SPDX-License-Identifier: GPL-3.0-or-later
#include "load_module.h"

#include "ascii.h"

#include <algorithm>
#include <cmath>

namespace orb {

namespace {

constexpr ValueRange none{};

constexpr RangePair pair(ValueRange low, ValueRange high)
{
    return {low, high};
}

// The voltage ranges of most modules, 16 V and 80 V, and those of the module for high voltages.
constexpr RangePair volts80 = pair({0, 16, 0.004}, {0, 80, 0.02});
constexpr RangePair volts500 = pair({0, 100, 0.025}, {0, 500, 0.125});

// Each range: lowest, highest, step. A range of the current has 4000 steps or nearly so.
constexpr LoadModule modules[] = {
    {.name = "K11",
     .maxPower = 100,
     .onResistance = 0.02,
     .values = {pair({0, 2, 0.0005}, {0, 20, 0.005}), pair({0.05, 200, 0.01}, {2, 8000, 0.4}), volts80},
     .slewRate = pair({0.00032, 0.08, 0.00032}, {0.0032, 0.8, 0.0032})},
    {.name = "K11AB",
     .maxPower = 30,
     .onResistance = 0.08,
     .values = {pair({0, 0.4, 0.0001}, {0, 4, 0.001}), pair({0.2, 800, 0.04}, {8, 32000, 1.6}), volts80},
     .slewRate = pair({0.00008, 0.02, 0.00008}, {0.0008, 0.2, 0.0008})},
    {.name = "K12A",
     .maxPower = 60,
     .onResistance = 0.06,
     .values = {pair(none, {0, 4, 0.001}), pair(none, {0.2, 2000, 0.1}), volts80},
     .slewRate = pair(none, {0.0008, 0.2, 0.0008})},
    {.name = "K12B",
     .maxPower = 200,
     .onResistance = 0.01,
     .values = {pair({0, 4, 0.001}, {0, 40, 0.01}), pair({0.025, 100, 0.005}, {1, 4000, 0.2}), volts80},
     .slewRate = pair({0.00064, 0.16, 0.00064}, {0.0064, 1.6, 0.0064})},
    {.name = "K13",
     .maxPower = 300,
     .onResistance = 0.008,
     .values = {pair({0, 4, 0.001}, {0, 40, 0.01}), pair({0.025, 100, 0.005}, {1, 4000, 0.2}), volts80},
     .slewRate = pair({0.001, 0.25, 0.001}, {0.01, 2.5, 0.01})},
    {.name = "K14",
     .maxPower = 60,
     .onResistance = 0.05,
     .values = {pair({0, 0.8, 0.0002}, {0, 8, 0.002}), pair({0.125, 500, 0.025}, {5, 20000, 1}), volts80},
     .slewRate = pair({0.00016, 0.04, 0.00016}, {0.0016, 0.4, 0.0016})},
    {.name = "K15",
     .maxPower = 250,
     .onResistance = 0.15,
     .values = {pair({0, 1, 0.0005}, {0, 10, 0.005}), pair({0.5, 2000, 0.1}, {20, 80000, 4}), volts500},
     .slewRate = pair({0.0001, 0.025, 0.0001}, {0.001, 0.25, 0.001})},
    {.name = "K16",
     .maxPower = 350,
     .onResistance = 0.006,
     .values = {pair({0, 7, 0.002}, {0, 70, 0.02}), pair({0.015, 60, 0.003}, {0.6, 2400, 0.12}), volts80},
     .slewRate = pair({0.0012, 0.3, 0.0012}, {0.012, 3, 0.012})},
    {.name = "K17",
     .maxPower = 600,
     .onResistance = 0.004,
     .values = {pair({0, 12, 0.003}, {0, 120, 0.03}), pair({0.01, 40, 0.002}, {0.4, 1600, 0.08}), volts80},
     .slewRate = pair({0.002, 0.5, 0.002}, {0.02, 5, 0.02})},
};

} // namespace

double ValueRange::nearest(double value) const
{
    return std::clamp(std::round(value / step) * step, lowest, highest);
}

double LoadModule::currentResolution(LoadRange range) const
{
    return std::max(this->range(LoadFunction::Current, range).step / 10, 0.0001);
}

double LoadModule::voltageResolution(LoadRange range) const
{
    return this->range(LoadFunction::Voltage, range).step / 10;
}

std::span<const LoadModule> loadModules()
{
    return modules;
}

const LoadModule* findLoadModule(std::string_view name)
{
    const auto found =
        std::ranges::find_if(modules, [&](const LoadModule& module) { return ascii::sameText(module.name, name); });
    return found == std::end(modules) ? nullptr : found;
}

} // namespace orb
