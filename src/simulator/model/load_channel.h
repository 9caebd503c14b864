// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "load_settings.h"
#include "noise.h"
#include "operating_point.h"
#include "source.h"

#include <optional>

namespace orb {

/// What a channel's meters say: volts, amperes and watts, each at a whole count of its range.
struct Reading {
    double voltage = 0;
    double current = 0;
    double power = 0;
};

/// One channel: a load module with a source on its terminals. Time and settings decide its operating point; a reading
/// adds the noise of the source and of the meters.
class LoadChannel {
public:
    /// Facts about the channel, as the bits of its status.
    enum Condition : unsigned {
        OverVoltage = 1, ///< the voltage was too high for the module, and the input is off; kept until cleared
        OverCurrent =
            2,         ///< the input draws all that its range allows, and does not reach its set value; or the current
                       ///< was too high, and the input is off, kept until cleared
        OverPower = 8, ///< the power was too high for the module, and the input is off; kept until cleared
    };
    /// Protection reaches to that multiple of the module's voltage, current and power.
    static constexpr double tripMargin = LoadSettings::tripMargin;
    /// Meters go on to that multiple of their range.
    static constexpr double meterSpan = 1.05;

    /// The input is off and everything as after a reset. Throws `std::invalid_argument` for a source that is none.
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

    /// Takes a new function and its range. Switches the input off if that is a change.
    void setMode(LoadFunction function, LoadRange range);
    /// Takes the range of the voltage, for the meter and for CV. Switches the input off if that is a change.
    void setVoltageRange(LoadRange range);
    /// A level (0 or 1) of a function in its range in force, at the nearest step of that range.
    void setLevel(LoadFunction function, int level, double value);
    /// The rise (0) or fall (1) in the current's range in force.
    void setSlewRate(int direction, double value);
    /// Which of the two levels (0 or 1) is in force.
    void chooseLevel(int level);
    /// Takes all settings at once and switches the input off.
    void recall(const LoadSettings& settings);

    /// Draws `current` amperes in place of the set value, and meters the voltage in that range, until `endPlay` or until
    /// the input goes off. The input must be on, in CC.
    void play(double current, LoadRange voltageRange);
    void endPlay();
    bool isPlaying() const { return played_.has_value(); }

    /// Shorts the terminals with all the current that the module has, or ends that. It ends as well when the input goes
    /// off, and must not begin before it is on.
    void setShort(bool on);
    bool isShort() const { return short_; }
    /// The volts (0), amperes (1) or watts (2) beyond which protection trips.
    void setProtection(std::size_t quantity, double value);
    /// From which volts of the source on the input draws a current, and whether it goes on below them.
    void setOnVoltage(double volts, bool latched);
    /// The windows that readings are judged by.
    void setJudging(const std::array<JudgedWindow, 3>& windows, bool judged);

    /// Switches the input on, with what has tripped cleared; it trips again where the reason is still there.
    void switchOn();
    void switchOff();
    void clearTrips();
    void connectSource(const Source& source);

    /// Moves to `seconds` since the instrument was switched on; a time before the last one counts as the last one.
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
