// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulator_server.h"

#include <QThread>

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <thread>

namespace orb {

/// The simulated instrument behind a real socket, in a thread of its own so that a test may block.
class ServedInstrument {
public:
    explicit ServedInstrument(const std::string& faultScript = {});
    ~ServedInstrument();

    quint16 port() const { return port_; }
    /// What it makes of a message that another client sends.
    std::string execute(const std::string& message);
    /// No more clients, and none of those that are there.
    void stop();

private:
    QThread thread_;
    std::unique_ptr<QObject> context_; // lives in the thread
    std::unique_ptr<SimulatedInstrument> instrument_;
    std::unique_ptr<SimulatorServer> server_;
    quint16 port_ = 0;
};

/// One connection as a bad server sees it: a bare blocking socket.
class PeerSocket {
public:
    explicit PeerSocket(int descriptor) : descriptor_(descriptor) {}

    /// One line without its line end; empty when the client is gone or the server is to end.
    std::string line();
    void say(const std::string& bytes) const;
    /// Ends the connection with a reset.
    void reset();
    /// Stays until the client goes or the server is to end.
    void stay();

private:
    int descriptor_;
};

/// A server that does with each connection, one after the other, what `serve` does. The connection is closed behind it.
class BadServer {
public:
    explicit BadServer(std::function<void(PeerSocket&)> serve);
    ~BadServer();
    BadServer(const BadServer&) = delete;
    BadServer& operator=(const BadServer&) = delete;

    quint16 port() const { return port_; }

private:
    void run(const std::function<void(PeerSocket&)>& serve);

    int listener_ = -1;
    quint16 port_ = 0;
    std::atomic<int> connection_{-1};
    std::atomic<bool> ending_{false};
    std::thread thread_;
};

/// A port of this machine at which nobody listens.
quint16 refusingPort();

} // namespace orb
