// SPDX-License-Identifier: GPL-3.0-or-later
#include "polled_server.h"

#include <algorithm>
#include <stdexcept>

#include <arpa/inet.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

namespace orb {

namespace {

void require(bool isDone, const char* what)
{
    if (!isDone)
        throw std::runtime_error(what);
}

} // namespace

PolledServer::PolledServer(FaultyInstrument& instrument, const VirtualClock& clock)
    : instrument_(instrument), clock_(clock), listener_(::socket(AF_INET, SOCK_STREAM, 0))
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    require(::bind(listener_, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0, "no port is free");
    require(::listen(listener_, 1) == 0, "the port can't be listened on");
    ::getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &size);
    port_ = ntohs(address.sin_port);
}

PolledServer::~PolledServer()
{
    ::close(client_);
    ::close(listener_);
}

void PolledServer::poll()
{
    for (; expected_ > 0; --expected_)
        readLine();
    sendDue();
}

/// Blocks until the line is there, which is on its way.
void PolledServer::readLine()
{
    std::string line;
    for (char c = readByte(); c != '\n'; c = readByte())
        line += c;
    qint64 at = clock_.elapsed();
    if (!due_.empty())
        at = std::max(at, due_.rbegin()->first); // no answer overtakes another
    for (DeliveryStep& step : instrument_.receive(line)) {
        at += step.wait.count();
        due_.emplace(at, std::move(step.bytes));
    }
}

char PolledServer::readByte()
{
    if (client_ < 0) {
        client_ = ::accept(listener_, nullptr, nullptr);
        const int noDelay = 1; // a second answer does not wait for the first to be acknowledged
        ::setsockopt(client_, IPPROTO_TCP, TCP_NODELAY, &noDelay, sizeof noDelay);
    }
    char c = 0;
    require(::recv(client_, &c, 1, 0) == 1, "the program has closed the link");
    return c;
}

void PolledServer::sendDue()
{
    while (!due_.empty() && due_.begin()->first <= clock_.elapsed()) {
        const std::string& bytes = due_.begin()->second;
        require(::send(client_, bytes.data(), bytes.size(), MSG_NOSIGNAL) == static_cast<ssize_t>(bytes.size()),
                "the program takes no more answers");
        due_.erase(due_.begin());
    }
}

std::optional<qint64> PolledServer::nextAt() const
{
    return due_.empty() ? std::nullopt : std::optional(due_.begin()->first);
}

bool PolledTransport::write(const QByteArray& bytes)
{
    if (!link_.write(bytes))
        return false;
    server_.expect(bytes.count('\n'));
    server_.poll();
    return true;
}

QByteArray PolledTransport::read()
{
    server_.poll();
    return link_.read();
}

bool PolledTransport::waitReadable(int limitMs)
{
    const qint64 end = clock_.elapsed() + limitMs;
    while (true) {
        server_.poll();
        const qint64 now = clock_.elapsed();
        if (link_.waitReadable(0))
            return true;
        if (now >= end)
            return false;
        clock_.sleep(static_cast<int>(std::clamp(server_.nextAt().value_or(end), now + 1, end) - now));
    }
}

} // namespace orb
