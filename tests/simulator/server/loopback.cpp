// SPDX-License-Identifier: GPL-3.0-or-later
#include "loopback.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <gtest/gtest.h>

namespace orb {

bool waitUntil(const std::function<bool()>& condition)
{
    constexpr qint64 limit = 30'000;
    constexpr int atMost = 20; // ms, without an event
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.elapsed() > limit)
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, atMost);
    }
    return true;
}

Client::Client(quint16 port) : port_(port)
{
    QObject::connect(&socket_, &QTcpSocket::readyRead, &socket_, [this] {
        reads_.push_back(socket_.readAll().toStdString());
        received_ += reads_.back();
    });
}

bool Client::connect()
{
    socket_.connectToHost(QHostAddress::LocalHost, port_);
    const auto state = [this] { return socket_.state(); };
    EXPECT_TRUE(waitUntil(
        [&] { return state() == QAbstractSocket::ConnectedState || state() == QAbstractSocket::UnconnectedState; }));
    return state() == QAbstractSocket::ConnectedState;
}

void Client::send(std::string_view bytes)
{
    socket_.write(bytes.data(), static_cast<qint64>(bytes.size()));
    socket_.flush();
}

std::string Client::query(std::string_view message)
{
    send(std::string(message) + '\n');
    return line();
}

std::string Client::line()
{
    EXPECT_TRUE(waitUntil([this] { return received_.find('\n') != std::string::npos; }));
    const std::size_t end = received_.find('\n');
    const std::string text = received_.substr(0, end);
    received_.erase(0, end == std::string::npos ? end : end + 1);
    return text;
}

} // namespace orb
