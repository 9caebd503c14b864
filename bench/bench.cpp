// SPDX-License-Identifier: GPL-3.0-or-later
#include "bench.h"
#include "directories.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <cstdio>

#include <sqlite3.h>

namespace orb::bench {

namespace {

void execute(sqlite3* database, const QByteArray& sql)
{
    char* message = nullptr;
    if (sqlite3_exec(database, sql.constData(), nullptr, nullptr, &message) != SQLITE_OK)
        qFatal("%s", message);
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("no %s", qPrintable(path));
    return file.readAll();
}

/// Samples a second apart, each value a little apart from its neighbours, in the instrument's four decimals.
QByteArray insertSamples(int rows)
{
    QByteArray columns = "SeqNo,RecTime";
    QByteArray values = "i,strftime('%Y/%m/%d %H:%M:%S',1706696100+i,'unixepoch')";
    for (int channel = 1; channel <= 8; ++channel) {
        const QByteArray n = QByteArray::number(channel);
        columns += ",PVal" + n + ",SVal" + n;
        values += ",printf('%.4f'," + n + "+(i%97)/1000.0),printf('%.4f',12+" + n + "+(i%89)/1000.0)";
    }
    return "with recursive n(i) as (select 0 union all select i+1 from n where i+1<" + QByteArray::number(rows) +
           ") insert into DataMeasure(" + columns + ") select " + values + " from n";
}

} // namespace

int report(const char* name, double ratio, double budget, const char* unit)
{
    const bool ok = ratio <= budget;
    std::printf("%s | %.2f | budget %.2f %s | %s\n", name, ratio, budget, unit, ok ? "ok" : "over");
    std::fflush(stdout);
    return ok ? 0 : 1;
}

double seconds(const std::function<void()>& work, int runs)
{
    double least = 1e9;
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer timer;
        timer.start();
        work();
        least = std::min(least, static_cast<double>(timer.nsecsElapsed()) / 1e9);
    }
    return least;
}

double median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

QString workFolder()
{
    const QString memory = QStringLiteral("/dev/shm");
    return (QDir(memory).exists() ? memory : QDir::tempPath()) + QStringLiteral("/orb-bench-XXXXXX");
}

std::unique_ptr<QTemporaryDir> applicationWith(int rows)
{
    auto folder = std::make_unique<QTemporaryDir>(workFolder());
    QFile::link(sourceDirectory() + QStringLiteral("/resources/ICON"), folder->filePath(QStringLiteral("ICON")));
    for (const char* name : {"OrbEmpty.jpg", "orbCommands.dat", "ORBScrBtn.dat"})
        QFile::copy(sourceDirectory() + QStringLiteral("/resources/") + QLatin1String(name),
                    folder->filePath(QLatin1String(name)));
    sqlite3* database = nullptr;
    sqlite3_open(folder->filePath(QStringLiteral("orb.mdb")).toUtf8().constData(), &database);
    execute(database, contentOf(sourceDirectory() + QStringLiteral("/resources/orb.sql")));
    if (rows > 0)
        execute(database, insertSamples(rows));
    execute(database, "pragma wal_checkpoint(truncate)");
    sqlite3_close(database);
    return folder;
}

Answer NoDialogs::message(const QString& text, Icon, Buttons)
{
    qFatal("a box came up: %s", qPrintable(text));
}

} // namespace orb::bench
