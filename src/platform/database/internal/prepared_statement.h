// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connection.h"
#include "recordset.h"

#include <memory>
#include <string_view>

#include <sqlite3.h>

namespace orb {

/// One statement of a connection. Once the connection is closed every call throws `RuntimeFailure` 3420. What SQLite
/// refuses is thrown with its own message.
class PreparedStatement {
public:
    /// `sql` is one statement in SQLite's dialect. Throws 3075 for text after it.
    PreparedStatement(std::shared_ptr<Connection> connection, std::string_view sql);
    ~PreparedStatement();
    PreparedStatement(const PreparedStatement&) = delete;
    PreparedStatement& operator=(const PreparedStatement&) = delete;

    /// Runs on to the next row. False at the end of the rows, where the statement is ready to run again.
    bool step();
    /// Back to the start.
    void reset();
    /// Sets the `index`th parameter, counted from 1. A text is copied.
    void bind(int index, const FieldValue& value);

    bool isReadOnly() const;
    /// Throws 3075 where the text has parameters: a "?" in an instrument's answer is no value.
    void requireNoParameters() const;
    int columnCount() const;
    QString columnName(int column) const;
    /// The value in the current row; a text is valid until the next `step` or `reset`.
    FieldValue value(int column) const;
    /// Rows that were scanned one by one to find those that it returned.
    std::int64_t rowsScanned() const;

private:
    sqlite3_stmt* handle() const
    {
        connection_->handle(); // throws once closed
        return handle_;
    }

    std::shared_ptr<Connection> connection_;
    sqlite3_stmt* handle_ = nullptr;
};

// SQLite's functions for columns look each column up again, so that the value itself reads a long log in half the time.
// That is allowed as long as a connection is used by one thread alone.
inline FieldValue PreparedStatement::value(int column) const
{
    sqlite3_value* value = sqlite3_column_value(handle(), column);
    switch (sqlite3_value_type(value)) {
    case SQLITE_NULL:
        return {};
    case SQLITE_INTEGER:
        return {FieldType::Integer, sqlite3_value_int64(value)};
    case SQLITE_FLOAT:
        return {FieldType::Real, 0, sqlite3_value_double(value)};
    default:
        break;
    }
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return {FieldType::Text, 0, 0, {bytes, static_cast<std::size_t>(sqlite3_value_bytes(value))}};
}

} // namespace orb
