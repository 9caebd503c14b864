// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

struct sqlite3;

namespace orb {

/// Opens the database file at `path`, which must be absolute, for reading and writing beside other programs. A file
/// that is refused keeps every byte; see `Workspace::openDatabase` for what is thrown. The caller closes the result.
sqlite3* openDatabaseFile(const QString& path);

} // namespace orb
