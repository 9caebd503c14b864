// SPDX-License-Identifier: GPL-3.0-or-later
#include "database_file.h"

#include "sqlite_failure.h"

#include <sqlite3.h>
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Exception.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace orb {

namespace {

/// How long a statement waits for another program that holds the file, in milliseconds: the pages stand still
/// meanwhile.
constexpr int busyWait = 500;

[[noreturn]] void refuse(int number, const QString& path)
{
    throw RuntimeFailure(number,
                         RuntimeFailure(number).description() + QStringLiteral(": ") + QDir::toNativeSeparators(path));
}

/// Refuses what SQLite would make a database of, or take for one, before it gets hold of the file: an empty file is a
/// new database to it.
void recognize(const QString& path)
{
    const QFileInfo info(path);
    if (!info.exists())
        refuse(failure::DatabaseNotFound, path);
    if (!info.isFile())
        refuse(failure::DatabaseUnrecognized, path);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        refuse(failure::PermissionDenied, path);
    if (file.read(16) != QByteArray("SQLite format 3", 16))
        refuse(failure::DatabaseUnrecognized, path);
}

/// Reads the list of tables, which is when SQLite first looks at the file. A folder that takes no new file shows here
/// too: other programs and this one meet in a file beside the database.
void readFirst(SQLite::Database& database, const QString& path)
{
    if (database.tryExec("SELECT count(*) FROM sqlite_schema") == SQLITE_OK)
        return;
    const RuntimeFailure failure = lastSqliteFailure(database.getHandle());
    throw RuntimeFailure(failure.number(),
                         failure.description() + QStringLiteral(": ") + QDir::toNativeSeparators(path));
}

/// Every commit reaches the disk before it returns. The log beside the file is cut back to 16 MiB once its content has
/// moved into the file; freed pages are not overwritten, which would make emptying a long log as slow as writing it.
void configure(SQLite::Database& database)
{
    database.exec("PRAGMA journal_mode = WAL");
    database.exec("PRAGMA synchronous = FULL");
    database.exec("PRAGMA journal_size_limit = 16777216");
    database.exec("PRAGMA secure_delete = OFF");
}

} // namespace

std::unique_ptr<SQLite::Database> openDatabaseFile(const QString& path)
{
    recognize(path);
    try {
        auto database = std::make_unique<SQLite::Database>(path.toStdString(),
                                                           SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX, busyWait);
        if (sqlite3_db_readonly(database->getHandle(), "main") != 0)
            refuse(failure::DatabaseReadOnly, path);
        readFirst(*database, path);
        configure(*database);
        return database;
    } catch (const SQLite::Exception& refused) {
        throw sqliteFailure(refused.getExtendedErrorCode(), refused.what());
    }
}

} // namespace orb
