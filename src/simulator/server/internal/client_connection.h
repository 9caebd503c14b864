// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fault_delivery.h"
#include "message_framer.h"

#include <QTcpSocket>
#include <QTimer>

#include <deque>
#include <functional>
#include <memory>

namespace orb {

/// A step of a delivery, and the lines for the served file when it is executed.
struct OutgoingStep {
    DeliveryStep delivery;
    std::string record;
};

/// One client of the server: its input buffer and its queue of answers. Callbacks may be called from inside of any
/// member function; none is called once `isOpen` is false.
class ClientConnection {
public:
    struct Handler {
        /// Executes a message and returns the delivery of its answer.
        std::function<std::vector<OutgoingStep>(const MessageFramer::Message&)> respond;
        /// A step with a record is about to be executed.
        std::function<void(const std::string& record)> record;
        /// New connections are to be refused for that long, 0 for ever.
        std::function<void(std::chrono::milliseconds refusal)> refuse;
        /// The connection has ended. The object must not be deleted inside of this call.
        std::function<void()> ended;
    };

    /// `maxMessage`: the longest message in bytes. `maxUnread`: the most bytes that a client may leave unread.
    ClientConnection(std::unique_ptr<QTcpSocket> socket, Handler handler, std::size_t maxMessage, qint64 maxUnread);
    ~ClientConnection();
    ClientConnection(const ClientConnection&) = delete;
    ClientConnection& operator=(const ClientConnection&) = delete;

    bool isOpen() const { return open_; }
    /// Appends steps to the queue.
    void send(std::vector<OutgoingStep> steps);
    /// Reads what has been received.
    void read();
    /// Handles at once what the event loop has not handled yet: received bytes and the end of the connection.
    void poll();

private:
    /// False while the last bytes of a connection that is being closed are still being sent.
    bool isListening() const { return open_ && socket_->state() == QAbstractSocket::ConnectedState; }
    void handle(const MessageFramer::Message& message);
    void sendQueued();
    void perform(const OutgoingStep& step);
    void write(const std::string& bytes);
    void finish();

    Handler handler_;
    MessageFramer framer_;
    qint64 maxUnread_;
    std::deque<OutgoingStep> queue_;
    qint64 queued_ = 0; // bytes in the queue
    QTimer timer_;
    bool open_ = true;
    std::unique_ptr<QTcpSocket> socket_; // last: destroyed before everything that its signals use
};

} // namespace orb
