// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

namespace orb {

/// A serial line of this machine: "/dev/ttyUSB0", or "COM3" on Windows.
struct SerialAddress {
    QString device;

    /// "ASRL/dev/ttyUSB0::INSTR"
    QString resourceName() const;

    bool operator==(const SerialAddress&) const = default;
};

/// Reads what an operator types: the path of a device, its name alone ("ttyUSB0"), or a resource name, in any letter case
/// and with or without "::INSTR". "ASRL1" is the first serial line of the machine. Nothing where it is none of these.
std::optional<SerialAddress> readSerialAddress(const QString& typed);

} // namespace orb
