// SPDX-License-Identifier: GPL-3.0-or-later
// The export of 1,000,000 rows of 8 channels against the shell of SQLite writing the same columns.
#include "csv_export.h"
#include "bench.h"
#include "text_file.h"
#include "workspace.h"

#include <QCoreApplication>
#include <QProcess>

using namespace orb;

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const auto folder = bench::applicationWith(1'000'000);
    const QString database = folder->filePath(QStringLiteral("orb.mdb"));
    Workspace workspace([] { return QDateTime::currentDateTime(); });
    const auto dbMain = workspace.openDatabase(database);

    const double ours = bench::seconds([&] {
        OutputFile file(folder->filePath(QStringLiteral("ours.csv")));
        file.writeLine(csvHeader(8));
        const auto rows = dbMain.openRecordset(csvSelect(8));
        writeCsvRows(*rows, 8, file);
        file.close();
    });
    const double shell = bench::seconds([&] {
        QProcess process;
        process.setStandardOutputFile(folder->filePath(QStringLiteral("shell.csv")));
        process.start(QStringLiteral("sqlite3"), {QStringLiteral("-csv"), database, csvSelect(8)});
        process.waitForFinished(-1);
    });
    return bench::report("CSV export, 1,000,000 rows, against sqlite3 -csv", ours / shell, 0.5);
}
