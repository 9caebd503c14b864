// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

namespace orb {

/// The lowest and the highest set value that a module takes in its mode and range.
struct SetLimits {
    double lowest = 0;
    double highest = 0;

    bool operator==(const SetLimits&) const = default;
};

/// What is known of one load channel. An empty text or an empty optional is unknown.
struct ChannelReadout {
    QString module;
    std::optional<double> volts;
    std::optional<double> amperes;
    std::optional<double> watts;
    std::optional<bool> loadOn;
    QString mode;                      ///< "CCL", "CCH", "CRL", "CRH" or "CV"
    std::optional<bool> isHighVoltage; ///< the range of the voltage
    int level = 1;                     ///< 1 or 2, the level whose set value is in force
    QString tripped;                   ///< "OV", "OP" or "OC" where protection has tripped or is limiting
    std::optional<double> setValue;
    std::optional<SetLimits> limits;
    bool areLimitsAsked = false; ///< for this mode and range, whatever came of it
};

using ChannelReadouts = std::vector<ChannelReadout>;

/// A mode without its range.
struct ChannelMode {
    const char* name;      ///< "CC"
    const char* setHeader; ///< of its set value; the channel's number follows
    const char* unit;      ///< of its set value, UTF-8
};

/// The mode that "CC", "CCL" or "CCH" begins with, and so on; null for any other text.
const ChannelMode* findMode(const QString& text);

/// The unit of the set value; empty where the mode is unknown.
QString unitOf(const ChannelReadout& readout);

/// Whether the range of the set value is the high one.
std::optional<bool> isHighRange(const ChannelReadout& readout);

// The commands that change something. Channels count from 1.

/// Switches the input of one channel.
QByteArray loadCommand(int channel, bool on);
/// Switches the inputs of all channels off.
QByteArray allOffCommand();
/// "CC", "CR" or "CV"; the range stays.
QByteArray modeCommand(int channel, const QString& mode);
/// The range of the set value in the mode in force, which is known.
QByteArray rangeCommand(int channel, const ChannelReadout& readout, bool isHigh);
/// The set value of the mode and level in force, which are known.
QByteArray setValueCommand(int channel, const ChannelReadout& readout, double value);

} // namespace orb
