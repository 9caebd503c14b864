// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database.h"

#include <QDateTime>

#include <functional>
#include <vector>

namespace orb {

/// Opens databases. A path that is opened twice is one connection, so that a data control sees at once what a statement
/// has done.
class Workspace {
public:
    /// `now` is the local time that now() returns in the statements.
    explicit Workspace(std::function<QDateTime()> now);
    Workspace(const Workspace&) = delete;
    Workspace& operator=(const Workspace&) = delete;

    /// Opens the database file at `path` for reading and writing, beside other programs. Nothing is created, and a
    /// file that is refused keeps every byte. Throws 3024 where there is no file, 3343 where it is no database, 70
    /// where it can't be read, 3027 where it can't be written, 3049 where it is damaged.
    Database openDatabase(const QString& path);

    /// Closes every database that was opened here.
    void close();

private:
    std::function<QDateTime()> now_;
    std::vector<std::weak_ptr<Connection>> connections_;
};

} // namespace orb
