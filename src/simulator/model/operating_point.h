// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "load_module.h"

namespace orb {

/// The voltage and the current at the terminals of a channel.
struct OperatingPoint {
    /// Volts and amperes at the terminals.
    double voltage = 0;
    double current = 0;
    /// The range of the input keeps it from drawing the current of its set value.
    bool limited = false;

    double power() const { return voltage * current; }
};

/// A load input: it holds `setValue` (amperes, ohms or volts), draws at most `maxCurrent`, and its resistance is at
/// least `onResistance`.
struct LoadInput {
    LoadFunction function = LoadFunction::Current;
    double setValue = 0;
    double maxCurrent = 0;
    double onResistance = 0;
};

/// The operating point of an input that is on and a source of `openCircuitVoltage` and `seriesResistance`.
OperatingPoint operatingPoint(double openCircuitVoltage, double seriesResistance, const LoadInput& input);

/// The operating point with the input off.
OperatingPoint openTerminals(double openCircuitVoltage);

} // namespace orb
