// SPDX-License-Identifier: GPL-3.0-or-later
#include "values.h"

#include "failure.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace orb {

namespace {

struct Number {
    double value = 0;
    bool isTooLarge = false;
    qsizetype length = 0; ///< of the text that forms the number, 0 where there is none
};

/// The number that the text begins with.
Number leadingNumber(const QByteArray& text)
{
    const char* const begin = text.constData();
    const bool hasPlus = text.startsWith('+'); // which from_chars does not read
    const char first = text.size() > 1 && (hasPlus || text.startsWith('-')) ? begin[1] : *begin;
    if ((first < '0' || first > '9') && first != '.') // from_chars would read "inf" and "nan"
        return {};
    Number number;
    const auto [end, error] = std::from_chars(begin + (hasPlus ? 1 : 0), begin + text.size(), number.value);
    number.isTooLarge = error == std::errc::result_out_of_range;
    if (error != std::errc::invalid_argument)
        number.length = end - begin;
    return number;
}

/// Without the blanks around it. A character outside of Latin-1 becomes a question mark, which is part of no number.
QByteArray trimmed(const QString& text)
{
    return text.trimmed().toLatin1();
}

double checkedValue(const Number& number)
{
    if (number.isTooLarge)
        throw RuntimeFailure(failure::Overflow);
    return number.value;
}

template <typename Integer> Integer rounded(double value)
{
    const double whole = std::nearbyint(value); // the rounding mode is to even, as it is at every start
    if (!(whole >= std::numeric_limits<Integer>::min() && whole <= std::numeric_limits<Integer>::max()))
        throw RuntimeFailure(failure::Overflow);
    return static_cast<Integer>(whole);
}

/// With `digits` significant ones: plain where that many places are enough, else with an exponent.
QString decimal(double value, int digits)
{
    if (std::isnan(value))
        return QStringLiteral("NaN");
    if (std::isinf(value))
        return value < 0 ? QStringLiteral("-Inf") : QStringLiteral("Inf");
    if (value == 0)
        return QStringLiteral("0");
    const QString scientific = QString::number(value, 'E', digits - 1);
    const qsizetype mark = scientific.indexOf(QLatin1Char('E'));
    const int exponent = scientific.mid(mark + 1).toInt();
    QString mantissa = scientific.left(mark);
    while (mantissa.endsWith(QLatin1Char('0')))
        mantissa.chop(1);
    const qsizetype decimals = std::max<qsizetype>(0, mantissa.section(QLatin1Char('.'), 1).size() - exponent);
    if (mantissa.endsWith(QLatin1Char('.')))
        mantissa.chop(1);
    const bool isPlain = exponent < digits && decimals <= digits;
    return isPlain ? QString::number(value, 'f', static_cast<int>(decimals)) : mantissa + scientific.mid(mark);
}

} // namespace

double numericValue(const QString& text)
{
    return checkedValue(leadingNumber(trimmed(text)));
}

bool isNumeric(const QString& text)
{
    const QByteArray whole = trimmed(text);
    return !whole.isEmpty() && leadingNumber(whole).length == whole.size();
}

double toDouble(const QString& text)
{
    if (!isNumeric(text))
        throw RuntimeFailure(failure::TypeMismatch);
    return numericValue(text);
}

std::uint8_t toByte(double value)
{
    return rounded<std::uint8_t>(value);
}

std::int16_t toInteger(double value)
{
    return rounded<std::int16_t>(value);
}

std::int32_t toLong(double value)
{
    return rounded<std::int32_t>(value);
}

QString text(double value)
{
    return decimal(value, 15);
}

QString text(float value)
{
    return decimal(static_cast<double>(value), 7);
}

QString text(std::int64_t value)
{
    return QString::number(value);
}

} // namespace orb
