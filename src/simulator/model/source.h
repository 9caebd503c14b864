// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace orb {

/// What is connected to the terminals of a channel: a voltage with a resistance in series. Only `noise` is random; it
/// depends on the instrument's seed.
struct Source {
    /// For error messages and the manual.
    std::string name = "source";
    /// Volts without load and, for a battery, full. 0 is an open input.
    double openCircuitVoltage = 0;
    /// Ohms, not negative.
    double seriesResistance = 0.1;
    /// Volts rms, not negative.
    double noise = 0;
    /// The amplitude of a slow swing of the open-circuit voltage in volts, 0 for none, and its period in seconds.
    double swing = 0;
    double swingPeriod = 60;
    /// Ampere-hours of a battery, which falls under load from `openCircuitVoltage` to `emptyVoltage`. 0: no battery.
    double capacity = 0;
    double emptyVoltage = 0;

    /// The open-circuit voltage after `seconds` of time and `drained` ampere-hours, never below 0.
    double voltage(double seconds, double drained) const;
    /// Throws `std::invalid_argument` for an invalid value.
    void validate() const;
};

} // namespace orb
