// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTcpSocket>

#include <functional>
#include <string>
#include <vector>

namespace orb {

/// Lets the event loop run until the condition holds. False after half a minute, which no sound machine needs.
bool waitUntil(const std::function<bool()>& condition);

/// A client of the server, over the real loopback. Keeps each portion of bytes apart as the system handed it over.
class Client {
public:
    explicit Client(quint16 port);

    /// True once it is connected; false when it was refused.
    bool connect();
    void send(std::string_view bytes);
    /// Sends the message and its line feed, and waits for one line of answer; without its line end.
    std::string query(std::string_view message);
    /// Waits for one more line of answer.
    std::string line();
    /// All that came so far and was not taken as a line.
    const std::string& received() const { return received_; }
    /// The portions in which all bytes came.
    const std::vector<std::string>& portions() const { return portions_; }
    bool isOpen() const { return socket_.state() == QAbstractSocket::ConnectedState; }
    QTcpSocket& socket() { return socket_; }

private:
    quint16 port_;
    QTcpSocket socket_;
    std::string received_;
    std::vector<std::string> portions_;
};

} // namespace orb
