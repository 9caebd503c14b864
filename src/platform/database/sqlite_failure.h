// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "failure.h"

struct sqlite3;

namespace orb {

/// The failure for a result code of SQLite, primary or extended, with SQLite's message.
RuntimeFailure sqliteFailure(int code, const char* message);

/// The failure that the last call on `handle` ended with.
RuntimeFailure lastSqliteFailure(sqlite3* handle);

} // namespace orb
