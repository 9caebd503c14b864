// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace orb {

/// The command that the key of that name sends; empty where no key has that name, letter case included.
QString keyCommand(const QString& keyName);

/// The pointer over the key of that name, as a path below the application directory.
QString keyPointer(const QString& keyName);

} // namespace orb
