// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_calendar.h"

#include <QDate>

#include <cmath>

namespace orb {

namespace {

constexpr long long secondsOfDay = 24 * 60 * 60;

const QDate& firstDay()
{
    static const QDate day(InstrumentCalendar::firstYear, 1, 1);
    return day;
}

} // namespace

long long InstrumentCalendar::secondsSinceFirstYear(double seconds) const
{
    return offset_ + std::llround(std::floor(seconds));
}

InstrumentCalendar::Date InstrumentCalendar::date(double seconds) const
{
    const QDate day = firstDay().addDays(secondsSinceFirstYear(seconds) / secondsOfDay);
    return {day.year(), day.month(), day.day()};
}

InstrumentCalendar::Time InstrumentCalendar::time(double seconds) const
{
    const auto rest = static_cast<int>(secondsSinceFirstYear(seconds) % secondsOfDay);
    return {rest / 3600, rest / 60 % 60, rest % 60};
}

bool InstrumentCalendar::setDate(const Date& date, double seconds)
{
    const QDate day(date.year, date.month, date.day);
    if (!day.isValid())
        return false;
    const long long timeOfDay = secondsSinceFirstYear(seconds) % secondsOfDay;
    const long long wanted = firstDay().daysTo(day) * secondsOfDay + timeOfDay;
    offset_ += wanted - secondsSinceFirstYear(seconds);
    return true;
}

void InstrumentCalendar::setTime(const Time& time, double seconds)
{
    const long long timeOfDay = secondsSinceFirstYear(seconds) % secondsOfDay;
    offset_ += time.hour * 3600 + time.minute * 60 + time.second - timeOfDay;
}

} // namespace orb
