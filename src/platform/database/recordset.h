// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <string_view>

namespace orb {

/// What a field holds in the current row. Null is no value at all, and not the empty text.
enum class FieldType { Null, Integer, Real, Text };

/// One value as the database gives it. Only the member that `type` names means anything.
struct FieldValue {
    FieldType type = FieldType::Null;
    std::int64_t integer = 0;
    double real = 0;
    std::string_view text; ///< UTF-8, valid until the recordset moves
};

class Recordset;

/// One field of a recordset: always that of its current row, so that a loop looks the name up once and then moves.
/// Every read throws `RuntimeFailure` 3021 where there is no current row. The recordset must outlive it.
class Field {
public:
    Field(const Recordset& recordset, int column) : recordset_(recordset), column_(column) {}

    FieldType type() const;
    bool isNull() const { return type() == FieldType::Null; }

    /// The value as text, a number in its ordinary decimal form (15.0 gives "15"). Throws 94 for Null.
    QString asText() const;
    /// The same, the empty text for Null.
    QString textOrEmpty() const;
    /// The same, appended to `out` in UTF-8; for loops over many rows. Throws 94 for Null.
    void appendText(QByteArray& out) const;

    /// The value for joining texts by addition: throws 13 for a number and 94 for Null.
    QString joinText() const;
    /// The bytes of `joinText`, without a copy: valid until the recordset moves. Throws as it does.
    std::string_view utf8() const;

    /// The value as a number, a text by conversion. Throws 94 for Null, 13 for a text that is no number, 6 for one that
    /// is too large.
    double toDouble() const;
    /// The value as local date and time, read from "YYYY-MM-DD HH:MM:SS". Throws 94 for Null and 13 for anything else.
    QDateTime toDateTime() const;

private:
    const Recordset& recordset_;
    int column_;
};

/// Rows with a current row in them, which is the first one to begin with. Any call throws `RuntimeFailure` 3420 once the
/// recordset or its database is closed.
class Recordset {
public:
    Recordset() = default;
    virtual ~Recordset() = default;
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;

    /// True behind the last row, and where there are no rows. There is then no current row.
    virtual bool isEof() const = 0;
    /// To the first or last row. Changes nothing where there are no rows.
    virtual void moveFirst() = 0;
    virtual void moveLast() = 0;
    /// To the next row, or behind the last one. Throws 3021 where there is no current row.
    virtual void moveNext() = 0;
    /// How many rows there are in all. The current row stays.
    virtual std::int64_t recordCount() = 0;
    /// Ends the recordset.
    virtual void close() = 0;

    virtual int fieldCount() const = 0;
    /// `column` counts from 0. Throws 3265 outside of 0 ... `fieldCount` - 1.
    virtual QString fieldName(int column) const = 0;
    /// The value of the current row. Throws 3021 and 3265.
    virtual FieldValue value(int column) const = 0;

    /// A field by its place, or by its name without regard to case. Throws 3265 where there is none.
    Field field(int column) const;
    Field field(const QString& name) const;
};

} // namespace orb
