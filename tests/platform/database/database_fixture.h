// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "directories.h"
#include "failure.h"
#include "workspace.h"

#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <sqlite3.h>

namespace orb {

/// Another program that has the database open, by SQLite alone.
class OtherProgram {
public:
    explicit OtherProgram(const QString& path) { EXPECT_EQ(sqlite3_open(path.toUtf8(), &handle_), SQLITE_OK); }
    ~OtherProgram() { sqlite3_close(handle_); }
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;

    void run(const QString& statements)
    {
        char* message = nullptr;
        EXPECT_EQ(sqlite3_exec(handle_, statements.toUtf8(), nullptr, nullptr, &message), SQLITE_OK) << message;
        sqlite3_free(message);
    }

private:
    sqlite3* handle_ = nullptr;
};

/// The number and the description of the failure that `action` throws, "none" where it throws none.
template <typename Action> std::string failureIn(Action action)
{
    try {
        action();
    } catch (const RuntimeFailure& failure) {
        return failure.what();
    }
    return "none";
}

/// A folder with `orb.mdb` in it, fresh from its schema, and a workspace whose time stands still.
class DatabaseTest : public testing::Test {
protected:
    DatabaseTest()
    {
        QFile schema(sourceDirectory() + QStringLiteral("/resources/orb.sql"));
        EXPECT_TRUE(schema.open(QIODevice::ReadOnly));
        OtherProgram(path).run(QString::fromUtf8(schema.readAll()));
        database = workspace.openDatabase(path);
    }

    /// All the rows of a query, the cells joined by "|", null shown as "-", a line a row.
    std::string rows(const QString& query)
    {
        QString text;
        const auto recordset = database.openRecordset(query);
        for (; !recordset->isEof(); recordset->moveNext()) {
            QStringList cells;
            for (int i = 0; i < recordset->fieldCount(); ++i)
                cells << (recordset->field(i).isNull() ? QStringLiteral("-") : recordset->field(i).asText());
            text += cells.join(QLatin1Char('|')) + QLatin1Char('\n');
        }
        return text.toStdString();
    }

    /// Fills `DataMeasure` with the samples `first` to `first + count - 1`.
    void addSamples(int count, int first = 0)
    {
        database.execute(QStringLiteral("insert into DataMeasure (SeqNo,RecTime,PVal1,SVal1) "
                                        "with recursive n(i) as (select %1 union all select i+1 from n where i<%2) "
                                        "select i,'2024/01/31 10:15:09',i||'.50','12.0' from n")
                             .arg(first)
                             .arg(first + count - 1));
    }

    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("orb.mdb"));
    Workspace workspace{[] { return QDateTime({2024, 1, 31}, {10, 15, 9}); }};
    Database database;
};

} // namespace orb
