// SPDX-License-Identifier: GPL-3.0-or-later
#include "load_settings.h"

namespace orb {

namespace {

constexpr LoadRange bothRanges[] = {LoadRange::Low, LoadRange::High};

/// The level of a function that draws the least current.
double leastLevel(LoadFunction function, const ValueRange& values)
{
    return function == LoadFunction::Current ? values.lowest : values.highest;
}

} // namespace

LoadSettings LoadSettings::afterReset(const LoadModule& module)
{
    LoadSettings settings;
    for (const LoadRange range : bothRanges) {
        for (const LoadFunction function : {LoadFunction::Current, LoadFunction::Resistance, LoadFunction::Voltage})
            settings.levels[indexOf(function)][indexOf(range)].fill(
                leastLevel(function, module.range(function, range)));
        settings.slewRates[indexOf(range)].fill(module.slewRate[indexOf(range)].highest);
    }
    settings.windows = {{{0, module.maxVoltage()}, {0, module.maxCurrent()}, {0, module.maxPower}}};
    settings.protection = {module.maxVoltage() * tripMargin, module.maxCurrent() * tripMargin,
                           module.maxPower * tripMargin};
    return settings;
}

std::string_view modeName(const LoadSettings& settings)
{
    const bool high = settings.range(settings.function) == LoadRange::High;
    switch (settings.function) {
    case LoadFunction::Current:
        return high ? "CCH" : "CCL";
    case LoadFunction::Resistance:
        return high ? "CRH" : "CRL";
    default:
        return "CV";
    }
}

} // namespace orb
