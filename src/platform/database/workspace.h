// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database.h"

#include <functional>
#include <vector>

namespace orb {

/// Opens databases. What is opened twice by the same path is one connection, so that a data control sees at once what
/// a statement has done.
class Workspace {
public:
    /// `now` is the local time that the function now() of the statements gives.
    explicit Workspace(std::function<QDateTime()> now);
    ~Workspace();
    Workspace(const Workspace&) = delete;
    Workspace& operator=(const Workspace&) = delete;

    /// Opens the database file at `path` for reading and writing, beside other programs. Nothing is created, and a
    /// file that is refused keeps every byte. Throws 3024 where there is no file, 3343 where it is no database, 70
    /// where it can't be read, 3027 where it can't be written, 3049 where it is damaged.
    Database openDatabase(const QString& path);

    /// Closes every database that was opened here, whoever holds it.
    void close();

private:
    std::function<QDateTime()> now_;
    std::vector<std::weak_ptr<Connection>> connections_;
};

} // namespace orb
