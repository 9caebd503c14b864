// SPDX-License-Identifier: GPL-3.0-or-later
#include "database_file.h"

#include "sqlite_failure.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <memory>

#include <sqlite3.h>

namespace orb {

namespace {

/// How long a statement waits for another program that holds the file, in milliseconds: the pages stand still
/// meanwhile.
constexpr int busyWait = 500;

/// The limit of a statement and of a value, in bytes. A sample of eight channels takes a few hundred.
constexpr int lengthLimit = 1'000'000;

/// Every commit reaches the disk before it returns. The log beside the file is cut back to 16 MiB once its content has
/// moved into the file; freed pages are not overwritten, which would make emptying a long log as slow as writing it.
/// The first statement reads the list of tables: that is when SQLite finds a damaged file, or a folder that takes no
/// new file, which it needs for the log.
constexpr const char* openingStatements = "SELECT count(*) FROM sqlite_schema;"
                                          "PRAGMA journal_mode = WAL;"
                                          "PRAGMA synchronous = FULL;"
                                          "PRAGMA journal_size_limit = 16777216;"
                                          "PRAGMA secure_delete = OFF";

RuntimeFailure withPath(const RuntimeFailure& failure, const QString& path)
{
    return {failure.number(), failure.description() + QStringLiteral(": ") + QDir::toNativeSeparators(path)};
}

/// Refuses what SQLite would overwrite or take for a database: an empty file is a new database to it.
void requireDatabase(const QString& path)
{
    const auto refuse = [&path](int number) { throw withPath(RuntimeFailure(number), path); };
    const QFileInfo info(path);
    if (!info.exists())
        refuse(failure::DatabaseNotFound);
    if (!info.isFile())
        refuse(failure::DatabaseUnrecognized);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        refuse(failure::PermissionDenied);
    if (file.read(16) != QByteArray("SQLite format 3", 16))
        refuse(failure::DatabaseUnrecognized);
}

} // namespace

sqlite3* openDatabaseFile(const QString& path)
{
    requireDatabase(path);
    sqlite3* handle = nullptr;
    const int opened = sqlite3_open_v2(path.toUtf8(), &handle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    std::unique_ptr<sqlite3, decltype(&sqlite3_close)> closing(handle, sqlite3_close);
    if (opened != SQLITE_OK)
        throw withPath(lastSqliteFailure(handle), path);
    if (sqlite3_db_readonly(handle, "main") != 0)
        throw withPath(RuntimeFailure(failure::DatabaseReadOnly), path);
    sqlite3_busy_timeout(handle, busyWait);
    sqlite3_limit(handle, SQLITE_LIMIT_LENGTH, lengthLimit);
    sqlite3_limit(handle, SQLITE_LIMIT_SQL_LENGTH, lengthLimit);
    if (sqlite3_exec(handle, openingStatements, nullptr, nullptr, nullptr) != SQLITE_OK)
        throw withPath(lastSqliteFailure(handle), path);
    return closing.release();
}

} // namespace orb
