// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace orb {

/// Translates one statement of the pages' dialect into SQLite's:
/// - "delete * from" loses its asterisk;
/// - a text in double quotes is a text, never a name;
/// - a bare word index is a name, except after create, create unique and drop;
/// - a number, signed or not, that stands alone in a VALUES list of an insert becomes a text, so that the column
///   decides: a column of texts keeps its digits as they were written, a column of numbers takes the number.
/// All else is left as it stands, so that SQLite reports what is wrong with it. Throws `RuntimeFailure` 3075 where there
/// is no statement, and where there is text after the first one.
std::string translateSql(std::string_view statement);

/// `name` as a name in SQLite's dialect, whatever it holds.
std::string quotedName(std::string_view name);

} // namespace orb
