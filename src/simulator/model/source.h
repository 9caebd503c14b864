// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace orb {

/// What hangs on the terminals of a channel: a voltage behind a resistance. All of it is exact and reproducible; only
/// `noise` is random, and comes from the instrument's seed.
struct Source {
    /// For people; no part of the physics.
    std::string name = "source";
    /// Volts without load and, for a battery, full. 0 is an open input.
    double openCircuitVoltage = 0;
    /// Ohms, not negative.
    double seriesResistance = 0.1;
    /// Volts rms, not negative.
    double noise = 0;
    /// A slow swing of the open-circuit voltage: volts to each side, and its period in seconds. 0 swings not at all.
    double swing = 0;
    double swingPeriod = 60;
    /// Ampere-hours of a battery, which drains under load from `openCircuitVoltage` to `emptyVoltage`. 0 never drains.
    double capacity = 0;
    double emptyVoltage = 0;

    /// The open-circuit voltage after `seconds` of time and `drained` ampere-hours, never below 0.
    double voltage(double seconds, double drained) const;
    /// Throws `std::invalid_argument` where a value makes no source.
    void validate() const;
};

} // namespace orb
