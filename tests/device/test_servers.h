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

/// The simulated instrument on a real socket, in a thread of its own so that a test may block.
class ServedInstrument {
public:
    explicit ServedInstrument(const std::string& faultScript = {});
    ~ServedInstrument();

    quint16 port() const { return port_; }
    /// The answer to a message of another client.
    std::string execute(const std::string& message);
    /// Closes every connection and takes no more.
    void stop();

private:
    QThread thread_;
    std::unique_ptr<QObject> context_; // lives in the thread
    std::unique_ptr<SimulatedInstrument> instrument_;
    std::unique_ptr<SimulatorServer> server_;
    quint16 port_ = 0;
};

/// The server's side of one connection: a blocking socket.
class ClientConnection {
public:
    explicit ClientConnection(int descriptor) : descriptor_(descriptor) {}

    /// Reads one line without its line end; empty when the client is gone or the server ends.
    std::string line();
    void say(const std::string& bytes) const;
    /// Waits up to `limitMs` for something to read.
    bool isReadable(int limitMs) const;
    /// What is said leaves at once, in a packet of its own.
    void sendAtOnce() const;
    /// Ends the connection with a reset.
    void reset();
    /// Reads until the client is gone or the server ends.
    void stay();

private:
    int descriptor_;
};

/// A server that runs `serve` for each connection, one after the other, and then closes the connection.
class FaultyServer {
public:
    explicit FaultyServer(std::function<void(ClientConnection&)> serve);
    ~FaultyServer();
    FaultyServer(const FaultyServer&) = delete;
    FaultyServer& operator=(const FaultyServer&) = delete;

    quint16 port() const { return port_; }

private:
    void run(const std::function<void(ClientConnection&)>& serve);

    int listener_ = -1;
    quint16 port_ = 0;
    std::atomic<int> connection_{-1};
    std::atomic<bool> ending_{false};
    std::thread thread_;
};

/// A port of this machine that refuses connections.
quint16 refusingPort();

} // namespace orb
