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
    Broken, ///< what can't begin or end: a text that is never closed, a number with letters behind it, a NUL
};

/// A piece of a statement. `text` is the piece as it stands there, quotes included.
struct SqlToken {
    SqlTokenKind kind;
    std::string_view text;
};

/// Cuts a statement in UTF-8 into its pieces, by the same rules as SQLite does. All the pieces joined give the statement
/// again. `statement` must outlive the tokens.
std::vector<SqlToken> tokenizeSql(std::string_view statement);

/// True where two words are the same without regard to the case of their ASCII letters.
bool sameWord(std::string_view a, std::string_view b);

} // namespace orb
