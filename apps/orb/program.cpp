// SPDX-License-Identifier: GPL-3.0-or-later
#include "program.h"

#include "program_instance.h"
#include "real_clock.h"
#include "real_dialogs.h"
#include "unsaved_rows.h"

#include <QApplication>

#include <cstdio>
#include <cstdlib>
#include <optional>
#include <utility>

namespace orb {

namespace {

constexpr const char* activationToken = "XDG_ACTIVATION_TOKEN";

/// Says that the program is running, after its window was asked for.
void showRunning(const ProgramInstance& instance, RealDialogs& dialogs)
{
    constexpr int noticeMs = 5000;
    const bool shown = instance.requestShow(qgetenv(activationToken));
    const QString text = applicationTitle + QStringLiteral(" is running already.\n") +
                         (shown ? QStringLiteral("Its window is in front now.")
                                : QStringLiteral("Its window can't be reached: it may be another user's."));
    std::fprintf(stderr, "%s\n", qPrintable(text));
    dialogs.notice(text, noticeMs);
}

/// `token` lets the window take the focus where the desktop asks for a reason.
void bringToFront(FormORB& form, const QByteArray& token)
{
    if (!form.isVisible())
        return;
    if (!token.isEmpty())
        qputenv(activationToken, token);
    form.setWindowState(form.windowState() & ~Qt::WindowMinimized);
    form.raise();
    form.activateWindow();
}

} // namespace

Program::Program(Clock& clock, Dialogs& dialogs, const Paths& paths, SystemTools& systemTools,
                 std::vector<LinkKind> kinds, const QString& settingsFile)
    : CORB(clock, std::move(kinds), settingsFile), form(clock, dialogs, paths, CORB, systemTools)
{
    form.setWindowIcon(QIcon(realPath(paths.inApplication(QStringLiteral("\\ICON\\orb.ico")))));
    form.setRowEnd(CORB.allOffBar);
}

int runProgram(int argc, char** argv, const std::function<void(FormORB&)>& adjust)
{
    const QApplication application(argc, argv);
    // By which a desktop finds the entry of this program in its menu, and with it the icon.
    QGuiApplication::setDesktopFileName(QStringLiteral("example.zn.") + QCoreApplication::applicationName());
    RealDialogs dialogs(applicationTitle);
    RealProcessExit processExit(dialogs);
    Run run(processExit);
    const Paths paths = Paths::forUser(QCoreApplication::applicationDirPath());
    run.enter([&] { paths.createOwnDirectory(); });
    const QString database = paths.inApplication(QStringLiteral("\\orb.mdb"));
    ProgramInstance instance(database);
    if (!instance.isFirst()) {
        showRunning(instance, dialogs);
        return EXIT_SUCCESS;
    }
    RealSystemTools systemTools;
    RealClock clock(run);
    std::optional<Program> program;
    instance.onShowRequest = [&program](const QByteArray& token) {
        if (program)
            bringToFront(program->form, token);
    };
    run.enter([&] { // so that a failure of the construction is reported too
        program.emplace(clock, dialogs, paths, systemTools, standardLinkKinds(clock), LinkSettings::userFile());
        // Before the table is emptied.
        program->CORB.connectPage.showNotice(keepUnsavedRows(program->form.wsMain, database));
        program->form.FormLoad();
        if (adjust)
            adjust(program->form);
        program->form.show();
    });
    return QApplication::exec();
}

} // namespace orb
