// SPDX-License-Identifier: GPL-3.0-or-later
#include "page_test.h"
#include "directories.h"

#include <QDir>

#include <sqlite3.h>

namespace orb {

namespace {

class Connection {
public:
    explicit Connection(const QString& path) { EXPECT_EQ(sqlite3_open(path.toUtf8(), &handle_), SQLITE_OK); }
    ~Connection() { sqlite3_close(handle_); }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    void run(const QString& statements)
    {
        char* message = nullptr;
        EXPECT_EQ(sqlite3_exec(handle_, statements.toUtf8(), nullptr, nullptr, &message), SQLITE_OK) << message;
        sqlite3_free(message);
    }

    QString rows(const QString& select)
    {
        QString text;
        const auto addRow = [](void* out, int columns, char** values, char**) {
            QStringList cells;
            for (int i = 0; i < columns; ++i)
                cells << (values[i] ? QString::fromUtf8(values[i]) : QStringLiteral("-"));
            *static_cast<QString*>(out) += cells.join(QLatin1Char('|')) + QLatin1Char('\n');
            return 0;
        };
        EXPECT_EQ(sqlite3_exec(handle_, select.toUtf8(), addRow, &text, nullptr), SQLITE_OK) << select.toStdString();
        return text;
    }

private:
    sqlite3* handle_ = nullptr;
};

QString read(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QStringLiteral("no such file");
}

} // namespace

PageTest::PageTest()
{
    const QString resources = sourceDirectory() + QStringLiteral("/resources");
    QFile::link(resources + QStringLiteral("/ICON"), application.filePath(QStringLiteral("ICON")));
    for (const char* name : {"OrbEmpty.jpg", "ORBScrBtn.dat", "orbCommands.dat"})
        QFile::copy(resources + QLatin1Char('/') + QLatin1String(name), application.filePath(QLatin1String(name)));
    alterDatabase(read(resources + QStringLiteral("/orb.sql")));
    journal.abbreviate(application.path(), QStringLiteral("APP"));
    clock.onOverrun = [] { ADD_FAILURE() << "more virtual time passed than the test allows: a loop hangs"; };
}

PageTest::~PageTest() = default;

QString PageTest::table(const QString& select) const
{
    return Connection(databasePath()).rows(select);
}

void PageTest::alterDatabase(const QString& statements) const
{
    Connection(databasePath()).run(statements);
}

QString PageTest::contentOf(const QString& path)
{
    return read(path);
}

} // namespace orb
