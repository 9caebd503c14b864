// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "load_module.h"

namespace orb {

/// What the two sides of a pair of terminals agree on.
struct OperatingPoint {
    /// Volts and amperes at the terminals.
    double voltage = 0;
    double current = 0;
    /// The input would draw more to hold its set value, and its range does not let it.
    bool limited = false;

    double power() const { return voltage * current; }
};

/// What a load input does: holds `setValue` (amperes, ohms or volts) and draws at most `maxCurrent`. It is never less
/// than `onResistance`, so that there is a current that no source exceeds.
struct LoadInput {
    LoadFunction function = LoadFunction::Current;
    double setValue = 0;
    double maxCurrent = 0;
    double onResistance = 0;
};

/// The operating point of a source of `openCircuitVoltage` behind `seriesResistance` and an input that is on.
OperatingPoint operatingPoint(double openCircuitVoltage, double seriesResistance, const LoadInput& input);

/// The operating point with the input off.
OperatingPoint openTerminals(double openCircuitVoltage);

} // namespace orb
