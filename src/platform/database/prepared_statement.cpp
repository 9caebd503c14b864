// SPDX-License-Identifier: GPL-3.0-or-later
#include "prepared_statement.h"

#include "connection.h"
#include "sqlite_failure.h"

namespace orb {

PreparedStatement::PreparedStatement(Connection& connection, std::string_view sql) : connection_(&connection)
{
    sqlite3* database = connection.handle();
    const char* rest = nullptr;
    if (sqlite3_prepare_v2(database, sql.data(), static_cast<int>(sql.size()), &handle_, &rest) != SQLITE_OK)
        throw lastSqliteFailure(database);
    if (!handle_ || rest != sql.data() + sql.size()) { // the dialect lets nothing of the kind come here
        sqlite3_finalize(handle_);
        throw RuntimeFailure(failure::StatementFailed, QStringLiteral("Not one single statement"));
    }
    connection.enroll(*this);
}

PreparedStatement::~PreparedStatement()
{
    if (connection_)
        connection_->strikeOut(*this);
    sqlite3_finalize(handle_);
}

void PreparedStatement::abandon()
{
    sqlite3_finalize(handle_);
    handle_ = nullptr;
    connection_ = nullptr;
}

Connection& PreparedStatement::connection() const
{
    handle();
    return *connection_;
}

void PreparedStatement::refuseClosed()
{
    throw RuntimeFailure(failure::ObjectClosed);
}

void PreparedStatement::check(int code) const
{
    if (code != SQLITE_OK)
        throw lastSqliteFailure(sqlite3_db_handle(handle_));
}

bool PreparedStatement::step()
{
    const int code = sqlite3_step(handle());
    if (code == SQLITE_ROW)
        return true;
    if (code == SQLITE_DONE) {
        sqlite3_reset(handle_);
        return false;
    }
    const RuntimeFailure failure = lastSqliteFailure(sqlite3_db_handle(handle_));
    sqlite3_reset(handle_);
    throw failure;
}

void PreparedStatement::reset()
{
    sqlite3_reset(handle()); // says again what `step` has thrown already
}

void PreparedStatement::bind(int index, std::int64_t value)
{
    check(sqlite3_bind_int64(handle(), index, value));
}

void PreparedStatement::bind(int index, const FieldValue& value)
{
    switch (value.type) {
    case FieldType::Null:
        return check(sqlite3_bind_null(handle(), index));
    case FieldType::Integer:
        return check(sqlite3_bind_int64(handle(), index, value.integer));
    case FieldType::Real:
        return check(sqlite3_bind_double(handle(), index, value.real));
    case FieldType::Text:
        return check(
            sqlite3_bind_text64(handle(), index, value.text.data(), value.text.size(), SQLITE_TRANSIENT, SQLITE_UTF8));
    }
}

bool PreparedStatement::isReadOnly() const
{
    return sqlite3_stmt_readonly(handle()) != 0;
}

void PreparedStatement::refuseParameters() const
{
    if (sqlite3_bind_parameter_count(handle()) > 0)
        throw RuntimeFailure(failure::StatementFailed, QStringLiteral("The statement lacks the value of a parameter"));
}

int PreparedStatement::columnCount() const
{
    return sqlite3_column_count(handle());
}

QString PreparedStatement::columnName(int column) const
{
    return QString::fromUtf8(sqlite3_column_name(handle(), column));
}

std::int64_t PreparedStatement::integer(int column) const
{
    return sqlite3_column_int64(handle(), column);
}

std::int64_t PreparedStatement::rowsScanned() const
{
    return sqlite3_stmt_status(handle(), SQLITE_STMTSTATUS_FULLSCAN_STEP, 0);
}

} // namespace orb
