// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace orb {

/// A number with the unit that stands behind it, as it came.
struct DecimalNumber {
    double value = 0;
    std::string_view suffix;
};

/// Reads a sign, digits, a point, an exponent and a unit. Throws `CommandFailure` where the text is something else or
/// out of all bounds.
DecimalNumber readDecimal(std::string_view text);

/// Reads #H1F, #Q17 or #B101. Throws `CommandFailure`.
double readNonDecimal(std::string_view text);

} // namespace orb
