// SPDX-License-Identifier: GPL-3.0-or-later
// One entry of the command runner's log, shown on the screen, after 100,000 entries against one after 1,000.
#include "bench.h"
#include "command_page.h"
#include "form.h"
#include "virtual_clock.h"

#include <QApplication>

#include <limits>

using namespace orb;

namespace {

/// The command page on a form that is shown, with so many entries in the log on view.
class Console {
public:
    explicit Console(int entries)
    {
        clock_.allow(std::numeric_limits<qint64>::max());
        page_.setParent(&form_);
        form_.resize(page_.size());
        form_.setVisible(true);
        page_.lstCmdPool.addItem(QStringLiteral(":FETC:ALLV?"));
        page_.cmdShowPagesClick();
        for (int i = 0; i < entries; ++i)
            run_.enter([this] { page_.cmdStartClick(); });
        addEntry();
    }

    /// A single step, with the repaint that it asks for.
    void addEntry()
    {
        run_.enter([this] { page_.cmdStartClick(); });
        page_.txtExecLog.moveCaretToEnd();
        QCoreApplication::processEvents();
    }

private:
    bench::FatalExit processExit_;
    Run run_{processExit_};
    VirtualClock clock_{run_};
    bench::NoDialogs dialogs_;
    std::unique_ptr<QTemporaryDir> application_ = bench::applicationWith(0);
    Paths paths_{application_->path()};
    bench::Instrument instrument_;
    OptionButton optDispDev_;
    Form form_{run_};
    CommandPage page_{clock_, dialogs_, paths_, instrument_, optDispDev_};
};

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    Console few(1'000), many(100'000);
    std::vector<double> ofFew, ofMany;
    for (int i = 0; i < 600; ++i) {
        ofFew.push_back(bench::seconds([&] { few.addEntry(); }, 1));
        ofMany.push_back(bench::seconds([&] { many.addEntry(); }, 1));
    }
    return bench::report("a log entry after 100,000 entries against one after 1,000",
                         bench::median(ofMany) / bench::median(ofFew), 1.2);
}
