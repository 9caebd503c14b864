// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QTcpServer>
#include <QTcpSocket>

namespace orb {

/// Stands between a client and a server on this machine, passes on whatever comes, and keeps it.
class LineTap {
public:
    /// Clients of the tap are connected to `port`.
    explicit LineTap(quint16 port);

    quint16 port() const { return server_.serverPort(); }
    /// Everything that clients have sent, and everything that they were sent.
    const QByteArray& asked() const { return asked_; }
    const QByteArray& answered() const { return answered_; }
    /// The number of clients that are connected.
    int links() const { return links_; }

private:
    void accept();

    quint16 target_;
    QTcpServer server_;
    QByteArray asked_;
    QByteArray answered_;
    int links_ = 0;
};

} // namespace orb
