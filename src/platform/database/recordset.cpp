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

/// A long log has millions of plain numbers, which need no copy; any other text goes through the ordinary conversion.
double numberOf(std::string_view text)
{
    double number = 0;
    const char* end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number);
    const bool isPlain = read.ec == std::errc() && read.ptr == end && std::isfinite(number);
    return isPlain ? number : orb::toDouble(fromUtf8(text));
}

} // namespace

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

double numberOf(const FieldValue& value, double ifNull)
{
    switch (value.type) {
    case FieldType::Text:
        return numberOf(value.text);
    case FieldType::Integer:
        return static_cast<double>(value.integer);
    case FieldType::Real:
        return value.real;
    case FieldType::Null:
        break;
    }
    return ifNull;
}

FieldValue Field::valueOrFail() const
{
    const FieldValue value = recordset_.value(column_);
    if (value.type == FieldType::Null)
        throw RuntimeFailure(failure::InvalidUseOfNull);
    return value;
}

bool Field::isNull() const
{
    return recordset_.value(column_).type == FieldType::Null;
}

QString Field::asText() const
{
    return textOf(valueOrFail());
}

QString Field::textOrEmpty() const
{
    return textOf(recordset_.value(column_));
}

double Field::toDouble() const
{
    return numberOf(valueOrFail(), 0);
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
