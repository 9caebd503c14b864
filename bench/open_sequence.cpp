// SPDX-License-Identifier: GPL-3.0-or-later
// Opening a sequence of 120 points, less the repaint of the grids that follows, against the same 125 inserts in bare
// SQLite, each as durable.
#include "bench.h"
#include "form.h"
#include "record_file.h"
#include "sequence_page.h"
#include "virtual_clock.h"

#include <QApplication>

#include <sqlite3.h>

using namespace orb;

namespace {

constexpr int rounds = 60;

SeqFileRecord sequence()
{
    SeqFileRecord record{};
    record.LoadModuleType = 7;
    record.LoadRange = 1;
    record.LoopEnd = SeqFileRecord::pointCount - 1;
    for (std::size_t i = 0; i < record.Points.size(); ++i) {
        record.Points[i].TimeBaseCode = 8;
        record.Points[i].CurrentRaw = static_cast<qint16>(i);
        record.Points[i].SlewUpRaw = 250;
        record.Points[i].SlewDownRaw = 250;
        record.DurationCount[i] = 20;
    }
    record.CheckSum = computedCheckSum(record);
    return record;
}

/// The page on a form that is shown.
class Page {
public:
    Page()
    {
        page_.setParent(&form_);
        page_.setVisible(true);
        form_.resize(page_.size());
        form_.show();
        dbMain_ = wsMain_.openDatabase(path("orb.mdb"));
        writeRecord(path("sequence.a"), sequence());
        reset();
    }

    void reset()
    {
        enter([this] { page_.ResetSequencePage(); });
    }
    void settle() { QCoreApplication::processEvents(); }
    void open()
    {
        run_.enter([this] {
            sPendingSeqFile_ = path("sequence.a");
            page_.seqOpenClick();
        });
        if (page_.datORB.rowCount() != SeqFileRecord::pointCount)
            qFatal("the sequence was not opened");
    }

private:
    QString path(const char* name) const { return application_->filePath(QLatin1String(name)); }
    void enter(const std::function<void()>& work)
    {
        run_.enter(work);
        QCoreApplication::processEvents();
    }

    std::unique_ptr<QTemporaryDir> application_ = bench::applicationWith(0);
    bench::FatalExit processExit_;
    Run run_{processExit_};
    VirtualClock clock_{run_};
    bench::NoDialogs dialogs_;
    Paths paths_{application_->path()};
    bench::Instrument instrument_;
    Form form_{run_};
    Workspace wsMain_{[this] { return clock_.now(); }};
    Database dbMain_;
    QString sPendingSeqFile_;
    std::vector<double> plottedValues_;
    SequencePage page_{clock_, dialogs_, paths_, instrument_, wsMain_, dbMain_, sPendingSeqFile_, plottedValues_};
};

class BareDatabase {
public:
    BareDatabase()
    {
        sqlite3_open(application_->filePath(QStringLiteral("orb.mdb")).toUtf8().constData(), &database_);
        execute("pragma synchronous=full");
    }
    ~BareDatabase() { sqlite3_close(database_); }
    BareDatabase(const BareDatabase&) = delete;
    BareDatabase& operator=(const BareDatabase&) = delete;

    void clear()
    {
        execute("delete from ORBSeqHead");
        execute("delete from ORBSeqData");
    }
    void insert()
    {
        for (int i = 0; i < 5; ++i)
            execute("insert into ORBSeqHead values('The start point of loop (A)',1,1)");
        for (int i = 1; i <= SeqFileRecord::pointCount; ++i)
            execute("insert into ORBSeqData values(" + QByteArray::number(i) + ",0.02,15.0,1.6,1.6)");
    }

private:
    void execute(const QByteArray& sql)
    {
        if (sqlite3_exec(database_, sql.constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
            qFatal("%s", sqlite3_errmsg(database_));
    }

    std::unique_ptr<QTemporaryDir> application_ = bench::applicationWith(0);
    sqlite3* database_ = nullptr;
};

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    Page page;
    BareDatabase bareDatabase;
    std::vector<double> ours, bare;
    for (int i = 0; i < rounds; ++i) {
        page.reset();
        ours.push_back(bench::seconds([&] { page.open(); }, 1));
        page.settle();
        bareDatabase.clear();
        bare.push_back(bench::seconds([&] { bareDatabase.insert(); }, 1));
    }
    return bench::report("opening a sequence of 120 points against 125 bare inserts",
                         bench::median(ours) / bench::median(bare), 1.5);
}
