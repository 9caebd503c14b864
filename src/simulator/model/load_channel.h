// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "load_settings.h"
#include "noise.h"
#include "operating_point.h"
#include "source.h"

#include <optional>

namespace orb {

/// One reading of a channel's meters in volts, amperes and watts.
struct Reading {
    double voltage = 0;
    double current = 0;
    double power = 0;
};

/// One channel: a load module with a source at its terminals. Time and settings determine its operating point; a
/// reading adds the noise of the source and of the meters.
class LoadChannel {
public:
    /// Which protection has tripped and switched the input off; kept until cleared. `OverCurrent` is also set while the
    /// input draws the maximum of its range and does not reach its set value.
    enum Condition : unsigned { OverVoltage = 1, OverCurrent = 2, OverPower = 8 };
    /// Meters show up to that multiple of their range.
    static constexpr double meterSpan = 1.05;

    /// The input is off and the settings are those after a reset. Throws `std::invalid_argument` for an invalid source.
    /// `meterNoise`: of the current meter, in counts rms.
    LoadChannel(const LoadModule& module, const Source& source, std::uint64_t noiseSeed, double meterNoise);

    const LoadModule& module() const { return *module_; }
    const Source& source() const { return source_; }
    const LoadSettings& settings() const { return settings_; }
    bool inputOn() const { return inputOn_; }
    /// Bits of `Condition`.
    unsigned condition() const { return tripped_ | (operatingPoint_.limited ? OverCurrent : 0U); }
    /// Without any noise.
    const OperatingPoint& operatingPoint() const { return operatingPoint_; }

    /// Sets the function and its range. A change switches the input off.
    void setMode(LoadFunction function, LoadRange range);
    /// Sets the range of the voltage, for the meter and for CV. A change switches the input off.
    void setVoltageRange(LoadRange range);
    /// Sets a level (0 or 1) of a function in its range in force to the nearest step of that range.
    void setLevel(LoadFunction function, int level, double value);
    /// Sets the rise (0) or fall (1) in the current's range in force.
    void setSlewRate(int direction, double value);
    /// Chooses the level (0 or 1) in force.
    void chooseLevel(int level);
    /// Switches the input off and replaces all settings.
    void recall(const LoadSettings& settings);

    /// Draws `current` amperes instead of the set value and measures the voltage in that range, until `endPlay` or until
    /// the input goes off. The input must be on, in CC.
    void play(double current, LoadRange voltageRange);
    void endPlay();
    bool isPlaying() const { return played_.has_value(); }

    /// Shorts the terminals with the maximum current of the module, or ends the short. The input must be on; when it goes
    /// off, the short ends.
    void setShort(bool on);
    bool isShort() const { return short_; }
    /// Sets the volts (0), amperes (1) or watts (2) above which protection trips.
    void setProtection(std::size_t quantity, double value);
    /// Sets the least volts of the source at which the input draws a current, and whether it goes on below them.
    void setOnVoltage(double volts, bool latched);
    /// Sets the windows of the readings, and whether they are judged.
    void setJudging(const std::array<JudgedWindow, 3>& windows, bool judged);

    /// Clears tripped protection and switches the input on. It trips again if the cause is still there.
    void switchOn();
    void switchOff();
    void clearTrips();
    void connectSource(const Source& source);

    /// Moves to `seconds` since the instrument was switched on. Does nothing for an earlier time than the last one.
    void advanceTo(double seconds);
    /// A new reading at the present time.
    Reading measure();

private:
    struct Played {
        double current = 0;
        LoadRange voltageRange = LoadRange::High;
    };

    /// The range that limits and meters the current.
    LoadRange currentRange() const;
    LoadRange voltageRange() const;
    OperatingPoint pointAt(double openCircuitVoltage) const;
    void settle();
    void goOff();

    const LoadModule* module_;
    Source source_;
    LoadSettings settings_;
    Noise noise_;
    double meterNoise_;
    OperatingPoint operatingPoint_;
    double seconds_ = 0;
    double drained_ = 0; // ampere-hours
    unsigned tripped_ = 0;
    bool inputOn_ = false;
    bool short_ = false;
    bool draws_ = false; // the source has reached the load-on voltage
    std::optional<Played> played_;
};

} // namespace orb
