// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "clock.h"
#include "is_query.h"
#include "requester.h"
#include "transport.h"

#include <memory>
#include <optional>
#include <utility>

namespace orb {

class AnswerBook;
class Framer;

/// The conversation with an instrument over an open transport: lines out, answers in, each to its query. It begins with
/// *IDN?: until an identity has come to it, every line is passed over, since the instrument may begin with a greeting.
/// No member waits but those that name a limit, and none of them longer.
class Session {
public:
    /// A longer line is not sent.
    static constexpr qsizetype longestLine = 64 * 1024;
    /// How long an answer may take before it counts as missing.
    static constexpr qint64 patienceMs = 2000;
    /// One `poll` reads no more, and takes no longer.
    static constexpr qsizetype mostBytesAPoll = 256 * 1024;
    static constexpr qint64 longestPollMs = 20;

    /// Both must outlive the session. `transport` is open.
    Session(Clock& clock, Transport& transport);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// Sends one line, given without line end, and does not wait. False when the link does not take it, or the line
    /// is too long or holds a NUL.
    bool send(Requester requester, const QByteArray& line);
    /// Sends `line` followed by `data` as a definite-length block, and blocks for `limitMs` at most until it is on its
    /// way. The line is no query.
    bool sendBlock(const QByteArray& line, const QByteArray& data, int limitMs);

    /// Reads what has arrived. Does not block.
    void poll();
    /// The answer to the requester's last query as far as it has been read; nothing while it has not come.
    const std::optional<QByteArray>& answer(Requester requester) const;
    /// The same after a poll, and after a wait of `limitMs` at most for an answer that is under way: the query went
    /// out no longer ago, or a part of an answer is in. It never waits when none is under way.
    const std::optional<QByteArray>& awaitAnswer(Requester requester, int limitMs);
    /// Sends a query of the control that is answered with a definite-length block, and blocks for `limitMs` at most. The
    /// data of the block; nothing where no complete block came.
    std::optional<QByteArray> fetchBlock(const QByteArray& query, int limitMs);

    /// True when no answer is due: a query that goes out now meets an idle line.
    bool isQuiet() const;
    /// What was taken for the identity was a greeting that looks like one, and this came later. The session finds its
    /// place by it before the next query.
    void identifyAnew(const QByteArray& identity);
    /// A line that looks like an identity and came when no answer was due, since the last call.
    QByteArray takeUnaskedIdentity() { return std::exchange(unaskedIdentity_, {}); }

    /// What came first instead of an identity, complete or not; 256 bytes at most.
    QByteArray rejected() const;

private:
    bool sendQuery(Requester requester, const QByteArray& query, bool isFetch);
    void receive(const QByteArray& bytes);
    void receiveLine(const QByteArray& line, bool isWhole);
    qint64 underWayUntil(Requester requester, int limitMs) const;

    Clock& clock_;
    Transport& transport_;
    std::unique_ptr<Framer> framer_;
    std::unique_ptr<AnswerBook> book_;
    qint64 lastBytesAt_;
    QByteArray rejected_;
    QByteArray unaskedIdentity_;
    bool isIdentified_ = false;
    bool isFetching_ = false;
};

} // namespace orb
