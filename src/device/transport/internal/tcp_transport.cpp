// SPDX-License-Identifier: GPL-3.0-or-later
#include "tcp_transport.h"

#include "socket_keepalive.h"

#include <QDeadlineTimer>
#include <QNetworkProxy>

namespace orb {

namespace {

constexpr qint64 mostUnsent = 1024 * 1024;
constexpr qsizetype mostAddresses = 8;

LinkError linkError(QAbstractSocket::SocketError error)
{
    switch (error) {
    case QAbstractSocket::ConnectionRefusedError:
        return LinkError::Refused;
    case QAbstractSocket::HostNotFoundError:
        return LinkError::HostNotFound;
    case QAbstractSocket::RemoteHostClosedError:
        return LinkError::ClosedRemotely;
    case QAbstractSocket::SocketTimeoutError:
        return LinkError::TimedOut;
    case QAbstractSocket::NetworkError:
        return LinkError::Unreachable;
    default:
        return LinkError::Broken;
    }
}

int remaining(const QDeadlineTimer& deadline)
{
    return static_cast<int>(deadline.remainingTime());
}

} // namespace

TcpTransport::TcpTransport(TcpAddress address) : address_(std::move(address))
{
    socket_.setProxy(QNetworkProxy::NoProxy);
}

void TcpTransport::begin()
{
    state_ = State::Opening;
    if (const QHostAddress literal(address_.host); !literal.isNull()) {
        untried_ = {literal};
        connectNext();
    } else {
        lookup_.emplace(address_.host);
    }
}

void TcpTransport::useAddresses()
{
    untried_ = lookup_->addresses().mid(0, mostAddresses);
    lookup_.reset();
    if (untried_.isEmpty())
        fail(LinkError::HostNotFound);
    else
        connectNext();
}

void TcpTransport::connectNext()
{
    socket_.abort();
    socket_.connectToHost(untried_.takeFirst(), address_.port, QIODevice::ReadWrite | QIODevice::Unbuffered);
}

void TcpTransport::connected()
{
    socket_.setSocketOption(QAbstractSocket::LowDelayOption, 1);
    keepAlive(socket_.socketDescriptor());
    state_ = State::Open;
}

/// A name may have several addresses, and the instrument be at one of them alone.
void TcpTransport::attemptFailed()
{
    if (error_ == LinkError::None || error_ == LinkError::Unreachable) {
        error_ = linkError(socket_.error());
        errorText_ = socket_.errorString();
    }
    if (untried_.isEmpty())
        fail(error_, errorText_);
    else
        connectNext();
}

void TcpTransport::fail(LinkError error, const QString& text)
{
    state_ = State::Closed;
    error_ = error;
    errorText_ = text;
    lookup_.reset();
    untried_.clear();
}

bool TcpTransport::open(int limitMs)
{
    const QDeadlineTimer deadline(limitMs);
    begin();
    if (lookup_ && lookup_->wait(limitMs))
        useAddresses();
    while (state_ == State::Opening && !lookup_) {
        // The addresses that are left share the time.
        const int share = remaining(deadline) / static_cast<int>(untried_.size() + 1);
        if (socket_.state() == QAbstractSocket::ConnectedState || socket_.waitForConnected(share))
            connected();
        else
            attemptFailed();
    }
    if (state_ == State::Opening) {
        socket_.abort();
        fail(LinkError::TimedOut);
    }
    if (state_ == State::Open)
        error_ = LinkError::None;
    return state_ == State::Open;
}

void TcpTransport::close()
{
    lookup_.reset();
    untried_.clear();
    socket_.abort();
    state_ = State::Closed;
    error_ = LinkError::None;
    errorText_.clear();
}

Transport::State TcpTransport::state()
{
    if (state_ == State::Opening)
        pollOpening();
    else if (state_ == State::Open)
        pollLink();
    return state_;
}

void TcpTransport::pollOpening()
{
    if (lookup_) {
        if (lookup_->isDone())
            useAddresses();
    } else if (socket_.state() == QAbstractSocket::ConnectedState) {
        error_ = LinkError::None;
        connected();
    } else if (socket_.state() == QAbstractSocket::UnconnectedState) {
        attemptFailed();
    }
}

void TcpTransport::pollLink()
{
    if (socket_.state() == QAbstractSocket::ConnectedState)
        return;
    const LinkError error = linkError(socket_.error());
    fail(error == LinkError::ClosedRemotely ? error : LinkError::Broken, socket_.errorString());
}

bool TcpTransport::write(const QByteArray& bytes)
{
    if (state() != State::Open)
        return false;
    if (socket_.bytesToWrite() + bytes.size() > mostUnsent) {
        socket_.abort();
        fail(LinkError::Broken, QStringLiteral("the instrument takes no more commands"));
        return false;
    }
    const bool taken = socket_.write(bytes) == bytes.size();
    writePending();
    return taken;
}

bool TcpTransport::flush(int limitMs)
{
    const QDeadlineTimer deadline(limitMs);
    while (state() == State::Open && socket_.bytesToWrite() > 0)
        if (!socket_.waitForBytesWritten(remaining(deadline)))
            break;
    return state() == State::Open && socket_.bytesToWrite() == 0;
}

/// What the system did not take at once is offered again, since no event loop may be running.
void TcpTransport::writePending()
{
    if (socket_.bytesToWrite() > 0)
        socket_.flush();
}

QByteArray TcpTransport::read()
{
    if (state() != State::Open)
        return {};
    writePending();
    const qint64 size = socket_.read(buffer_.data(), static_cast<qint64>(buffer_.size()));
    return size > 0 ? QByteArray(buffer_.data(), size) : QByteArray();
}

bool TcpTransport::waitReadable(int limitMs)
{
    return state() == State::Open && socket_.waitForReadyRead(limitMs);
}

} // namespace orb
