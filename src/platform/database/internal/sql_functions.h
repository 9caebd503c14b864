// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>

#include <functional>

struct sqlite3;

namespace orb {

/// The operator `like` of the dialect: `*` is any run of characters, `?` any one, `#` any digit, `[a-z0]` one of those
/// listed, `[!a-z0]` one that is not listed, everything else itself. Letter case makes no difference. A wildcard in a
/// list is matched literally: `[*]`.
bool isLike(const QString& text, const QString& pattern);

/// Adds to `database` the operator `like`, and now(), the local time as "YYYY-MM-DD HH:MM:SS", taken from `*now`, which
/// must outlive the database.
void addSqlFunctions(sqlite3* database, std::function<QDateTime()>* now);

} // namespace orb
