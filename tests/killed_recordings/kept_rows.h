// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDir>

#include <map>
#include <set>

namespace orb {

/// The rows that an application folder holds, in the live table, in the saved logs and in `recovered`: the numbers of the
/// samples of each run.
using KeptRows = std::map<int, std::set<int>>;

/// Reads them on a connection of its own. Throws `std::runtime_error` with SQLite's message.
KeptRows keptRows(const QDir& folder);

/// What `PRAGMA integrity_check` says: "ok".
QString integrityOf(const QDir& folder);

} // namespace orb
