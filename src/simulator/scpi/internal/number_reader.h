// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace orb {

/// A number and the unit after it, as received.
struct DecimalNumber {
    double value = 0;
    std::string_view suffix;
};

/// Reads a sign, digits, a point, an exponent and a unit. White space may stand before and after the E of the exponent
/// and before the unit. Throws `CommandFailure` for anything else, and for a number that is too long or too large.
DecimalNumber readDecimal(std::string_view text);

/// Reads #H1F, #Q17 or #B101. Throws `CommandFailure`.
double readNonDecimal(std::string_view text);

} // namespace orb
