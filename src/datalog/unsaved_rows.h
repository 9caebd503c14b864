// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

#include <cstdint>

namespace orb {

class Database;
class Workspace;

/// The rows of the live table that no saved log holds, by their ids.
struct UnsavedRows {
    std::int64_t first = 1;
    std::int64_t last = 0;

    bool isEmpty() const { return last < first; }
    /// As many at most.
    std::int64_t count() const { return last - first + 1; }
};

/// A recording only appends rows, and a save copies all of them: a saved log whose first row is that of the table and
/// whose last row is the table's k-th one, where it has k rows, holds the first k. So the cost does not grow with the
/// table. Where the database can't be read there are no rows.
UnsavedRows findUnsavedRows(const Database& database);

/// Where rows are put aside: `recovered` beside the database, and a folder of the user's own for when nothing can be
/// written there.
QStringList recoveredFolders(const QString& database);

/// Puts `rows` aside as a file of comma-separated values in the first of `folders` that takes it, and keeps the newest
/// twenty of such files there. The file is on the disk before this returns. The result is a sentence for the operator;
/// it says so too where no folder took the rows.
QString putAside(const Database& database, const UnsavedRows& rows, const QStringList& folders);

/// What a start does before it empties the live table of the database at `path`: finds the rows and puts them aside. The
/// sentence; empty where there are no such rows. Throws what `Workspace::openDatabase` throws.
QString keepUnsavedRows(Workspace& workspace, const QString& path);

} // namespace orb
