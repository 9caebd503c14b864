// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "dialogs.h"
#include "system_tools.h"

namespace orb {

/// Finds and starts the system's own tool for system information.
class SystemInfo {
public:
    /// Both references must outlive the object.
    SystemInfo(SystemTools& tools, Dialogs& dialogs) : tools_(tools), dialogs_(dialogs) {}

    /// Starts the tool; a message box says so where there is none, or it can't be started.
    void StartSysInfo();

    /// Reads a value of the registry into `KeyVal`: a text as it is; a number of 32 bits as decimal digits, from the
    /// hexadecimal ones of its bytes, which get no leading zeros. A value of another type leaves `KeyVal`. False where
    /// the value can't be read, or has more than 1024 bytes; `KeyVal` is empty then.
    bool GetKeyValue(SystemTools::Root KeyRoot, const QString& KeyName, const QString& SubKeyRef, QString& KeyVal);

private:
    bool findTool(QString& path);

    SystemTools& tools_;
    Dialogs& dialogs_;
};

} // namespace orb
