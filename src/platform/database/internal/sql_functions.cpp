// SPDX-License-Identifier: GPL-3.0-or-later
#include "sql_functions.h"

#include <sqlite3.h>

namespace orb {

namespace {

/// The pattern as SQLite's GLOB has it, which differs in the digit and in the sign that negates a list.
QString globOf(const QString& pattern)
{
    QString glob;
    qsizetype list = -1; // where the list begins that is not closed yet
    for (qsizetype i = 0; i < pattern.size(); ++i) {
        const QChar c = pattern[i];
        if (list < 0 && c == QLatin1Char('#'))
            glob += QStringLiteral("[0-9]");
        else
            glob += list >= 0 && i == list + 1 && c == QLatin1Char('!') ? QLatin1Char('^') : c;
        if (list < 0 && c == QLatin1Char('['))
            list = i;
        else if (c == QLatin1Char(']'))
            list = -1;
    }
    return glob;
}

QString textOf(sqlite3_value* value)
{
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return QString::fromUtf8(bytes, sqlite3_value_bytes(value));
}

/// `text like pattern` comes as like(pattern, text). Without a result the result is Null.
void like(sqlite3_context* context, int, sqlite3_value** arguments)
{
    if (sqlite3_value_type(arguments[0]) != SQLITE_NULL && sqlite3_value_type(arguments[1]) != SQLITE_NULL)
        sqlite3_result_int(context, isLike(textOf(arguments[1]), textOf(arguments[0])) ? 1 : 0);
}

void now(sqlite3_context* context, int, sqlite3_value**)
{
    const auto& source = *static_cast<std::function<QDateTime()>*>(sqlite3_user_data(context));
    const QByteArray time = source().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")).toUtf8();
    sqlite3_result_text(context, time.constData(), static_cast<int>(time.size()), SQLITE_TRANSIENT);
}

} // namespace

bool isLike(const QString& text, const QString& pattern)
{
    const QByteArray glob = globOf(pattern.toCaseFolded()).toUtf8();
    return sqlite3_strglob(glob.constData(), text.toCaseFolded().toUtf8().constData()) == 0;
}

void addSqlFunctions(sqlite3* database, std::function<QDateTime()>* source)
{
    sqlite3_create_function(database, "like", 2, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr, like, nullptr, nullptr);
    sqlite3_create_function(database, "now", 0, SQLITE_UTF8, source, now, nullptr, nullptr);
}

} // namespace orb
