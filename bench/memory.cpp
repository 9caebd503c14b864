// SPDX-License-Identifier: GPL-3.0-or-later
// The memory that a day of eight channels takes over the empty program.
#include "bench.h"
#include "form_orb.h"
#include "virtual_clock.h"

#include <QApplication>

using namespace orb;

namespace {

constexpr int samplesOfADay = 86'400;

/// Resident memory of the process, in MiB.
double residentMiB()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        qFatal("no VmRSS in /proc/self/status");
    const QByteArray text = status.readAll();
    const auto at = text.indexOf("VmRSS:");
    return text.mid(at + 6, 20).trimmed().split(' ').first().toDouble() / 1024;
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const auto folder = bench::applicationWith(0);
    bench::FatalExit processExit;
    bench::NoDialogs dialogs;
    Run run(processExit);
    VirtualClock clock(run);
    clock.allow(1LL << 60);
    const Paths paths(folder->path());
    bench::Instrument CORB;
    RealSystemTools systemTools;
    FormORB form(clock, dialogs, paths, CORB, systemTools);
    run.enter([&] { form.FormLoad(); });
    run.enter([&] { form.pageWaveClick(); });
    form.show();
    QCoreApplication::processEvents();
    const double empty = residentMiB();

    run.enter([&] {
        form.frmDatalog.iLogChannels = CORB.ChannelCount();
        for (int sample = 0; sample < samplesOfADay; ++sample) {
            form.frmDatalog.FetchLogSample();
            if (sample % 60 == 0)
                QCoreApplication::processEvents();
        }
    });
    return bench::report("memory of a day of 8 channels over the empty program", residentMiB() - empty, 32, "MiB");
}
