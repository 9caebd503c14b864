// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "bench.h"
#include "device_control.h"
#include "form.h"
#include "real_clock.h"
#include "simulator_server.h"

#include <QCoreApplication>
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

namespace orb::bench {

/// The simulated instrument and its server in a thread of their own.
class ServerThread {
public:
    ServerThread()
    {
        context_.moveToThread(&thread_);
        thread_.start();
        inThread([this] {
            instrument_ = std::make_unique<SimulatedInstrument>();
            server_ = std::make_unique<SimulatorServer>(*instrument_);
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
    std::unique_ptr<SimulatedInstrument> instrument_;
    std::unique_ptr<SimulatorServer> server_;
    quint16 port_ = 0;
};

/// A plain socket, -1 where the connection fails.
inline int connectBare(quint16 port)
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

/// Sends all of it; false where that fails.
inline bool sendBare(int descriptor, const std::string& line)
{
    return ::send(descriptor, line.data(), line.size(), MSG_NOSIGNAL) == static_cast<ssize_t>(line.size());
}

/// The tenth part of the batches took less: short batches, and of them those that nothing else on the machine broke
/// into.
inline double undisturbed(std::vector<double> values)
{
    const auto tenth = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 10);
    std::nth_element(values.begin(), tenth, values.end());
    return *tenth;
}

/// Connects as an operator does, and takes the control off the screen.
inline bool connectControl(DeviceControl& control, quint16 port)
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

/// The instrument control on a form that is shown and a bare socket, both to be connected to the same server.
struct TcpPair {
    TcpPair() { form.show(); }
    ~TcpPair() { ::close(bare); }
    TcpPair(const TcpPair&) = delete;
    TcpPair& operator=(const TcpPair&) = delete;

    /// False, with a line on standard error, where one of them gets no connection.
    bool connect()
    {
        bare = connectBare(server.port());
        const bool isConnected = bare >= 0 && connectControl(control, server.port());
        if (!isConnected)
            std::fputs("no connection to the server of this measurement\n", stderr);
        return isConnected;
    }

    ServerThread server;
    FatalExit processExit;
    Run run{processExit};
    RealClock clock{run};
    Form form{run};
    QTemporaryDir settings;
    DeviceControl control{clock, standardLinkKinds(clock), settings.filePath(QStringLiteral("link.ini")), {}, &form};
    int bare = -1;
};

} // namespace orb::bench
