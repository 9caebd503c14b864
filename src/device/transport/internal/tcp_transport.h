// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host_lookup.h"
#include "tcp_address.h"
#include "transport.h"

#include <QTcpSocket>

#include <optional>

namespace orb {

/// A link over TCP. Short lines leave at once (no delay), and a remote end that is gone without closing is noticed by the
/// system's keepalive within some ten seconds.
class TcpTransport final : public Transport {
public:
    explicit TcpTransport(TcpAddress address);

    void begin() override;
    bool open(int limitMs) override;
    void close() override;
    State state() override;
    LinkError error() const override { return error_; }
    QString errorText() const override { return errorText_; }
    bool write(const QByteArray& bytes) override;
    bool flush(int limitMs) override;
    QByteArray read() override;
    bool waitReadable(int limitMs) override;

private:
    void useAddresses();
    void connectNext();
    void connected();
    void attemptFailed();
    void fail(LinkError error, const QString& text = {});
    void pollOpening();
    void pollLink();
    void writePending();

    TcpAddress address_;
    QTcpSocket socket_; // unbuffered: what is not read yet stays in the system
    std::array<char, longestRead> buffer_{};
    std::optional<HostLookup> lookup_;
    QList<QHostAddress> untried_;
    State state_ = State::Closed;
    LinkError error_ = LinkError::None;
    QString errorText_;
};

} // namespace orb
