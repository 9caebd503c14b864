// SPDX-License-Identifier: GPL-3.0-or-later
#include "program.h"

#include "device_control.h"
#include "form_orb.h"
#include "real_clock.h"
#include "real_dialogs.h"

#include <QApplication>

namespace orb {

int runProgram(int argc, char** argv, const std::function<void(FormORB&)>& adjust)
{
    const QApplication application(argc, argv);
    RealDialogs dialogs(applicationTitle);
    RealSystemTools systemTools;
    RealProcessExit processExit(dialogs);
    Run run(processExit);
    RealClock clock(run);
    const Paths paths(QCoreApplication::applicationDirPath());
    std::optional<DeviceControl> CORB;
    std::optional<FormORB> form;
    run.enter([&] { // so that a failure of the construction is reported too
        CORB.emplace(clock);
        form.emplace(clock, dialogs, paths, *CORB, systemTools);
        form->setRowEnd(CORB->allOffBar);
        form->FormLoad();
        if (adjust)
            adjust(*form);
        form->show();
    });
    return QApplication::exec();
}

} // namespace orb
