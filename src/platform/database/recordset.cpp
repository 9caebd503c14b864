// SPDX-License-Identifier: GPL-3.0-or-later
#include "recordset.h"

#include "failure.h"
#include "values.h"

#include <array>
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

/// Digits of a number as they are read, and how many of them stand behind the point.
struct Digits {
    std::uint64_t value = 0;
    int count = 0;

    /// Takes the digits that `text` begins with, and removes them from it.
    void take(std::string_view& text)
    {
        std::size_t i = 0;
        for (; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i)
            value = value * 10 + static_cast<std::uint64_t>(text[i] - '0');
        count += static_cast<int>(i);
        text.remove_prefix(i);
    }
};

/// A number of at most 16 characters without an exponent, as an instrument answers it; NaN for any other text. Where it
/// has a point, both its digits and the power of ten are exact as doubles, so that their quotient is the nearest one.
double plainNumber(std::string_view text)
{
    static constexpr std::array<double, 16> powers{1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                   1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    const bool isNegative = !text.empty() && text.front() == '-';
    text.remove_prefix(isNegative ? 1 : 0);
    if (text.size() > 16)
        return std::nan("");
    Digits digits;
    digits.take(text);
    const int whole = digits.count;
    if (!text.empty() && text.front() == '.') {
        text.remove_prefix(1);
        digits.take(text);
    }
    if (!text.empty() || digits.count == 0)
        return std::nan("");
    const double number = static_cast<double>(digits.value) / powers[static_cast<std::size_t>(digits.count - whole)];
    return isNegative ? -number : number;
}

/// A long log has millions of plain numbers; any other text is left to the ordinary conversion.
double numberOf(std::string_view bytes)
{
    const double number = plainNumber(bytes);
    return std::isnan(number) ? orb::toDouble(fromUtf8(bytes)) : number;
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
