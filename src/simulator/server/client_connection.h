// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fault_script.h"
#include "message_framer.h"

#include <QTcpSocket>
#include <QTimer>

#include <deque>
#include <functional>
#include <memory>

namespace orb {

/// A step on the way to a client, and what is to be written down when it is done.
struct OutgoingStep {
    DeliveryStep delivery;
    std::string record;
};

/// One client of the server: its input buffer, and the answers on their way to it, in order. All callbacks may come
/// from inside of a call; none comes once `isOpen` is false.
class ClientConnection {
public:
    struct Handler {
        /// A message has come: the way of its answer.
        std::function<std::vector<OutgoingStep>(const MessageFramer::Message&)> respond;
        /// A step with a record is about to be done.
        std::function<void(const std::string& record)> record;
        /// Nobody is to listen any more for that long, 0 for good.
        std::function<void(std::chrono::milliseconds deaf)> refuse;
        /// The connection is over; the object may be deleted later, not from inside of this call.
        std::function<void()> over;
    };

    /// `maxMessage` and `maxUnread`: the longest message, and how much a client may leave unread, in bytes.
    ClientConnection(std::unique_ptr<QTcpSocket> socket, Handler handler, std::size_t maxMessage, qint64 maxUnread);
    ~ClientConnection();
    ClientConnection(const ClientConnection&) = delete;
    ClientConnection& operator=(const ClientConnection&) = delete;

    bool isOpen() const { return open_; }
    /// Appends steps to what is on its way.
    void send(std::vector<OutgoingStep> steps);
    /// Reads what has come. Called by the server once for a new client, by the socket afterwards.
    void read();
    /// Notices at once what the event loop would notice later: bytes that have come, and that the client has closed.
    void poll();

private:
    /// Not any more while the last bytes of a connection that is being closed are still on their way.
    bool isListening() const { return open_ && socket_->state() == QAbstractSocket::ConnectedState; }
    void take(const MessageFramer::Message& message);
    void releaseHeld();
    void pump();
    /// False when the step has ended the connection.
    bool perform(const OutgoingStep& step);
    void write(const std::string& bytes);
    void close();
    void drop();
    void finish();

    Handler handler_;
    MessageFramer framer_;
    qint64 maxUnread_;
    std::deque<OutgoingStep> queue_;
    qint64 queued_ = 0; // bytes in the queue
    QTimer timer_;
    bool open_ = true;
    std::unique_ptr<QTcpSocket> socket_; // last: it goes first, while all that its signals touch is still there
};

} // namespace orb
