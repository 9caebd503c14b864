// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace orb {

/// What a statement does to the rows of its table, as far as its text tells.
enum class RowEffect {
    Unknown,   ///< anything, or nothing at all
    Keeps,     ///< each changed row stays where it is
    Adds,      ///< each changed row is a new one
    Removes,   ///< each changed row is gone
    RemovesAll ///< no row is left
};

/// A statement in SQLite's own words.
struct SqlStatement {
    std::string sql;
    RowEffect effect = RowEffect::Unknown;
    std::string table; ///< in lower case; empty where the effect is unknown
};

/// Puts one statement of the pages' dialect into SQLite's words:
/// - "delete * from" loses its asterisk;
/// - a text in double quotes is a text, never a name;
/// - a bare word index is a name, except behind create, create unique and drop;
/// - a number, signed or not, that stands alone in a VALUES list of an insert becomes a text, so that the column
///   decides: a column of texts keeps its digits as they were written, a column of numbers takes the number.
/// All else goes through as it stands, so that what is wrong with it is said in SQLite's words. Throws `RuntimeFailure`
/// 3075 where there is no statement, and where there is text behind the first one.
SqlStatement translateSql(std::string_view statement);

/// `name` as a name in SQLite's words, whatever it holds.
std::string quotedName(std::string_view name);

} // namespace orb
