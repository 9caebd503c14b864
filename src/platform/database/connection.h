// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "table_tally.h"

#include <QDateTime>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

struct sqlite3;
namespace SQLite {
class Database;
}

namespace orb {

class PreparedStatement;

/// An open database file below the `Database`s that share it. Failures are those of `Database`.
class Connection {
public:
    /// Opens the file at `path`, which must be absolute; see `Workspace::openDatabase`. `now` is what now() gives.
    Connection(const QString& path, std::function<QDateTime()> now);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    const QString& path() const { return path_; }
    bool isOpen() const { return database_ != nullptr; }
    /// Ends all statements and closes the file. A second call does nothing.
    void close();

    /// Runs one statement of the dialect that gives no rows.
    void execute(const QString& sql);

    /// Runs a statement of which it is known what it does to its table. Returns how many rows it has changed.
    std::int64_t run(PreparedStatement& statement, const SqlStatement& meaning);

    /// What is known of a table, by its name without regard to case; all that this program and others have done to it
    /// is in it.
    TableState stateOf(const QString& table);
    /// Tells that the table has been counted.
    void learnRows(const QString& table, std::int64_t rows);

    /// SQLite's handle, for the statements. Throws 3420 once closed.
    sqlite3* handle() const;
    /// The statements that have to end before the file can close.
    void enroll(PreparedStatement& statement) { statements_.push_back(&statement); }
    void strikeOut(PreparedStatement& statement) { std::erase(statements_, &statement); }

private:
    void noteOtherWriters();

    QString path_;
    std::function<QDateTime()> now_;
    std::unique_ptr<SQLite::Database> database_;
    std::vector<PreparedStatement*> statements_;
    std::unique_ptr<PreparedStatement> versionQuery_;
    std::int64_t version_ = 0;
    TableTally tally_;
};

} // namespace orb
