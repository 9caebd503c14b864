// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>
#include <vector>

namespace orb {

enum class SqlTokenKind {
    Space,
    Comment,    ///< "-- ..." up to the line's end, or "/* ... */", also one that is never closed
    Word,       ///< a keyword or a bare name
    Number,     ///< without a sign
    Text,       ///< in single quotes
    QuotedText, ///< in double quotes
    Name,       ///< in brackets or back quotes
    Semicolon,
    Symbol, ///< any other single character
    Broken, ///< a text that is never closed, a number with letters after it, a NUL
};

/// `text` is the token as it stands in the statement, quotes included.
struct SqlToken {
    SqlTokenKind kind;
    std::string_view text;
};

/// Splits a statement in UTF-8 into tokens by SQLite's rules. All the tokens joined give the statement again. `statement`
/// must outlive them.
std::vector<SqlToken> tokenizeSql(std::string_view statement);

/// Compares two words without regard to the case of their ASCII letters.
bool sameWord(std::string_view a, std::string_view b);

} // namespace orb
