// SPDX-License-Identifier: GPL-3.0-or-later
#include "line_tap.h"

#include <QHostAddress>

#include <gtest/gtest.h>

namespace orb {

LineTap::LineTap(quint16 port) : target_(port)
{
    EXPECT_TRUE(server_.listen(QHostAddress::LocalHost));
    QObject::connect(&server_, &QTcpServer::newConnection, &server_, [this] { accept(); });
}

void LineTap::accept()
{
    QTcpSocket* client = server_.nextPendingConnection();
    auto* instrument = new QTcpSocket(client);
    ++links_;
    instrument->connectToHost(QHostAddress::LocalHost, target_);
    QObject::connect(client, &QTcpSocket::readyRead, client, [this, client, instrument] {
        const QByteArray bytes = client->readAll();
        asked_ += bytes;
        instrument->write(bytes);
    });
    QObject::connect(instrument, &QTcpSocket::readyRead, client, [this, client, instrument] {
        const QByteArray bytes = instrument->readAll();
        answered_ += bytes;
        client->write(bytes);
    });
    QObject::connect(instrument, &QTcpSocket::disconnected, client, [client] { client->disconnectFromHost(); });
    QObject::connect(client, &QTcpSocket::disconnected, client, [this, client] {
        --links_;
        client->deleteLater();
    });
}

} // namespace orb
