// SPDX-License-Identifier: GPL-3.0-or-later
#include "connection.h"

#include "database_file.h"
#include "failure.h"
#include "sql_functions.h"

#include <sqlite3.h>

namespace orb {

Connection::Connection(const QString& path, std::function<QDateTime()> now)
    : path_(path), now_(std::move(now)), handle_(openDatabaseFile(path))
{
    addSqlFunctions(handle_, &now_);
}

void Connection::close()
{
    if (!handle_)
        return;
    while (sqlite3_stmt* statement = sqlite3_next_stmt(handle_, nullptr))
        sqlite3_finalize(statement);
    sqlite3_close(handle_);
    handle_ = nullptr;
}

void Connection::throwClosed()
{
    throw RuntimeFailure(failure::ObjectClosed);
}

} // namespace orb
