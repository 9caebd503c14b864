// SPDX-License-Identifier: GPL-3.0-or-later
#include "connection.h"

#include "database_file.h"
#include "failure.h"
#include "prepared_statement.h"
#include "sql_functions.h"

#include <sqlite3.h>
#include <SQLiteCpp/Database.h>

namespace orb {

namespace {

std::string lowered(const QString& table)
{
    return table.toLower().toStdString();
}

} // namespace

Connection::Connection(const QString& path, std::function<QDateTime()> now)
    : path_(path), now_(std::move(now)), database_(openDatabaseFile(path))
{
    addSqlFunctions(*database_, &now_);
    versionQuery_ = std::make_unique<PreparedStatement>(*this, "PRAGMA data_version");
    noteOtherWriters();
}

Connection::~Connection()
{
    close();
}

void Connection::close()
{
    for (PreparedStatement* statement : statements_)
        statement->abandon();
    statements_.clear();
    database_.reset();
}

sqlite3* Connection::handle() const
{
    if (!database_)
        throw RuntimeFailure(failure::ObjectClosed);
    return database_->getHandle();
}

void Connection::execute(const QString& sql)
{
    const SqlStatement translated = translateSql(sql.toStdString());
    PreparedStatement statement(*this, translated.sql);
    if (statement.columnCount() > 0)
        throw RuntimeFailure(failure::StatementFailed, QStringLiteral("The statement gives rows"));
    statement.refuseParameters();
    run(statement, translated);
}

std::int64_t Connection::run(PreparedStatement& statement, const SqlStatement& meaning)
{
    const std::int64_t before = sqlite3_total_changes64(handle());
    statement.step();
    const std::int64_t changed = sqlite3_changes64(handle());
    const bool wentOn = sqlite3_total_changes64(handle()) - before != changed; // a trigger changed other tables
    wentOn ? tally_.forgetAll() : tally_.note(meaning, changed);
    return changed;
}

/// The number is another one when another program has committed since.
void Connection::noteOtherWriters()
{
    versionQuery_->step();
    const std::int64_t version = versionQuery_->integer(0);
    versionQuery_->reset();
    if (version != version_)
        tally_.forgetAll();
    version_ = version;
}

TableState Connection::stateOf(const QString& table)
{
    handle();
    noteOtherWriters();
    return tally_.state(lowered(table));
}

void Connection::learnRows(const QString& table, std::int64_t rows)
{
    tally_.learn(lowered(table), rows);
}

} // namespace orb
