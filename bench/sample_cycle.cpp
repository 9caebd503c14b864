// SPDX-License-Identifier: GPL-3.0-or-later
// One sample cycle without its fixed waits, with 1,000,000 rows in the live table, against one durable insert in bare
// SQLite and one row appended to a bare QTableView of as many rows.
#include "log_page.h"

#include <QAbstractTableModel>
#include <QApplication>
#include <QHeaderView>
#include <QTableView>

#include <sqlite3.h>

using namespace orb;

namespace {

constexpr int rows = 1'000'000;
constexpr int columns = 22;

class BareModel final : public QAbstractTableModel {
public:
    int rowCount(const QModelIndex& = {}) const override { return count_; }
    int columnCount(const QModelIndex& = {}) const override { return columns; }
    QVariant data(const QModelIndex&, int role) const override
    {
        return role == Qt::DisplayRole ? QVariant(QStringLiteral("12.1000")) : QVariant();
    }
    void append()
    {
        beginInsertRows({}, count_, count_);
        ++count_;
        endInsertRows();
    }

private:
    int count_ = rows;
};

/// What a program does that has SQLite and Qt alone.
class BareProgram {
public:
    explicit BareProgram(const QString& path)
    {
        sqlite3_open(path.toUtf8().constData(), &database_);
        sqlite3_exec(database_, "pragma synchronous=full", nullptr, nullptr, nullptr);
        view_.setModel(&model_);
        view_.verticalHeader()->hide();
        view_.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
        view_.resize(700, 200);
        view_.show();
    }
    ~BareProgram() { sqlite3_close(database_); }
    BareProgram(const BareProgram&) = delete;
    BareProgram& operator=(const BareProgram&) = delete;

    void cycle()
    {
        const char* insert = "insert into DataMeasure (SeqNo,RecTime,PVal1,SVal1,PVal2,SVal2,PVal3,SVal3,PVal4,SVal4,"
                             "PVal5,SVal5,PVal6,SVal6,PVal7,SVal7,PVal8,SVal8) values(0,'2024/01/31 10:15:09','1.1000',"
                             "'12.1000','2.1000','12.2000','3.1000','12.3000','4.1000','12.4000','5.1000','12.5000',"
                             "'6.1000','12.6000','7.1000','12.7000','8.1000','12.8000')";
        if (sqlite3_exec(database_, insert, nullptr, nullptr, nullptr) != SQLITE_OK)
            qFatal("%s", sqlite3_errmsg(database_));
        model_.append();
        view_.setCurrentIndex(model_.index(model_.rowCount() - 1, 0));
        QCoreApplication::processEvents();
    }

private:
    sqlite3* database_ = nullptr;
    BareModel model_;
    QTableView view_;
};

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    bench::LogPage log(rows);
    const auto folder = bench::applicationWith(rows);
    BareProgram bareProgram(folder->filePath(QStringLiteral("orb.mdb")));
    std::vector<double> ours, bare;
    for (int i = 0; i < 600; ++i) {
        ours.push_back(bench::seconds([&] { log.enter([&] { log.page.FetchLogSample(); }); }, 1));
        bare.push_back(bench::seconds([&] { bareProgram.cycle(); }, 1));
    }
    return bench::report("sample cycle, 1,000,000 rows, against a bare insert and a bare table view",
                         bench::median(ours) / bench::median(bare), 1.3);
}
