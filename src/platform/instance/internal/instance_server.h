// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLocalServer>

#include <functional>

namespace orb {

/// Takes the requests of later starts, of the same user alone.
class InstanceServer {
public:
    std::function<void(const QByteArray& token)> onRequest;

    /// Only for the program that holds the lock: what listened under this name before is gone. Where nothing can be
    /// listened to, no request ever comes.
    explicit InstanceServer(const QString& name);

private:
    void receive(QLocalSocket& socket);

    QLocalServer server_;
};

/// Sends a request to the server of this name. It may be about to listen, so this tries for two seconds. False where
/// no server took it.
bool sendRequest(const QString& name, const QByteArray& token);

} // namespace orb
