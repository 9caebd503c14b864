// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTcpSocket>

#include <functional>
#include <string>
#include <vector>

namespace orb {

/// Runs the event loop until the condition holds. Returns false after half a minute.
bool waitUntil(const std::function<bool()>& condition);

/// A client of the server, over the real loopback.
class Client {
public:
    explicit Client(quint16 port);

    /// Waits for the connection. Returns false when it is refused.
    bool connect();
    void send(std::string_view bytes);
    /// Sends the message and a line feed, and waits for one line, which it returns without its line end.
    std::string query(std::string_view message);
    /// Waits for one line.
    std::string line();
    /// The received bytes that `line` has not returned.
    const std::string& received() const { return received_; }
    /// The bytes of each read.
    const std::vector<std::string>& reads() const { return reads_; }
    bool isOpen() const { return socket_.state() == QAbstractSocket::ConnectedState; }
    QTcpSocket& socket() { return socket_; }

private:
    quint16 port_;
    QTcpSocket socket_;
    std::string received_;
    std::vector<std::string> reads_;
};

} // namespace orb
