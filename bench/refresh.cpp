// SPDX-License-Identifier: GPL-3.0-or-later
// The refresh of a log of 1,000,000 rows and 6 channels against a bare read of its twelve columns into arrays.
#include "log_page.h"

#include <QApplication>

#include <sqlite3.h>

using namespace orb;

namespace {

constexpr int rows = 1'000'000;
constexpr int channels = 6;

void bareRead(const QString& path)
{
    QByteArray columns;
    for (int n = 1; n <= channels; ++n)
        columns += QByteArrayLiteral(",PVal") + QByteArray::number(n) + ",SVal" + QByteArray::number(n);
    sqlite3* database = nullptr;
    sqlite3_stmt* select = nullptr;
    sqlite3_open(path.toUtf8().constData(), &database);
    sqlite3_prepare_v2(database, QByteArray("select " + columns.mid(1) + " from DataMeasure").constData(), -1, &select,
                       nullptr);
    std::vector<std::vector<double>> series(static_cast<std::size_t>(2 * channels), std::vector<double>(rows));
    for (std::size_t r = 0; r < rows && sqlite3_step(select) == SQLITE_ROW; ++r)
        for (std::size_t column = 0; column < series.size(); ++column)
            series[column][r] = sqlite3_column_double(select, static_cast<int>(column));
    sqlite3_finalize(select);
    sqlite3_close(database);
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    bench::LogPage log(rows);
    const double bare = bench::seconds([&] { bareRead(log.databasePath()); });
    const double ours = bench::seconds([&] {
        log.page.iLogChannels = channels;
        log.enter([&] { log.page.logRefreshClick(); });
    });
    return bench::report("refresh, 1,000,000 rows, 6 channels, against a bare read", ours / bare, 1.2);
}
