// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace orb::ascii {

/// Letters, digits and white space of the command language; whatever the locale is, and for any byte.
constexpr bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
constexpr bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}
/// Blanks and control characters alike.
constexpr bool isSpace(char c)
{
    return c >= 0 && c <= ' ';
}
constexpr char upper(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

inline std::string upper(std::string_view text)
{
    std::string result(text);
    std::ranges::transform(result, result.begin(), [](char c) { return upper(c); });
    return result;
}

inline bool sameText(std::string_view a, std::string_view b)
{
    return std::ranges::equal(a, b, [](char x, char y) { return upper(x) == upper(y); });
}

/// Without white space at both ends.
constexpr std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && isSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

} // namespace orb::ascii
