// SPDX-License-Identifier: GPL-3.0-or-later
#include "test_servers.h"

#include <gmock/gmock.h>

#include <arpa/inet.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace orb {

namespace {

/// A socket bound to a free port of the loopback.
int boundSocket(quint16& port)
{
    const int descriptor = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    EXPECT_EQ(::bind(descriptor, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    socklen_t size = sizeof address;
    ::getsockname(descriptor, reinterpret_cast<sockaddr*>(&address), &size);
    port = ntohs(address.sin_port);
    return descriptor;
}

} // namespace

ServedInstrument::ServedInstrument(const std::string& faultScript) : context_(std::make_unique<QObject>())
{
    context_->moveToThread(&thread_);
    thread_.start();
    QMetaObject::invokeMethod(
        context_.get(),
        [&] {
            instrument_ = std::make_unique<SimulatedInstrument>(defaultConfiguration(8));
            server_ = std::make_unique<SimulatorServer>(*instrument_, FaultScript::parse(faultScript));
            EXPECT_TRUE(server_->listen(0));
            port_ = server_->port();
        },
        Qt::BlockingQueuedConnection);
}

ServedInstrument::~ServedInstrument()
{
    stop();
    thread_.quit();
    thread_.wait();
}

std::string ServedInstrument::execute(const std::string& message)
{
    std::string answer;
    QMetaObject::invokeMethod(
        context_.get(), [&] { answer = instrument_->execute(message); }, Qt::BlockingQueuedConnection);
    return answer;
}

void ServedInstrument::stop()
{
    QMetaObject::invokeMethod(
        context_.get(), [this] { server_.reset(); }, Qt::BlockingQueuedConnection);
}

std::string ClientConnection::line()
{
    std::string text;
    for (char c = 0; ::recv(descriptor_, &c, 1, 0) == 1;) {
        if (c == '\n')
            return text;
        text += c;
    }
    return {};
}

void ClientConnection::say(const std::string& bytes) const
{
    std::size_t at = 0;
    while (at < bytes.size()) {
        const ssize_t sent = ::send(descriptor_, bytes.data() + at, bytes.size() - at, MSG_NOSIGNAL);
        if (sent <= 0)
            return;
        at += static_cast<std::size_t>(sent);
    }
}

bool ClientConnection::isReadable(int limitMs) const
{
    pollfd readable{descriptor_, POLLIN, 0};
    return ::poll(&readable, 1, limitMs) > 0;
}

void ClientConnection::sendAtOnce() const
{
    const int yes = 1;
    ::setsockopt(descriptor_, IPPROTO_TCP, TCP_NODELAY, &yes, sizeof yes);
}

void ClientConnection::reset()
{
    const linger discard{1, 0};
    ::setsockopt(descriptor_, SOL_SOCKET, SO_LINGER, &discard, sizeof discard);
}

void ClientConnection::stay()
{
    char bytes[256];
    while (::recv(descriptor_, bytes, sizeof bytes, 0) > 0) {
    }
}

FaultyServer::FaultyServer(std::function<void(ClientConnection&)> serve)
{
    listener_ = boundSocket(port_);
    ::listen(listener_, 4);
    thread_ = std::thread([this, body = std::move(serve)] { run(body); });
}

FaultyServer::~FaultyServer()
{
    ending_ = true;
    ::shutdown(listener_, SHUT_RDWR);
    ::shutdown(connection_, SHUT_RDWR);
    thread_.join();
    ::close(listener_);
}

void FaultyServer::run(const std::function<void(ClientConnection&)>& serve)
{
    while (!ending_) {
        const int connection = ::accept(listener_, nullptr, nullptr);
        if (connection < 0)
            continue;
        connection_ = connection;
        ClientConnection client(connection);
        if (!ending_)
            serve(client);
        connection_ = -1;
        ::close(connection);
    }
}

quint16 refusingPort()
{
    quint16 port = 0;
    ::close(boundSocket(port));
    return port;
}

} // namespace orb
