// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <cstdint>
#include <string_view>

namespace orb {

/// What a field holds in the current row. Null is no value at all, and not the empty text.
enum class FieldType { Null, Integer, Real, Text };

/// One value as the database returns it. Only the member that `type` names has a meaning.
struct FieldValue {
    FieldType type = FieldType::Null;
    std::int64_t integer = 0;
    double real = 0;
    std::string_view text = {}; ///< UTF-8, valid until the recordset moves
};

/// The value as text, a number in its ordinary decimal form (15.0 gives "15"); empty for Null.
QString textOf(const FieldValue& value);

/// The value as a number, a text by conversion, `ifNull` for Null. Throws 13 for a text that is no number, 6 for one that
/// is too large.
double numberOf(const FieldValue& value, double ifNull);

class Recordset;

/// One field of a recordset, always of its current row, so that a loop can look it up once. Every read throws
/// `RuntimeFailure` 3021 where there is no current row. The recordset must outlive it.
class Field {
public:
    Field(const Recordset& recordset, int column) : recordset_(recordset), column_(column) {}

    bool isNull() const;
    /// The value as `textOf` gives it. Throws 94 for Null.
    QString asText() const;
    /// The same, but empty for Null.
    QString textOrEmpty() const;
    /// The value as a number, a text by conversion. Throws 94 for Null, 13 for a text that is no number, 6 for one that
    /// is too large.
    double toDouble() const;

private:
    FieldValue valueOrFail() const;

    const Recordset& recordset_;
    int column_;
};

/// Rows of which one is the current row, at first the first one. Any call throws `RuntimeFailure` 3420 once the database
/// is closed.
class Recordset {
public:
    Recordset() = default;
    virtual ~Recordset() = default;
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;

    /// True after the last row, and where there are no rows. There is no current row then.
    virtual bool isEof() const = 0;
    /// To the next row, or past the last one. Throws 3021 where there is no current row.
    virtual void moveNext() = 0;

    virtual int fieldCount() const = 0;
    /// `column` is in 0 ... `fieldCount` - 1.
    virtual QString fieldName(int column) const = 0;
    /// The value of the current row. Throws 3021, and 3265 outside of 0 ... `fieldCount` - 1.
    virtual FieldValue value(int column) const = 0;

    /// A field by its column, or by its name without regard to case. Throws 3265 where there is none.
    Field field(int column) const;
    Field field(const QString& name) const;
};

} // namespace orb
