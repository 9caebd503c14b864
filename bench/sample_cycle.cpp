// SPDX-License-Identifier: GPL-3.0-or-later
// One sample cycle without its fixed waits, with 1,000,000 rows in the live table against 1,000.
#include "bench.h"
#include "data_log_page.h"
#include "form.h"
#include "virtual_clock.h"

#include <QApplication>

using namespace orb;

namespace {

/// The data log page over a table of so many rows, in the midst of a recording.
class Recording {
public:
    explicit Recording(int rows) : application_(bench::applicationWith(rows))
    {
        clock_.allow(1LL << 60);
        page_.setParent(&form_);
        page_.setVisible(true);
        form_.resize(720, 600);
        dbMain_ = wsMain_.openDatabase(application_->filePath(QStringLiteral("orb.mdb")));
        run_.enter([this] { bind(); });
        page_.lLogRecNo = rows;
        page_.iLogChannels = 8;
        form_.show();
    }

    double secondsOfACycle()
    {
        QElapsedTimer timer;
        timer.start();
        run_.enter([this] { page_.FetchLogSample(); });
        QCoreApplication::processEvents();
        return static_cast<double>(timer.nsecsElapsed()) / 1e9;
    }

private:
    void bind()
    {
        page_.DataLog.setDatabaseName(application_->filePath(QStringLiteral("orb.mdb")));
        page_.DataLog.refresh();
    }

    std::unique_ptr<QTemporaryDir> application_;
    bench::FatalEnding ending_;
    Run run_{ending_};
    VirtualClock clock_{run_};
    bench::NoDialogs dialogs_;
    Paths paths_{application_->path()};
    bench::Instrument instrument_;
    Form form_{run_};
    Workspace wsMain_{[this] { return clock_.now(); }};
    std::unique_ptr<Database> dbMain_;
    DataLogPage page_{clock_, dialogs_, paths_, instrument_, wsMain_, dbMain_};
};

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    Recording few(1000), many(1'000'000);
    std::vector<double> ofFew, ofMany;
    for (int i = 0; i < 600; ++i) {
        ofFew.push_back(few.secondsOfACycle());
        ofMany.push_back(many.secondsOfACycle());
    }
    return bench::report("sample cycle, 1,000,000 rows against 1,000", bench::median(ofMany) / bench::median(ofFew),
                         1.3);
}
