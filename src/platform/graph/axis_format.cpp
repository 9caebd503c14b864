// SPDX-License-Identifier: GPL-3.0-or-later
#include "axis_format.h"

#include "failure.h"

#include <QStringList>

#include <algorithm>
#include <cmath>

namespace orb {

namespace {

constexpr double microsecondsPerSecond = 1e6;
/// Beyond this many days a time is no time any more, and the label is a plain number.
constexpr double longestTime = 1e7;

/// The parts of a time, from the largest to the smallest, and their lengths in seconds.
constexpr QStringView units = u"dhns";
constexpr double unitSeconds[] = {secondsPerDay, 3600, 60, 1};

[[noreturn]] void refuse()
{
    throw RuntimeFailure(failure::TypeMismatch);
}

double wholePart(const QString& part)
{
    const bool digits = std::all_of(part.begin(), part.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
    if (!digits || part.isEmpty() || part.size() > 9)
        refuse();
    return part.toDouble();
}

/// Seconds, with or without a fraction.
double secondsPart(const QString& part)
{
    const qsizetype point = part.indexOf(u'.');
    if (point < 0)
        return wholePart(part);
    const QString places = part.mid(point + 1);
    return wholePart(part.left(point)) + wholePart(places) / std::pow(10.0, static_cast<double>(places.size()));
}

double below60(double value)
{
    if (value >= 60)
        refuse();
    return value;
}

/// A format taken apart: letters of time with their width, and what stands between them.
struct Token {
    int unit = -1; // index into `units`, or -1 for literal text
    int width = 0;
    QString literal;
};

std::vector<Token> tokens(const QString& format)
{
    std::vector<Token> result;
    for (qsizetype i = 0; i < format.size();) {
        const int unit = static_cast<int>(units.indexOf(format[i].toLower()));
        if (unit < 0) {
            result.push_back({-1, 0, QString(format[i++])});
            continue;
        }
        const QChar letter = format[i];
        Token token{unit, 0, {}};
        for (; i < format.size() && format[i] == letter; ++i)
            ++token.width;
        result.push_back(token);
    }
    return result;
}

int smallestUnit(const std::vector<Token>& parts)
{
    int smallest = -1;
    for (const Token& part : parts)
        smallest = std::max(smallest, part.unit);
    return smallest;
}

/// Adds the parts below the smallest named until a step can be told from the next.
void refine(std::vector<Token>& parts, double stepSeconds)
{
    for (int unit = smallestUnit(parts); unit < 3 && stepSeconds < unitSeconds[unit] * (1 - 1e-9);) {
        parts.push_back({-1, 0, unit == 0 ? QStringLiteral(" ") : QStringLiteral(":")});
        ++unit;
        parts.push_back({unit, unit == 1 ? 1 : 2, {}});
    }
}

int fractionDigits(double stepSeconds)
{
    if (stepSeconds >= 1 - 1e-9)
        return 0;
    return std::clamp(static_cast<int>(std::ceil(-std::log10(stepSeconds) - 1e-9)), 1, 6);
}

QString padded(qint64 value, int width)
{
    return QString::number(value).rightJustified(width, u'0');
}

/// What a unit shows of a time: the whole of it for the largest unit named, what is left over for the others.
qint64 share(qint64 seconds, int unit, int largest)
{
    const auto length = static_cast<qint64>(unitSeconds[unit]);
    if (unit == largest)
        return seconds / length;
    return seconds % static_cast<qint64>(unitSeconds[unit - 1]) / length;
}

QString timeLabel(double value, const QString& format, double step)
{
    const double stepSeconds = step * secondsPerDay;
    std::vector<Token> parts = tokens(format);
    refine(parts, stepSeconds);
    int largest = 3;
    for (const Token& part : parts)
        largest = part.unit < 0 ? largest : std::min(largest, part.unit);

    const qint64 microseconds = std::llround(std::abs(value) * secondsPerDay * microsecondsPerSecond);
    const auto seconds = static_cast<qint64>(microseconds / 1'000'000);
    const int digits = smallestUnit(parts) == 3 ? fractionDigits(stepSeconds) : 0;
    QString label = value < 0 && microseconds > 0 ? QStringLiteral("-") : QString();
    for (const Token& part : parts) {
        label += part.unit < 0 ? part.literal : padded(share(seconds, part.unit, largest), part.width);
        if (part.unit == 3 && digits > 0)
            label += u'.' + padded(microseconds % 1'000'000, 6).left(digits);
    }
    return label;
}

QString numberLabel(double value, double step)
{
    if (std::abs(value) < step * 1e-6)
        return QStringLiteral("0"); // what is left of a subtraction
    const int magnitude = static_cast<int>(std::floor(std::log10(step) + 1e-9));
    const int largest = static_cast<int>(std::floor(std::log10(std::abs(value)) + 1e-9));
    if (magnitude < -6 || largest > 6)
        return QString::number(value, 'g', std::clamp(largest - magnitude + 2, 1, 15));
    QString label = QString::number(value, 'f', std::clamp(2 - magnitude, 0, 8));
    if (label.contains(u'.')) {
        while (label.endsWith(u'0'))
            label.chop(1);
        if (label.endsWith(u'.'))
            label.chop(1);
    }
    return label;
}

} // namespace

bool isTimeFormat(const QString& format)
{
    return std::any_of(format.begin(), format.end(), [](QChar c) { return units.contains(c.toLower()); });
}

double axisTime(const QString& text)
{
    const QStringList parts = text.trimmed().split(u':');
    if (parts.size() < 2 || parts.size() > 3)
        refuse();
    const double hours = wholePart(parts[0]);
    const double minutes = below60(wholePart(parts[1]));
    const double seconds = parts.size() == 3 ? below60(secondsPart(parts[2])) : 0;
    return (hours * 3600 + minutes * 60 + seconds) / secondsPerDay;
}

QString axisLabel(double value, const QString& format, double step)
{
    if (!std::isfinite(value) || !(step > 0))
        return {};
    if (isTimeFormat(format) && std::abs(value) < longestTime)
        return timeLabel(value, format, step);
    return numberLabel(value, step);
}

} // namespace orb
