// SPDX-License-Identifier: GPL-3.0-or-later
#include "client_connection.h"

#include "socket_reset.h"

namespace orb {

namespace {

constexpr qint64 readChunk = 64 * 1024;
/// The longest queue; a client that sends more queries than that before a late answer is dropped.
constexpr std::size_t maxQueue = 10'000;

} // namespace

ClientConnection::ClientConnection(std::unique_ptr<QTcpSocket> socket, Handler handler, std::size_t maxMessage,
                                   qint64 maxUnread)
    : handler_(std::move(handler)), framer_(maxMessage), maxUnread_(maxUnread), socket_(std::move(socket))
{
    timer_.setSingleShot(true);
    socket_->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    socket_->setReadBufferSize(readChunk);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] {
        if (!queue_.empty())
            queue_.front().delivery.wait = std::chrono::milliseconds{0};
        sendQueued();
    });
    QObject::connect(socket_.get(), &QTcpSocket::readyRead, socket_.get(), [this] { read(); });
    QObject::connect(socket_.get(), &QTcpSocket::disconnected, socket_.get(), [this] { finish(); });
}

ClientConnection::~ClientConnection()
{
    open_ = false;
    socket_->disconnect();
}

void ClientConnection::read()
{
    while (isListening() && socket_->bytesAvailable() > 0) {
        const QByteArray bytes = socket_->read(readChunk);
        for (const MessageFramer::Message& message :
             framer_.feed({bytes.data(), static_cast<std::size_t>(bytes.size())})) {
            if (!isListening())
                return;
            handle(message);
        }
    }
}

void ClientConnection::poll()
{
    // The end of a connection comes after its last bytes.
    for (int i = 0; i < 2 && isListening(); ++i)
        socket_->waitForReadyRead(0);
}

void ClientConnection::handle(const MessageFramer::Message& message)
{
    for (OutgoingStep& step : queue_)
        step.delivery.afterNext = false;
    send(handler_.respond(message));
}

void ClientConnection::send(std::vector<OutgoingStep> steps)
{
    for (OutgoingStep& step : steps) {
        queued_ += static_cast<qint64>(step.delivery.bytes.size());
        queue_.push_back(std::move(step));
    }
    sendQueued();
    if (queued_ + socket_->bytesToWrite() > maxUnread_ || queue_.size() > maxQueue)
        socket_->abort();
}

void ClientConnection::sendQueued()
{
    while (isListening() && !queue_.empty() && !timer_.isActive()) {
        const DeliveryStep& next = queue_.front().delivery;
        if (next.afterNext)
            return;
        if (next.wait.count() > 0) {
            timer_.start(next.wait);
            return;
        }
        const OutgoingStep step = std::move(queue_.front());
        queue_.pop_front();
        queued_ -= static_cast<qint64>(step.delivery.bytes.size());
        perform(step);
    }
}

void ClientConnection::perform(const OutgoingStep& step)
{
    if (!step.record.empty())
        handler_.record(step.record);
    if (!step.delivery.bytes.empty())
        write(step.delivery.bytes);
    switch (step.delivery.end) {
    case DeliveryStep::End::None:
        break;
    case DeliveryStep::End::Refuse:
        handler_.refuse(step.delivery.refusal);
        [[fallthrough]];
    case DeliveryStep::End::Close:
        socket_->disconnectFromHost();
        break;
    case DeliveryStep::End::Reset:
        resetOnClose(*socket_);
        socket_->abort();
        break;
    }
}

void ClientConnection::write(const std::string& bytes)
{
    socket_->write(bytes.data(), static_cast<qint64>(bytes.size()));
    // In one write: not together with the next answer.
    socket_->flush();
}

void ClientConnection::finish()
{
    open_ = false;
    handler_.ended();
}

} // namespace orb
