// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fake_orb_ctrl.h"
#include "form.h"
#include "journal.h"
#include "paths.h"
#include "press.h"
#include "printing.h"
#include "recorded_exit.h"
#include "scripted_dialogs.h"
#include "virtual_clock.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace orb {

/// A virtual clock, scripted dialogs, a fake instrument control, and an application directory of the test's own with
/// the program's pictures and an `orb.mdb` fresh from its schema.
class PageTest : public testing::Test {
protected:
    PageTest();
    ~PageTest() override;

    /// The text of a table of `orb.mdb`, a line a row, the cells joined by "|", null shown as "-". It is read on a
    /// connection of its own, so that it shows what is durable.
    QString table(const QString& select) const;
    /// Runs statements on a connection of its own.
    void alterDatabase(const QString& statements) const;
    QString databasePath() const { return application.filePath(QStringLiteral("orb.mdb")); }
    /// The content of a file, or "no such file".
    static QString contentOf(const QString& path);

    QTemporaryDir application;
    /// What all the fakes below did, in one order; the application directory is written as APP.
    Journal journal;
    RecordedExit processExit{&journal};
    orb::Run run{processExit};
    VirtualClock clock{run, &journal};
    ScriptedDialogs dialogs{&journal};
    Paths paths{application.path()};
    FakeORBCtrl instrument{&journal};

    const Icon critical = Icon::Critical;
    const Icon information = Icon::Information;
    const Icon noIcon = Icon::None;
};

} // namespace orb
