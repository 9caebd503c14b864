// SPDX-License-Identifier: GPL-3.0-or-later
#include "instance_server.h"

#include <QDeadlineTimer>
#include <QLocalSocket>
#include <QThread>

namespace orb {

namespace {
constexpr int limitMs = 2000;
constexpr int retryMs = 20;
constexpr qint64 longestToken = 1024;
} // namespace

InstanceServer::InstanceServer(const QString& name)
{
    QObject::connect(&server_, &QLocalServer::newConnection, &server_, [this] {
        while (QLocalSocket* socket = server_.nextPendingConnection()) {
            QObject::connect(socket, &QLocalSocket::disconnected, &server_, [this, socket] { receive(*socket); });
            if (socket->state() == QLocalSocket::UnconnectedState)
                receive(*socket);
        }
    });
    QLocalServer::removeServer(name);
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    server_.listen(name);
}

void InstanceServer::receive(QLocalSocket& socket)
{
    const QByteArray token = socket.read(longestToken);
    socket.deleteLater();
    if (onRequest)
        onRequest(token);
}

bool sendRequest(const QString& name, const QByteArray& token)
{
    const QDeadlineTimer deadline(limitMs);
    QLocalSocket socket;
    do {
        socket.connectToServer(name, QIODevice::WriteOnly);
        if (socket.waitForConnected(limitMs)) {
            socket.write(token);
            socket.disconnectFromServer();
            return socket.state() == QLocalSocket::UnconnectedState || socket.waitForDisconnected(limitMs);
        }
        QThread::msleep(retryMs);
    } while (!deadline.hasExpired());
    return false;
}

} // namespace orb
