// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>

#include <functional>

namespace SQLite {
class Database;
}

namespace orb {

/// Gives `database` what the dialect has and SQLite has not: the operator `like` by `LikePattern`, and now(), the local
/// time as "YYYY-MM-DD HH:MM:SS", taken from `*now`, which must outlive the database.
void addSqlFunctions(SQLite::Database& database, std::function<QDateTime()>* now);

} // namespace orb
