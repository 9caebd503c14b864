// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "recordset.h"

#include <sqlite3.h>

#include <string_view>

namespace orb {

class Connection;

/// One statement of a connection. When the connection closes, so does the statement; from then on every call throws
/// `RuntimeFailure` 3420. What SQLite refuses is thrown with its own message.
class PreparedStatement {
public:
    /// `sql` is one statement in SQLite's words.
    PreparedStatement(Connection& connection, std::string_view sql);
    ~PreparedStatement();
    PreparedStatement(const PreparedStatement&) = delete;
    PreparedStatement& operator=(const PreparedStatement&) = delete;

    /// Runs on to the next row. False when the statement has done all it had to do, and is ready to begin anew.
    bool step();
    /// Back to the start.
    void reset();

    /// Gives the `index`th parameter, counted from 1, its value. Texts are copied.
    void bind(int index, std::int64_t value);
    void bind(int index, const FieldValue& value);

    bool isReadOnly() const;
    /// Throws 3075 where the text has parameters: a "?" that an instrument answered is no value.
    void refuseParameters() const;
    int columnCount() const;
    QString columnName(int column) const;

    /// Of the row that `step` stands on; a text is valid until the next `step` or `reset`.
    FieldValue value(int column) const;
    std::int64_t integer(int column) const;

    /// Rows that were scanned one by one to find those that it gave.
    std::int64_t rowsScanned() const;

    Connection& connection() const;
    bool isOpen() const { return handle_ != nullptr; }
    /// Called by the connection when it closes.
    void abandon();

private:
    sqlite3_stmt* handle() const
    {
        if (!handle_)
            refuseClosed();
        return handle_;
    }
    [[noreturn]] static void refuseClosed();
    void check(int code) const;

    Connection* connection_;
    sqlite3_stmt* handle_ = nullptr;
};

// By way of the value and not by SQLite's functions for columns, each of which looks the column up anew: a long log is
// read in half the time. It asks that a connection is used by one thread alone, which it is.
inline FieldValue PreparedStatement::value(int column) const
{
    sqlite3_value* value = sqlite3_column_value(handle(), column);
    switch (sqlite3_value_type(value)) {
    case SQLITE_NULL:
        return {};
    case SQLITE_INTEGER:
        return {FieldType::Integer, sqlite3_value_int64(value), 0, {}};
    case SQLITE_FLOAT:
        return {FieldType::Real, 0, sqlite3_value_double(value), {}};
    default:
        break;
    }
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return {FieldType::Text, 0, 0, {bytes, static_cast<std::size_t>(sqlite3_value_bytes(value))}};
}

} // namespace orb
