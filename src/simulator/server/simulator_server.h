// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fault_script.h"
#include "simulated_instrument.h"

#include <QString>

#include <memory>

namespace orb {

/// The simulated instrument behind a TCP socket of this machine (127.0.0.1 only). Serves several clients, who share
/// the one instrument. Takes a line feed, or a carriage return and a line feed, as the end of a message; gives each
/// response in one write that ends in a line feed. Works in the event loop of the thread that made it.
class SimulatorServer {
public:
    static constexpr int maxClients = 16;
    /// A client that leaves more than this unread is dropped.
    static constexpr qint64 maxUnread = 4 * 1024 * 1024;

    /// `instrument` must outlive the server.
    explicit SimulatorServer(SimulatedInstrument& instrument, FaultScript faults = {});
    ~SimulatorServer();
    SimulatorServer(const SimulatorServer&) = delete;
    SimulatorServer& operator=(const SimulatorServer&) = delete;

    /// Listens on `port`, 0 for any free one. False when it can't; `errorText` then says why.
    bool listen(quint16 port);
    /// The port it listens on; it stays the same while a fault keeps the server from listening. 0 before `listen`.
    quint16 port() const;
    QString errorText() const;

    /// From now on writes what is served to queries for the readings of all channels to this file, a line each: the
    /// query, a tab, the answer as the client got it. An answer that no client got whole is not written. Each line is
    /// in the file before the answer leaves. False when the file can't be written.
    bool writeServedTo(const QString& path);

    int clientCount() const;

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

} // namespace orb
