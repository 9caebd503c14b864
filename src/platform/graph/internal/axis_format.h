// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace orb {

/// Seconds in a day, the unit of a time axis.
constexpr double secondsPerDay = 86400;

/// True when the format names a part of a time: d, h, n or s.
bool isTimeFormat(const QString& format);

/// A time text in days: "h:n" or "h:n:s", each part with any number of digits, the seconds with or without a fraction.
/// "0:5:00" is five minutes, "1:00" one hour. Throws `RuntimeFailure` 13 for any other text, and for minutes or
/// seconds of 60 and more.
double axisTime(const QString& text);

/// The label of `value` on an axis whose labels are `step` apart.
///
/// In a format, d are days, h hours, n minutes and s seconds, the doubled letter with a leading zero, and anything else
/// stands for itself; a time is cut, not rounded, to the smallest part named. Hours run past 23 where the format has no
/// days. Labels closer than that part get the parts below it as well: "h:nn" becomes "h:nn:ss" for steps below a
/// minute, and "h:nn:ss.00" for steps of a hundredth. A format without time gives plain numbers with the places that
/// the step asks for.
QString axisLabel(double value, const QString& format, double step);

} // namespace orb
