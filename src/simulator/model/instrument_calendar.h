// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace orb {

/// The date and the time of day of the instrument. It starts at midnight of 1 January 2000 and runs with the time since
/// switching on (`seconds`), not with the system's clock.
class InstrumentCalendar {
public:
    static constexpr int firstYear = 2000;
    static constexpr int lastYear = 2099;

    struct Date {
        int year = firstYear;
        int month = 1;
        int day = 1;
    };
    struct Time {
        int hour = 0;
        int minute = 0;
        int second = 0;
    };

    Date date(double seconds) const;
    Time time(double seconds) const;
    /// Returns false and does nothing for a day that does not exist.
    bool setDate(const Date& date, double seconds);
    void setTime(const Time& time, double seconds);

private:
    long long secondsSinceFirstYear(double seconds) const;

    long long offset_ = 0; // seconds
};

} // namespace orb
