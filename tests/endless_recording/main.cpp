// SPDX-License-Identifier: GPL-3.0-or-later
#include "fake_orb_ctrl.h"
#include "form_orb.h"
#include "real_clock.h"
#include "recorded_exit.h"
#include "scripted_dialogs.h"

#include <QApplication>

#include <cstdio>

/// Records into the application directory that its argument names, until it is killed. Before each sample it prints how
/// many rows the grid shows.
int main(int argc, char** argv)
{
    using namespace orb;

    const QApplication qtApplication(argc, argv);
    const Paths paths(qtApplication.arguments().value(1));
    RecordedExit processExit;
    Run run(processExit);
    RealClock clock(run);
    ScriptedDialogs dialogs;
    FakeORBCtrl instrument;
    RealSystemTools systemTools;
    FormORB form(clock, dialogs, paths, instrument, systemTools);
    instrument.connected = true;
    instrument.channelCount = 8;
    instrument.onCommand = [&](const QString& query) {
        if (query == QStringLiteral(":FETC:ALLC?")) {
            std::printf("shown %lld\n", static_cast<long long>(form.frmDatalog.DataLog.rowCount()));
            std::fflush(stdout);
        }
        return QStringLiteral("1.1,2.1,3.1,4.1,5.1,6.1,7.1,8.1,");
    };
    run.enter([&] { form.FormLoad(); });
    run.enter([&] { form.pageWaveClick(); });
    form.show();
    form.frmDatalog.logStart.click();
    return EXIT_FAILURE;
}
