// SPDX-License-Identifier: GPL-3.0-or-later
// Opening a saved log of 1,000,000 rows, less the refresh at its end, against the same delete and insert in bare SQLite.
#include "log_page.h"

#include <QApplication>

#include <sqlite3.h>

using namespace orb;

namespace {

constexpr int rows = 1'000'000;
const QByteArray columns = "SeqNo, RecTime,PVal1,SVal1,PVal2,SVal2,PVal3,SVal3,PVal4,SVal4,PVal5,SVal5,PVal6,SVal6,"
                           "PVal7,SVal7,PVal8,SVal8,Reason3,Comment,TimeTick,DiffLastTime";

void execute(sqlite3* database, const QByteArray& sql)
{
    char* message = nullptr;
    if (sqlite3_exec(database, sql.constData(), nullptr, nullptr, &message) != SQLITE_OK)
        qFatal("%s", message);
}

void saveTheLog(sqlite3* database)
{
    execute(database, "insert into DataMeasureM(LogID,LogDate,CHNum,RecNum) values('20240131001','2024-01-31 10:15:00',"
                      "8,1000000)");
    execute(database, "insert into DataMeasureD select '20240131001'," + columns + " from DataMeasure");
}

void bareOpen(sqlite3* database)
{
    execute(database, "delete from DataMeasure");
    execute(database, "insert into DataMeasure select " + columns + " from DataMeasureD where logid='20240131001'");
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    bench::LogPage log(rows);
    sqlite3* database = nullptr;
    sqlite3_open(log.databasePath().toUtf8().constData(), &database);
    execute(database, "pragma synchronous=full");
    saveTheLog(database);

    const double bare = bench::seconds([&] { bareOpen(database); });
    const double refresh = bench::seconds([&] { log.enter([&] { log.page.logRefreshClick(); }); });
    const double ours = bench::seconds([&] {
        log.enter([&] { log.page.logOpenClick(); });
        log.page.FrameDataFileOperate.lstLogMain.setCurrentRow(0);
        log.enter([&] { log.page.cmdOKDataLogFileClick(); });
    });
    sqlite3_close(database);
    return bench::report("opening a saved log of 1,000,000 rows, less its refresh, against bare SQLite",
                         (ours - refresh) / bare, 1.0);
}
