// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace orb {

/// The USBTMC devices of this machine, as the kernel lists them: a folder for each device, and a device file of that name.
class UsbtmcDevices {
public:
    explicit UsbtmcDevices(QString classFolder = QStringLiteral("/sys/class/usbmisc"),
                           QString deviceFolder = QStringLiteral("/dev"));

    /// The paths of the device files.
    QStringList present() const;
    /// Reads what an operator types: the path of a device file, its name alone, or a resource name, in any letter case,
    /// with or without the interface number and "::INSTR". The result is the canonical resource name; a device without
    /// a known identity has "USB/dev/usbtmc0::INSTR". Nothing where it is none of these.
    std::optional<QString> resourceName(const QString& typed) const;
    /// The device file of a canonical resource name; empty where no such device is present.
    QString deviceFile(const QString& resourceName) const;

private:
    QString identityOf(const QString& name) const;

    QString classFolder_;
    QString deviceFolder_;
};

} // namespace orb
