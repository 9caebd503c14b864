// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator_process.h"

#include "user_interface.h"

#include <QCoreApplication>

#ifdef Q_OS_LINUX
#include <csignal>
#include <sys/prctl.h>
#endif

namespace orb {

namespace {
constexpr int limitMs = 20'000;
}

SimulatorProcess::SimulatorProcess(const QString& servedPath, int channels) : channels_(channels)
{
#ifdef Q_OS_LINUX
    // A tour that fails ends without destructors; the instrument must end with it.
    process_.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });
#endif
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.start(QCoreApplication::applicationDirPath() + QStringLiteral("/orb-simulator"),
                   {QStringLiteral("--port"), QStringLiteral("0"), QStringLiteral("--served"), servedPath,
                    QStringLiteral("--channels"), QString::number(channels)});
    if (!process_.waitForReadyRead(limitMs))
        throw TourFailure(QStringLiteral("orb-simulator does not start: ") + process_.errorString());
    const QByteArray line = process_.readLine().trimmed();
    port_ = line.mid(line.lastIndexOf(' ') + 1).toInt();
    if (port_ == 0)
        throw TourFailure(QStringLiteral("orb-simulator names no port: ") + QString::fromUtf8(line));
}

SimulatorProcess::~SimulatorProcess()
{
    process_.terminate();
    if (!process_.waitForFinished(limitMs))
        process_.kill();
}

} // namespace orb
