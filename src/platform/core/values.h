// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <cstdint>

namespace orb {

/// The numeric value of a text: the number that its leading characters form, 0 if there is none. Blanks before it do
/// not count, the decimal separator is the point, an exponent is read. "12.5S" gives 12.5, "Off" and "" give 0. Throws
/// `RuntimeFailure` 6 where a double can't hold the number.
double numericValue(const QString& text);

/// True when the whole text is one number.
bool isNumeric(const QString& text);

/// The whole text as a number. Throws `RuntimeFailure` 13 where it is none, 6 where a double can't hold it.
double toDouble(const QString& text);

/// Rounded to the nearest whole number, a tie going to the even neighbour. Throws `RuntimeFailure` 6 where the result
/// is outside of the type's range.
std::uint8_t toByte(double value);
std::int16_t toInteger(double value);
std::int32_t toLong(double value);

/// The ordinary decimal text of a number: at most 15 significant digits of a double, 7 of a single, no trailing
/// zeros, the point as separator, "1E+20" beyond that many places. 0.5 gives "0.5" and 15.0 gives "15".
QString text(double value);
QString text(float value);
QString text(std::int64_t value);
inline QString text(int value)
{
    return text(static_cast<std::int64_t>(value));
}

} // namespace orb
