// SPDX-License-Identifier: GPL-3.0-or-later
// The processor time of the program while it does what it does all day, in percent of one core: a recording of eight
// channels with the Data Log page shown, and the Control page of a connected instrument of eight channels. Both on the
// real clock, over TCP, with the instrument in a process of its own.
#include "bench.h"
#include "channel_card.h"
#include "device_control.h"
#include "form_orb.h"
#include "real_clock.h"

#include <QApplication>
#include <QProcess>

#include <QTimer>

#include <algorithm>
#include <cstdio>

#include <sys/resource.h>

using namespace orb;

namespace {

constexpr double budgetPercent = 2;
constexpr int secondsMeasured = 20;
constexpr int secondsBefore = 3; ///< the page is shown and the instrument's modules are read
constexpr int limitMs = 30'000;

/// The processor time of this process so far, its kernel time included, in seconds.
double processorSeconds()
{
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// A simulated instrument of eight channels in another process, whose processor time does not count here.
class Simulator {
public:
    Simulator()
    {
        process_.start(
            QCoreApplication::applicationDirPath() + QStringLiteral("/orb-simulator"),
            {QStringLiteral("--port"), QStringLiteral("0"), QStringLiteral("--channels"), QStringLiteral("8")});
        while (!process_.canReadLine())
            if (!process_.waitForReadyRead(limitMs))
                qFatal("the simulator does not start");
        port_ = process_.readLine().trimmed().split(' ').last().toInt();
    }
    ~Simulator()
    {
        process_.kill();
        process_.waitForFinished(limitMs);
    }
    int port() const { return port_; }

private:
    QProcess process_;
    int port_ = 0;
};

/// Lets so many seconds pass in the event loop. The percentage of one core that they took.
double percentOf(int seconds)
{
    QEventLoop loop;
    QElapsedTimer timer;
    const double before = processorSeconds();
    timer.start();
    QTimer::singleShot(seconds * 1000, &loop, [&] { loop.quit(); });
    loop.exec();
    return (processorSeconds() - before) / (static_cast<double>(timer.elapsed()) / 1000) * 100;
}

bool connectTo(DeviceControl& CORB, int port)
{
    CORB.ShowConnectPage();
    CORB.connectPage.cmbKind.setText(QStringLiteral("Network (TCP)"));
    CORB.connectPage.cmbAddress.setText(QStringLiteral("127.0.0.1:%1").arg(port));
    CORB.connectPage.cmdConnect.click();
    while (!CORB.IsConnected() && !CORB.connectPage.cmdConnect.isEnabled())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    return CORB.IsConnected();
}

double controlPagePercent(FormORB& form, const ControlPage& page)
{
    form.pageControl.setEnabled(true); // the supervisor looks for the link every 1200 ms only
    form.pageControl.click();
    percentOf(secondsBefore);
    if (page.cards.size() != 8 || page.cards.back()->lblVolts.caption().size() < 4)
        qFatal("the Control page shows no readings");
    return percentOf(secondsMeasured);
}

/// The recording runs inside of the press on Start Log, which returns when it is stopped.
double recordingPercent(FormORB& form)
{
    form.pageWave.click();
    double before = 0;
    QElapsedTimer timer;
    double percent = 0;
    QTimer::singleShot(secondsBefore * 1000, &form, [&] {
        before = processorSeconds();
        timer.start();
    });
    QTimer::singleShot((secondsBefore + secondsMeasured) * 1000, &form, [&] {
        percent = (processorSeconds() - before) / (static_cast<double>(timer.elapsed()) / 1000) * 100;
        form.frmDatalog.logStop.click();
    });
    form.frmDatalog.logStart.click();
    if (form.frmDatalog.lLogRecNo < secondsMeasured)
        qFatal("%d samples were recorded", form.frmDatalog.lLogRecNo);
    return percent;
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const Simulator simulator;
    const auto folder = bench::applicationWith(0);
    bench::FatalExit processExit;
    bench::NoDialogs dialogs;
    Run run(processExit);
    RealClock clock(run);
    const Paths paths(folder->path());
    DeviceControl CORB(clock, standardLinkKinds(clock), folder->filePath(QStringLiteral("link.ini")));
    RealSystemTools systemTools;
    FormORB form(clock, dialogs, paths, CORB, systemTools);
    form.setRowEnd(CORB.allOffBar);
    run.enter([&] { form.FormLoad(); });
    form.show();
    if (!connectTo(CORB, simulator.port()))
        qFatal("no connection");
    const double control = controlPagePercent(form, CORB.controlPage);
    const double recording = recordingPercent(form);
    const int isControlOver =
        bench::report("processor time, connected on the Control page", control, budgetPercent, "% of one core");
    const int isRecordingOver =
        bench::report("processor time of a recording of 8 channels", recording, budgetPercent, "% of one core");
    return std::max(isControlOver, isRecordingOver);
}
