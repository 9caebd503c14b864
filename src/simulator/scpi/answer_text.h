// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace orb {

/// A number with a fixed count of decimals and a point, whatever the locale is. Never shows a negative zero.
std::string decimalText(double value, int decimals);

/// A reading or set value in V, A, W or ohm as every answer gives it: four decimals.
inline std::string valueText(double value)
{
    return decimalText(value, 4);
}

/// `data` as a definite-length block.
std::string blockText(std::string_view data);

} // namespace orb
