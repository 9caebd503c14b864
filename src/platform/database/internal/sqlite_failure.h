// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "failure.h"

struct sqlite3;

namespace orb {

/// The failure that the last call on `handle` ended with, with SQLite's message.
RuntimeFailure lastSqliteFailure(sqlite3* handle);

} // namespace orb
