// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "faulty_instrument.h"
#include "tcp_transport.h"
#include "virtual_clock.h"

#include <map>

namespace orb {

/// Serves an instrument with faults over a TCP socket, one client, on virtual time: it does what is due when it is
/// polled, so that a second of its delays takes no real one.
class PolledServer {
public:
    /// Both must outlive the server.
    PolledServer(FaultyInstrument& instrument, const VirtualClock& clock);
    ~PolledServer();
    PolledServer(const PolledServer&) = delete;
    PolledServer& operator=(const PolledServer&) = delete;

    quint16 port() const { return port_; }
    /// The client has sent so many more lines.
    void expect(qsizetype lines) { expected_ += lines; }
    /// Handles every line that the client has sent, and sends what is due.
    void poll();
    /// When something is to be sent next; nothing where nothing is.
    std::optional<qint64> nextAt() const;

private:
    void readLine();
    char readByte();
    void sendDue();

    FaultyInstrument& instrument_;
    const VirtualClock& clock_;
    int listener_ = -1;
    int client_ = -1;
    quint16 port_ = 0;
    qsizetype expected_ = 0;
    std::multimap<qint64, std::string> due_;
};

/// A TCP link whose far end is a `PolledServer`: its waits pass on the virtual clock.
class PolledTransport final : public Transport {
public:
    /// `clock` and `server` must outlive the transport.
    PolledTransport(VirtualClock& clock, PolledServer& server)
        : clock_(clock), server_(server), link_({QStringLiteral("127.0.0.1"), server.port()})
    {}

    void begin() override { link_.begin(); }
    bool open(int limitMs) override { return link_.open(limitMs); }
    void close() override { link_.close(); }
    State state() override { return link_.state(); }
    LinkError error() const override { return link_.error(); }
    QString errorText() const override { return link_.errorText(); }
    bool write(const QByteArray& bytes) override;
    bool flush(int limitMs) override { return link_.flush(limitMs); }
    QByteArray read() override;
    bool waitReadable(int limitMs) override;

private:
    VirtualClock& clock_;
    PolledServer& server_;
    TcpTransport link_;
};

} // namespace orb
