// SPDX-License-Identifier: GPL-3.0-or-later
// From the start of the process to the first page, against an empty window of Qt Widgets. The program starts itself in
// the one and the other in turns.
#include "bench.h"
#include "device_control.h"
#include "form_orb.h"
#include "real_clock.h"

#include <QApplication>
#include <QProcess>

#include <cstdio>

using namespace orb;

namespace {

/// Ends the process when the window has been painted.
class FirstPaint final : public QObject {
public:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
        return false;
    }
};

int showEmpty()
{
    FirstPaint paint;
    QWidget window;
    window.resize(635, 540);
    window.installEventFilter(&paint);
    window.show();
    return QApplication::exec();
}

int showProgram(const QString& folder)
{
    bench::FatalExit processExit;
    bench::NoDialogs dialogs;
    Run run(processExit);
    RealClock clock(run);
    const Paths paths(folder);
    DeviceControl CORB(clock);
    RealSystemTools systemTools;
    FormORB form(clock, dialogs, paths, CORB, systemTools);
    FirstPaint paint;
    run.enter([&] { form.FormLoad(); });
    form.installEventFilter(&paint);
    form.show();
    return QApplication::exec();
}

double secondsOf(const QStringList& arguments)
{
    QElapsedTimer timer;
    timer.start();
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), arguments);
    process.waitForFinished(-1);
    return static_cast<double>(timer.nsecsElapsed()) / 1e9;
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() > 1)
        return arguments[1] == QLatin1String("empty") ? showEmpty() : showProgram(arguments[1]);
    const auto folder = bench::applicationWith(0);
    std::vector<double> empty, program;
    for (int i = 0; i < 60; ++i) { // times on an X server vary
        empty.push_back(secondsOf({QStringLiteral("empty")}));
        program.push_back(secondsOf({folder->path()}));
    }
    return bench::report("start to the first page, against an empty window",
                         bench::median(program) / bench::median(empty), 2.5);
}
