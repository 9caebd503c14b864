// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "bench.h"
#include "data_log_page.h"
#include "form.h"
#include "virtual_clock.h"

namespace orb::bench {

/// The data log page on a form that is shown, over a live table of so many rows of eight channels.
class LogPage {
public:
    explicit LogPage(int rows);

    /// Runs `work` as an event handler, and the event queue after it.
    void enter(const std::function<void()>& work);

    QString databasePath() const { return application_->filePath(QStringLiteral("orb.mdb")); }

private:
    std::unique_ptr<QTemporaryDir> application_;
    FatalExit processExit_;
    Run run_{processExit_};
    VirtualClock clock_{run_};
    NoDialogs dialogs_;
    Paths paths_{application_->path()};
    Instrument instrument_;
    Form form_{run_};
    Workspace wsMain_{[this] { return clock_.now(); }};
    Database dbMain_;

public:
    DataLogPage page{clock_, dialogs_, paths_, instrument_, wsMain_, dbMain_};
};

} // namespace orb::bench
