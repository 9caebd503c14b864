// SPDX-License-Identifier: GPL-3.0-or-later
#include "prepared_statement.h"

#include "sqlite_failure.h"

namespace orb {

PreparedStatement::PreparedStatement(std::shared_ptr<Connection> connection, std::string_view sql)
    : connection_(std::move(connection))
{
    const char* rest = nullptr;
    const int length = static_cast<int>(sql.size());
    if (sqlite3_prepare_v2(connection_->handle(), sql.data(), length, &handle_, &rest) != SQLITE_OK)
        throw lastSqliteFailure(connection_->handle());
    if (rest != sql.data() + sql.size()) { // a second wall: the dialect refuses it already
        sqlite3_finalize(handle_);
        throw RuntimeFailure(failure::StatementFailed, QStringLiteral("Text after the end of the statement"));
    }
}

PreparedStatement::~PreparedStatement()
{
    if (connection_->isOpen()) // closing it has finalized its statements
        sqlite3_finalize(handle_);
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
    const RuntimeFailure failure = lastSqliteFailure(connection_->handle());
    sqlite3_reset(handle_);
    throw failure;
}

void PreparedStatement::reset()
{
    sqlite3_reset(handle()); // it returns the result of the last `step` once more
}

void PreparedStatement::bind(int index, const FieldValue& value)
{
    int code = SQLITE_OK;
    switch (value.type) {
    case FieldType::Null:
        code = sqlite3_bind_null(handle(), index);
        break;
    case FieldType::Integer:
        code = sqlite3_bind_int64(handle(), index, value.integer);
        break;
    case FieldType::Real:
        code = sqlite3_bind_double(handle(), index, value.real);
        break;
    case FieldType::Text:
        code =
            sqlite3_bind_text64(handle(), index, value.text.data(), value.text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
        break;
    }
    if (code != SQLITE_OK)
        throw lastSqliteFailure(connection_->handle());
}

bool PreparedStatement::isReadOnly() const
{
    return sqlite3_stmt_readonly(handle()) != 0;
}

void PreparedStatement::requireNoParameters() const
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

std::int64_t PreparedStatement::rowsScanned() const
{
    return sqlite3_stmt_status(handle(), SQLITE_STMTSTATUS_FULLSCAN_STEP, 0);
}

} // namespace orb
