// SPDX-License-Identifier: GPL-3.0-or-later
#include "values.h"

#include "failure.h"

#include <QLocale>

#include <cfenv>
#include <cmath>
#include <limits>

namespace orb {

namespace {

bool isDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

qsizetype skipDigits(const QString& text, qsizetype at)
{
    while (at < text.size() && isDigit(text[at]))
        ++at;
    return at;
}

qsizetype skipSign(const QString& text, qsizetype at)
{
    return at < text.size() && (text[at] == QLatin1Char('+') || text[at] == QLatin1Char('-')) ? at + 1 : at;
}

/// The place behind the exponent that begins at `at`, or `at` where none does.
qsizetype skipExponent(const QString& text, qsizetype at)
{
    if (at >= text.size() || text[at].toUpper() != QLatin1Char('E'))
        return at;
    const qsizetype digits = skipSign(text, at + 1);
    const qsizetype end = skipDigits(text, digits);
    return end > digits ? end : at;
}

struct Range {
    qsizetype begin;
    qsizetype end;
    bool isEmpty() const { return begin == end; }
};

/// Where the number stands that the text begins with, blanks skipped.
Range leadingNumber(const QString& text)
{
    qsizetype begin = 0;
    while (begin < text.size() && text[begin].isSpace())
        ++begin;
    const qsizetype whole = skipSign(text, begin);
    qsizetype end = skipDigits(text, whole);
    qsizetype digits = end - whole;
    if (end < text.size() && text[end] == QLatin1Char('.')) {
        const qsizetype fraction = end + 1;
        end = skipDigits(text, fraction);
        digits += end - fraction;
    }
    if (digits == 0)
        return {begin, begin};
    return {begin, skipExponent(text, end)};
}

double parsed(const QString& text, Range range)
{
    bool ok = false;
    const double value = QLocale::c().toDouble(QStringView(text).mid(range.begin, range.end - range.begin), &ok);
    if (!ok || std::isinf(value)) // the form is a number's, so that only its size can be at fault
        throw RuntimeFailure(failure::Overflow);
    return value;
}

template <typename Integer> Integer rounded(double value)
{
    const double whole = std::nearbyint(value); // the rounding mode is to even, as it is at every start
    if (!(whole >= std::numeric_limits<Integer>::min() && whole <= std::numeric_limits<Integer>::max()))
        throw RuntimeFailure(failure::Overflow);
    return static_cast<Integer>(whole);
}

/// `digits` significant ones, plain as far as they reach, else with an exponent of at least two places.
QString decimal(double value, int digits)
{
    if (std::isnan(value))
        return QStringLiteral("NaN");
    if (std::isinf(value))
        return value < 0 ? QStringLiteral("-Inf") : QStringLiteral("Inf");
    if (value == 0)
        return QStringLiteral("0");
    const QByteArray scientific = QByteArray::number(value, 'e', digits - 1);
    const qsizetype mark = scientific.indexOf('e');
    const int exponent = scientific.mid(mark + 1).toInt();
    QByteArray mantissa = scientific.left(mark);
    while (mantissa.endsWith('0'))
        mantissa.chop(1);
    if (mantissa.endsWith('.'))
        mantissa.chop(1);
    const qsizetype point = mantissa.indexOf('.');
    const int fraction = point < 0 ? 0 : static_cast<int>(mantissa.size() - point - 1);
    const int decimals = std::max(0, fraction - exponent);
    if (exponent < digits && decimals <= digits)
        return QString::fromLatin1(QByteArray::number(value, 'f', decimals));
    const QString sign = exponent < 0 ? QStringLiteral("-") : QStringLiteral("+");
    return QStringLiteral("%1E%2%3")
        .arg(QString::fromLatin1(mantissa), sign)
        .arg(std::abs(exponent), 2, 10, QLatin1Char('0'));
}

} // namespace

double numericValue(const QString& text)
{
    const Range range = leadingNumber(text);
    return range.isEmpty() ? 0.0 : parsed(text, range);
}

bool isNumeric(const QString& text)
{
    const Range range = leadingNumber(text);
    return !range.isEmpty() && QStringView(text).mid(range.end).trimmed().isEmpty();
}

double toDouble(const QString& text)
{
    if (!isNumeric(text))
        throw RuntimeFailure(failure::TypeMismatch);
    return parsed(text, leadingNumber(text));
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
