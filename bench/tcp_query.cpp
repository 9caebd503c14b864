// SPDX-License-Identifier: GPL-3.0-or-later
//
// A query over TCP on the loopback: through the instrument control, against a bare socket that sends the same line and
// reads until the line feed. Both ask the same server, in turns.
#include "bench.h"
#include "device_control.h"
#include "form.h"
#include "real_clock.h"
#include "simulator_server.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QThread>

#include <arpa/inet.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

namespace {

constexpr double budget = 1.2;
constexpr int batches = 800;
constexpr int queriesInABatch = 20;
const std::string query = ":FETC:ALLC?";

using Seconds = std::chrono::duration<double>;

/// The simulated instrument and its server in a thread of their own.
class ServerThread {
public:
    ServerThread()
    {
        context_.moveToThread(&thread_);
        thread_.start();
        inThread([this] {
            instrument_ = std::make_unique<orb::SimulatedInstrument>();
            server_ = std::make_unique<orb::SimulatorServer>(*instrument_);
            port_ = server_->listen(0) ? server_->port() : 0;
        });
    }
    ~ServerThread()
    {
        inThread([this] { server_.reset(); });
        thread_.quit();
        thread_.wait();
    }
    quint16 port() const { return port_; }

private:
    void inThread(const std::function<void()>& body)
    {
        QMetaObject::invokeMethod(&context_, body, Qt::BlockingQueuedConnection);
    }

    QThread thread_;
    QObject context_;
    std::unique_ptr<orb::SimulatedInstrument> instrument_;
    std::unique_ptr<orb::SimulatorServer> server_;
    quint16 port_ = 0;
};

int connectBare(quint16 port)
{
    const int descriptor = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(port);
    const int noDelay = 1;
    ::setsockopt(descriptor, IPPROTO_TCP, TCP_NODELAY, &noDelay, sizeof noDelay);
    return ::connect(descriptor, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0 ? descriptor : -1;
}

std::string askBare(int descriptor)
{
    const std::string line = query + '\n';
    if (::send(descriptor, line.data(), line.size(), MSG_NOSIGNAL) != static_cast<ssize_t>(line.size()))
        return {};
    std::string answer;
    char bytes[4096];
    while (!answer.ends_with('\n')) {
        const ssize_t size = ::recv(descriptor, bytes, sizeof bytes, 0);
        if (size <= 0)
            return {};
        answer.append(bytes, static_cast<std::size_t>(size));
    }
    answer.pop_back();
    return answer;
}

QString askControl(orb::DeviceControl& control)
{
    control.SendCommand(QString::fromStdString(query));
    return control.Reply();
}

/// Seconds that a batch of queries takes; negative when one is not answered.
template <typename Ask> double batch(const Ask& ask)
{
    const auto begin = std::chrono::steady_clock::now();
    for (int i = 0; i < queriesInABatch; ++i)
        if (ask().size() == 0)
            return -1;
    return Seconds(std::chrono::steady_clock::now() - begin).count();
}

/// The tenth part of the batches took less: short batches, and of them those that nothing else on the machine broke
/// into.
double undisturbed(std::vector<double> values)
{
    const auto tenth = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 10);
    std::nth_element(values.begin(), tenth, values.end());
    return *tenth;
}

bool connectControl(orb::DeviceControl& control, quint16 port)
{
    control.ShowConnectPage();
    control.connectPage.cmbKind.setText(QStringLiteral("Network (TCP)"));
    control.connectPage.cmbAddress.setText(QStringLiteral("127.0.0.1:%1").arg(port));
    control.connectPage.cmdConnect.click();
    while (!control.IsConnected() && !control.connectPage.cmdConnect.isEnabled())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    control.PanelActive(false);
    return control.IsConnected();
}

} // namespace

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    ServerThread server;
    orb::bench::FatalExit processExit;
    orb::Run run(processExit);
    orb::RealClock clock(run);
    orb::Form form(run);
    const QTemporaryDir settings;
    orb::DeviceControl control(clock, orb::standardLinkKinds(clock), settings.filePath(QStringLiteral("link.ini")), {},
                               &form);
    form.show();

    const int bare = connectBare(server.port());
    if (bare < 0 || !connectControl(control, server.port())) {
        std::fprintf(stderr, "tcp query: no connection\n");
        return 2;
    }
    std::vector<double> bareTimes;
    std::vector<double> controlTimes;
    for (int i = 0; i < batches; ++i) {
        const double bareTime = batch([&] { return askBare(bare); });
        const double controlTime = batch([&] { return askControl(control); });
        if (bareTime < 0 || controlTime < 0) {
            std::fprintf(stderr, "tcp query: a query was not answered\n");
            return 2;
        }
        bareTimes.push_back(bareTime);
        controlTimes.push_back(controlTime);
    }
    ::close(bare);
    const double ratio = undisturbed(controlTimes) / undisturbed(bareTimes);
    return orb::bench::report("tcp query", ratio, budget);
}
