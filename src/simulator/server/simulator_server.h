// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fault_script.h"
#include "simulated_instrument.h"

#include <QString>

#include <memory>

namespace orb {

/// Serves a simulated instrument over TCP on 127.0.0.1. All clients share the one instrument. A message ends at a line
/// feed, or a carriage return and a line feed; each response is sent in one write and ends in a line feed. Runs in the
/// event loop of the thread that created it.
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

    /// Listens on `port`, 0 for any free one. Returns false when it can't; `errorText` then has the reason.
    bool listen(quint16 port);
    /// The port, 0 before `listen`. It stays the same while a fault keeps the server from listening.
    quint16 port() const;
    QString errorText() const;

    /// From now on writes the answers to queries for the readings of all channels to this file, a line each: the query,
    /// a tab, the answer as it was sent. An answer that is not sent whole is not written. Each line is in the file
    /// before the answer is sent. Returns false when the file can't be written.
    bool writeServedTo(const QString& path);

    int clientCount() const;

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

} // namespace orb
