// SPDX-License-Identifier: GPL-3.0-or-later
#include "operating_point.h"

#include <algorithm>
#include <limits>

namespace orb {

namespace {

/// Infinite without a resistance.
double currentThrough(double voltage, double resistance)
{
    if (voltage <= 0)
        return 0;
    return resistance > 0 ? voltage / resistance : std::numeric_limits<double>::infinity();
}

/// The current that holds the set value, without any limit.
double wantedCurrent(double openCircuitVoltage, double seriesResistance, const LoadInput& input)
{
    switch (input.function) {
    case LoadFunction::Current:
        return input.setValue;
    case LoadFunction::Resistance:
        return currentThrough(openCircuitVoltage, seriesResistance + std::max(input.setValue, input.onResistance));
    default:
        return currentThrough(openCircuitVoltage - input.setValue, seriesResistance);
    }
}

} // namespace

OperatingPoint operatingPoint(double openCircuitVoltage, double seriesResistance, const LoadInput& input)
{
    const double wanted = wantedCurrent(openCircuitVoltage, seriesResistance, input);
    const double available = currentThrough(openCircuitVoltage, seriesResistance + input.onResistance);
    OperatingPoint point;
    point.current = std::min({wanted, available, input.maxCurrent});
    point.voltage = std::max(openCircuitVoltage - point.current * seriesResistance, 0.0);
    point.limited = std::min(wanted, available) > input.maxCurrent;
    return point;
}

OperatingPoint openTerminals(double openCircuitVoltage)
{
    return {openCircuitVoltage, 0, false};
}

} // namespace orb
