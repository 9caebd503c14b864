// SPDX-License-Identifier: GPL-3.0-or-later
#include "sql_functions.h"

#include "like.h"
#include "values.h"

#include <sqlite3.h>
#include <SQLiteCpp/Database.h>

namespace orb {

namespace {

/// A value as the dialect shows it; SQLite alone would give 15.0 as "15.0".
QString textOf(sqlite3_value* value)
{
    if (sqlite3_value_type(value) == SQLITE_FLOAT)
        return text(sqlite3_value_double(value));
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return QString::fromUtf8(bytes, sqlite3_value_bytes(value));
}

/// The pattern, parsed once for all rows of a statement as long as it is a literal there.
const LikePattern* patternOf(sqlite3_context* context, sqlite3_value* value)
{
    if (const void* known = sqlite3_get_auxdata(context, 0))
        return static_cast<const LikePattern*>(known);
    auto parsed = LikePattern::parse(textOf(value));
    if (!parsed) {
        sqlite3_result_error(context, "Invalid pattern string", -1);
        return nullptr;
    }
    auto* kept = new LikePattern(std::move(*parsed));
    sqlite3_set_auxdata(context, 0, kept, [](void* pattern) { delete static_cast<LikePattern*>(pattern); });
    return static_cast<const LikePattern*>(sqlite3_get_auxdata(context, 0));
}

/// `text like pattern` comes as like(pattern, text). Without a result the result is Null.
void like(sqlite3_context* context, int, sqlite3_value** arguments)
{
    if (sqlite3_value_type(arguments[0]) == SQLITE_NULL || sqlite3_value_type(arguments[1]) == SQLITE_NULL)
        return;
    if (const LikePattern* pattern = patternOf(context, arguments[0]))
        sqlite3_result_int(context, pattern->matches(textOf(arguments[1])) ? 1 : 0);
}

void now(sqlite3_context* context, int, sqlite3_value**)
{
    const auto& source = *static_cast<std::function<QDateTime()>*>(sqlite3_user_data(context));
    const QByteArray time = source().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")).toUtf8();
    sqlite3_result_text(context, time.constData(), static_cast<int>(time.size()), SQLITE_TRANSIENT);
}

} // namespace

void addSqlFunctions(SQLite::Database& database, std::function<QDateTime()>* source)
{
    database.createFunction("like", 2, true, nullptr, like);
    database.createFunction("now", 0, false, source, now);
}

} // namespace orb
