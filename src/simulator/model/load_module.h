// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <span>
#include <string_view>

namespace orb {

/// What a load input holds constant: current (CC), resistance (CR) or voltage (CV).
enum class LoadFunction { Current, Resistance, Voltage };

/// The two ranges that a module has for each function.
enum class LoadRange { Low, High };

constexpr std::size_t indexOf(LoadFunction function)
{
    return static_cast<std::size_t>(function);
}
constexpr std::size_t indexOf(LoadRange range)
{
    return static_cast<std::size_t>(range);
}

/// The values of one range: from `lowest` to `highest` in whole multiples of `step`.
struct ValueRange {
    double lowest = 0;
    double highest = 0;
    double step = 0;

    /// False for a range that the module does not have.
    constexpr bool exists() const { return highest > 0; }
    constexpr bool holds(double value) const { return value >= lowest && value <= highest; }
    /// The nearest step of the range.
    double nearest(double value) const;
};

/// The two ranges of one quantity, by `indexOf(LoadRange)`.
using RangePair = std::array<ValueRange, 2>;

/// The data sheet of one kind of load module. Volts, amperes, ohms, watts; slew rates in amperes per microsecond.
struct LoadModule {
    std::string_view name = {};
    double maxPower = 0;
    /// The least resistance of the input.
    double onResistance = 0;
    /// The ranges of the set values, by `indexOf(LoadFunction)`.
    std::array<RangePair, 3> values{};
    /// Slew rates, by the range of the current.
    RangePair slewRate{};

    const ValueRange& range(LoadFunction function, LoadRange range) const
    {
        return values[indexOf(function)][indexOf(range)];
    }
    double maxCurrent() const { return range(LoadFunction::Current, LoadRange::High).highest; }
    double maxVoltage() const { return range(LoadFunction::Voltage, LoadRange::High).highest; }
    /// One count of the current meter in the given range.
    double currentResolution(LoadRange range) const;
    /// One count of the voltage meter in the given range.
    double voltageResolution(LoadRange range) const;
};

/// All modules, in the order of their names.
std::span<const LoadModule> loadModules();

/// The module of that name, in any letter case; null if there is none. Lives as long as the program.
const LoadModule* findLoadModule(std::string_view name);

} // namespace orb
