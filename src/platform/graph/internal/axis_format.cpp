// SPDX-License-Identifier: GPL-3.0-or-later
#include "axis_format.h"

#include "failure.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <vector>

namespace orb {

namespace {

constexpr qint64 microsecondsPerSecond = 1'000'000;
/// Beyond this many days a time is no time any more, and the label is a plain number.
constexpr double longestTime = 1e7;

/// A part of a time.
struct Unit {
    QChar letter;
    qint64 seconds;
    qint64 secondsOfNext;      ///< of the next longer unit
    QLatin1StringView shorter; ///< what a format adds to name the next shorter unit as well
};
constexpr std::array<Unit, 4> units{{
    {u'd', 86'400, std::numeric_limits<qint64>::max(), QLatin1StringView(" h")},
    {u'h', 3'600, 86'400, QLatin1StringView(":nn")},
    {u'n', 60, 3'600, QLatin1StringView(":ss")},
    {u's', 1, 60, QLatin1StringView()},
}};

const Unit* unitOf(QChar letter)
{
    const auto unit =
        std::find_if(units.begin(), units.end(), [&](const Unit& one) { return one.letter == letter.toLower(); });
    return unit == units.end() ? nullptr : &*unit;
}

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

/// The units that the format names, the longest first.
std::vector<const Unit*> unitsIn(const QString& format)
{
    std::vector<const Unit*> named;
    for (const Unit& unit : units)
        if (format.contains(unit.letter, Qt::CaseInsensitive))
            named.push_back(&unit);
    return named;
}

/// The format with shorter units added until two labels that are a step apart differ.
QString refined(QString timeFormat, double stepSeconds)
{
    for (const Unit& unit : units)
        if (&unit == unitsIn(timeFormat).back() && stepSeconds < static_cast<double>(unit.seconds) * (1 - 1e-9))
            timeFormat += unit.shorter;
    return timeFormat;
}

/// The decimals of the seconds that a step asks for, with their point.
QString fraction(qint64 microseconds, double stepSeconds)
{
    if (stepSeconds >= 1 - 1e-9)
        return {};
    const int digits = std::clamp(static_cast<int>(std::ceil(-std::log10(stepSeconds) - 1e-9)), 1, 6);
    return u'.' + QString::number(microseconds % microsecondsPerSecond).rightJustified(6, u'0').left(digits);
}

QString timeLabel(double value, const QString& format, double step)
{
    const double stepSeconds = step * secondsPerDay;
    const QString shown = refined(format, stepSeconds);
    const Unit* longest = unitsIn(shown).front();
    const qint64 microseconds = std::llround(std::abs(value) * secondsPerDay * microsecondsPerSecond);
    const qint64 seconds = microseconds / microsecondsPerSecond;
    QString label = value < 0 && microseconds > 0 ? QStringLiteral("-") : QString();
    for (auto letter = shown.begin(); letter != shown.end();) {
        const Unit* unit = unitOf(*letter);
        if (!unit) {
            label += *letter++;
            continue;
        }
        const auto end = std::find_if(letter, shown.end(), [&](QChar other) { return other != *letter; });
        const qint64 rest = unit == longest ? seconds : seconds % unit->secondsOfNext;
        label += QString::number(rest / unit->seconds).rightJustified(end - letter, u'0');
        if (unit->seconds == 1)
            label += fraction(microseconds, stepSeconds);
        letter = end;
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
    return !unitsIn(format).empty();
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
