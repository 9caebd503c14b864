// SPDX-License-Identifier: GPL-3.0-or-later
#include "recordset.h"

#include "failure.h"
#include "values.h"

#include <charconv>
#include <cmath>

namespace orb {

namespace {

QString fromUtf8(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

FieldValue notNull(const FieldValue& value)
{
    if (value.type == FieldType::Null)
        throw RuntimeFailure(failure::InvalidUseOfNull);
    return value;
}

QString textOf(const FieldValue& value)
{
    switch (value.type) {
    case FieldType::Integer:
        return text(value.integer);
    case FieldType::Real:
        return text(value.real);
    case FieldType::Text:
        return fromUtf8(value.text);
    case FieldType::Null:
        break;
    }
    return {};
}

/// What an instrument answers is nearly always a plain number, and a long log has millions of them; any other text is
/// left to the ordinary conversion, which knows blanks, a plus sign and what is too large.
double numberOf(std::string_view bytes)
{
    double number = 0;
    const auto [end, error] = std::from_chars(bytes.data(), bytes.data() + bytes.size(), number);
    if (error == std::errc() && end == bytes.data() + bytes.size() && std::isfinite(number))
        return number;
    return orb::toDouble(fromUtf8(bytes));
}

} // namespace

FieldType Field::type() const
{
    return recordset_.value(column_).type;
}

QString Field::asText() const
{
    return textOf(notNull(recordset_.value(column_)));
}

QString Field::textOrEmpty() const
{
    return textOf(recordset_.value(column_));
}

void Field::appendText(QByteArray& out) const
{
    const FieldValue value = notNull(recordset_.value(column_));
    if (value.type == FieldType::Text)
        out.append(value.text.data(), static_cast<qsizetype>(value.text.size()));
    else if (value.type == FieldType::Integer)
        out.append(QByteArray::number(static_cast<qlonglong>(value.integer)));
    else
        out.append(text(value.real).toLatin1());
}

QString Field::joinText() const
{
    return fromUtf8(utf8());
}

std::string_view Field::utf8() const
{
    const FieldValue value = notNull(recordset_.value(column_));
    if (value.type != FieldType::Text)
        throw RuntimeFailure(failure::TypeMismatch);
    return value.text;
}

double Field::toDouble() const
{
    const FieldValue value = notNull(recordset_.value(column_));
    if (value.type == FieldType::Text)
        return numberOf(value.text);
    return value.type == FieldType::Real ? value.real : static_cast<double>(value.integer);
}

QDateTime Field::toDateTime() const
{
    const FieldValue value = notNull(recordset_.value(column_));
    const QDateTime time = value.type == FieldType::Text
                               ? QDateTime::fromString(fromUtf8(value.text), QStringLiteral("yyyy-MM-dd HH:mm:ss"))
                               : QDateTime();
    if (!time.isValid())
        throw RuntimeFailure(failure::TypeMismatch);
    return time;
}

Field Recordset::field(int column) const
{
    if (column < 0 || column >= fieldCount())
        throw RuntimeFailure(failure::ItemNotFound);
    return {*this, column};
}

Field Recordset::field(const QString& name) const
{
    for (int column = 0; column < fieldCount(); ++column)
        if (fieldName(column).compare(name, Qt::CaseInsensitive) == 0)
            return {*this, column};
    throw RuntimeFailure(failure::ItemNotFound);
}

} // namespace orb
