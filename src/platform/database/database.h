// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "recordset.h"

#include <memory>

namespace orb {

class Connection;

/// A database file that a `Workspace` has opened; closed at first. A copy is the same database. A statement that changes
/// rows is on the disk before the call returns.
///
/// Failures are `RuntimeFailure` with SQLite's own message: 3075 for a statement that SQLite refuses, 3022 for a key
/// that is there already, 3260 where another program holds the file, 3027 where it can't be written, 61 for a full
/// disk, 57 for a disk that fails, 3049 for a damaged file, 3420 while the database is closed.
class Database {
public:
    Database() = default;
    explicit Database(std::shared_ptr<Connection> connection) : connection_(std::move(connection)) {}

    /// Runs one statement that returns no rows. Text after the statement, other than white space, comments and one
    /// semicolon, is a failure, and then nothing is run.
    void execute(const QString& sql) const;

    /// Opens the rows of one query, read from the file as the recordset moves. The recordset may outlive this object; once
    /// the workspace is closed every use of it fails.
    std::unique_ptr<Recordset> openRecordset(const QString& sql) const;

    /// Closes it. A second call does nothing.
    void close();
    bool isOpen() const;

    /// The open file, for the recordsets. Throws 3420 while closed.
    const std::shared_ptr<Connection>& connection() const;

private:
    std::shared_ptr<Connection> connection_;
};

} // namespace orb
