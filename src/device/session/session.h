// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "answer_book.h"
#include "clock.h"
#include "framer.h"
#include "is_query.h"
#include "transport.h"

namespace orb {

/// The conversation with an instrument over an open transport: lines out, answers in, each to its query. Nothing in it
/// waits but the members that say so, and none of them longer than they are told.
class Session {
public:
    /// A longer line is not sent.
    static constexpr qsizetype longestLine = 64 * 1024;
    /// A part of an answer that does not grow for so long is thrown away.
    static constexpr qint64 stalledPartMs = 1000;
    /// How long an answer may take before it counts as missing.
    static constexpr qint64 patienceMs = AnswerBook::patienceMs;

    /// Both must outlive the session. `transport` is open.
    Session(Clock& clock, Transport& transport);

    /// Sends one line, given without line end, and does not wait. False when the link does not take it.
    bool send(Requester requester, const QByteArray& line);
    /// Sends `line` with `data` as a block behind it, and blocks for `limitMs` at most until it is on its way. The
    /// line is no query.
    bool sendBlock(const QByteArray& line, const QByteArray& data, int limitMs);

    /// Takes in what has arrived. Does not block.
    void poll();
    /// The answer to the requester's last query as far as it has been taken in; nothing while it has not come.
    const std::optional<QByteArray>& answer(Requester requester) const { return book_.answer(requester); }
    /// The same after a look at the line, and after a wait of `limitMs` at most for an answer that is under way: the
    /// query went out no longer ago, or a part of an answer is in. It never waits when none is under way.
    const std::optional<QByteArray>& awaitAnswer(Requester requester, int limitMs);
    /// Sends a query and blocks until its answer is in, for `limitMs` at most. Nothing where none came.
    std::optional<QByteArray> ask(Requester requester, const QByteArray& query, int limitMs);
    /// Sends a query of the control that is answered with a definite-length block, and blocks for `limitMs` at most. The
    /// data of the block; nothing where no whole block came.
    std::optional<QByteArray> fetchBlock(const QByteArray& query, int limitMs);

    /// True when no answer is due: a query that goes out now meets an idle line.
    bool isQuiet() const { return book_.isQuiet(clock_.elapsed()); }
    /// What the peer said last, whole or not and asked or not, for the words of a failure; 256 bytes at most.
    QByteArray lastReceived() const;

private:
    void lookAt(qint64 now);
    void takeIn(QByteArray bytes, qint64 now);
    void dropStalledPart(qint64 now);
    qint64 underWayUntil(Requester requester, int limitMs) const;

    Clock& clock_;
    Transport& transport_;
    Framer framer_;
    AnswerBook book_;
    qint64 lastLook_ = 0; // what comes was not there by then
    qint64 lastBytesAt_ = 0;
    QByteArray heard_;         // the head of the last answer, or of the last part that was thrown away
    bool begunBefore_ = false; // the part that is in was begun before the last query went out
};

} // namespace orb
