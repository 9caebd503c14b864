// SPDX-License-Identifier: GPL-3.0-or-later
#include "foreign_client_fixture.h"

#include "directories.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QStandardPaths>
#include <QTimer>

#ifdef Q_OS_LINUX
#include <csignal>
#include <sys/prctl.h>
#endif

namespace orb {

namespace {

/// Far beyond what any of this takes, and less than the time limit of a test.
constexpr int limitMs = 60'000;

/// A test that is ended from outside must not leave the process running.
void endWithParent(QProcess& process)
{
#ifdef Q_OS_LINUX
    process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
#endif
}

void end(QProcess& process)
{
    process.kill();
    process.waitForFinished();
}

} // namespace

bool ForeignClientTest::waitUntil(const std::function<bool()>& condition)
{
    QElapsedTimer elapsed;
    elapsed.start();
    QTimer wake;
    wake.start(20);
    while (!condition()) {
        if (elapsed.hasExpired(limitMs))
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
    return true;
}

void ForeignClientTest::SetUp()
{
    startBeside(simulator_, binaryDirectory() + QStringLiteral("/orb-simulator"),
                {QStringLiteral("--port"), QStringLiteral("0")});
    ASSERT_TRUE(waitUntil([this] { return simulator_.canReadLine() || simulator_.state() == QProcess::NotRunning; }));
    port_ = static_cast<quint16>(simulator_.readLine().mid(5).trimmed().toUInt());
    ASSERT_NE(port_, 0) << simulator_.readAllStandardError().toStdString();
    tap.emplace(port_);
}

ForeignClientTest::~ForeignClientTest()
{
    end(simulator_);
}

void ForeignClientTest::startBeside(QProcess& process, const QString& program, const QStringList& arguments)
{
    ASSERT_FALSE(QStandardPaths::findExecutable(program).isEmpty())
        << program.toStdString() << " is missing; packages.sh names its package";
    endWithParent(process);
    process.start(program, arguments);
    ASSERT_TRUE(process.waitForStarted(limitMs)) << process.errorString().toStdString();
}

ForeignClientTest::Outcome ForeignClientTest::run(const QString& program, const QStringList& arguments)
{
    const int linksBefore = tap->links();
    QProcess process;
    startBeside(process, program, arguments);
    process.closeWriteChannel();
    const bool ended = waitUntil([&] { return process.state() == QProcess::NotRunning; });
    EXPECT_TRUE(ended) << program.toStdString() << " does not end";
    if (!ended)
        end(process);
    EXPECT_TRUE(waitUntil([&] { return tap->links() <= linksBefore; })) << "a connection is left open";
    const bool isNormal = ended && process.exitStatus() == QProcess::NormalExit;
    return {isNormal ? process.exitCode() : -1, process.readAllStandardOutput().toStdString(),
            process.readAllStandardError().toStdString()};
}

std::string ForeignClientTest::ask(const QByteArray& message) const
{
    QTcpSocket socket;
    socket.connectToHost(QHostAddress::LocalHost, port_);
    EXPECT_TRUE(socket.waitForConnected(limitMs));
    socket.write(message + '\n');
    while (!socket.canReadLine() && socket.waitForReadyRead(limitMs)) {
    }
    return socket.readLine().trimmed().toStdString();
}

} // namespace orb
