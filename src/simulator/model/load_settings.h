// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "load_module.h"

namespace orb {

/// The volts, amperes or watts that pass, both ends included.
struct JudgedWindow {
    double low = 0;
    double high = 0;

    bool holds(double value) const { return value >= low && value <= high; }
};

/// The settings of one channel, as a memory keeps them. The state of the input is not one of them.
struct LoadSettings {
    /// Two levels for each function and range; `level` is the index of the one in force.
    using Levels = std::array<double, 2>;
    /// The module's own protection trips above that multiple of its voltage, current and power.
    static constexpr double tripMargin = 1.05;

    LoadFunction function = LoadFunction::Current;
    /// The range in force of each function, by `indexOf(LoadFunction)`.
    std::array<LoadRange, 3> ranges{LoadRange::High, LoadRange::High, LoadRange::High};
    std::array<std::array<Levels, 2>, 3> levels{};
    /// Rise and fall, by the range of the current.
    std::array<std::array<double, 2>, 2> slewRates{};
    int level = 0;
    /// The windows of the voltage, the current and the power, and whether readings are judged by them.
    std::array<JudgedWindow, 3> windows{};
    bool judged = false;
    /// The volts, amperes and watts above which protection trips.
    std::array<double, 3> protection{};
    /// The least volts of the source at which the input draws a current. A latched input goes on below them.
    double onVoltage = 0;
    bool latched = false;

    LoadRange range(LoadFunction of) const { return ranges[indexOf(of)]; }
    /// Both levels of a function in its range in force.
    const Levels& levelsOf(LoadFunction of) const { return levels[indexOf(of)][indexOf(range(of))]; }
    Levels& levelsOf(LoadFunction of) { return levels[indexOf(of)][indexOf(range(of))]; }
    /// The value that the input holds when it is on.
    double setValue() const { return levelsOf(function)[static_cast<std::size_t>(level)]; }

    /// The settings after a reset: CC in the high range, the levels that draw least, the fastest slew rates, the windows
    /// and the protection of the module, a load-on voltage of 0 V.
    static LoadSettings afterReset(const LoadModule& module);
};

/// The name of the mode in force: CCL, CCH, CRL, CRH or CV.
std::string_view modeName(const LoadSettings& settings);

} // namespace orb
