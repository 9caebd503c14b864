// SPDX-License-Identifier: GPL-3.0-or-later
#include "source.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <stdexcept>

namespace orb {

namespace {

void require(bool condition, const Source& source, const char* what)
{
    if (!condition)
        throw std::invalid_argument(source.name + ": " + what);
}

bool isFiniteNotNegative(double value)
{
    return std::isfinite(value) && value >= 0;
}

} // namespace

double Source::voltage(double seconds, double drained) const
{
    double volts = openCircuitVoltage;
    if (capacity > 0)
        volts -= (openCircuitVoltage - emptyVoltage) * std::clamp(drained / capacity, 0.0, 1.0);
    if (swing > 0)
        volts += swing * std::sin(2 * std::numbers::pi * std::fmod(seconds / swingPeriod, 1.0));
    return std::max(volts, 0.0);
}

void Source::validate() const
{
    require(isFiniteNotNegative(openCircuitVoltage), *this, "the open-circuit voltage is negative or no number");
    require(isFiniteNotNegative(seriesResistance), *this, "the series resistance is negative or no number");
    require(isFiniteNotNegative(noise), *this, "the noise is negative or no number");
    require(isFiniteNotNegative(swing), *this, "the swing is negative or no number");
    require(std::isfinite(swingPeriod) && swingPeriod > 0, *this, "the period of the swing is not above 0");
    require(isFiniteNotNegative(capacity), *this, "the capacity is negative or no number");
    require(isFiniteNotNegative(emptyVoltage) && emptyVoltage <= openCircuitVoltage, *this,
            "the empty voltage is not between 0 and the open-circuit voltage");
}

} // namespace orb
