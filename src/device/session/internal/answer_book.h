// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "requester.h"

#include <QByteArray>
#include <QSet>

#include <array>
#include <deque>
#include <optional>

namespace orb {

/// Keeps account of which answer belongs to which query, by the order alone; docs/connecting.md has the rule.
///
/// The queries since the last certain place stand in a list. Each answer crosses out the first that is not crossed out.
/// Since an instrument answers in order, what may still be answered is among the rest, so an answer is handed out only
/// where the rest is one text: then it can't belong to another query. A marker is a question of the session's own whose
/// answer can't be mistaken; when it comes, everything before it is over, and what is after it is a certain place.
///
/// Holds no clock: a call says what time it is, in milliseconds that only grow.
class AnswerBook {
public:
    /// How long a query may be unanswered before a marker goes out, and the first marker before the second.
    static constexpr qint64 patienceMs = 2000;
    /// No more queries are sent while so many are unanswered.
    static constexpr std::size_t mostOpen = 256;

    /// The instrument's answer to *IDN?. There are no markers before it is known.
    void setIdentity(const QByteArray& identity) { identity_ = identity; }

    /// The marker that has to go out before `query`, and counts as sent; empty where none is needed. A fetch, and a
    /// query for the identity, need one wherever another query is unanswered.
    QByteArray markerBefore(const QByteArray& query, bool isFetch, qint64 now);
    /// A query goes out. The requester's answer is empty from now on. False where too many are unanswered.
    bool asked(Requester requester, const QByteArray& text, qint64 now);
    /// A line is in. `isWhole` is false where it may be made of two answers.
    void answered(const QByteArray& line, bool isWhole = true);
    /// Lines may come that answer nothing: until a marker is answered, everything is passed over.
    void distrust() { isDistrusted_ = true; }
    /// It is known that nothing more will come to the queries so far.
    void nothingIsComing();

    /// The answer to the requester's last query; nothing while it has not come.
    const std::optional<QByteArray>& answer(Requester requester) const { return slot(requester).answer; }
    /// True while the requester's last query may still be answered.
    bool awaits(Requester requester) const;
    /// When the requester's last query went out; meaningless before the first.
    qint64 askedAt(Requester requester) const { return slot(requester).at; }
    /// True where the next answer is certain to be the one to the requester's last query.
    bool isNext(Requester requester) const;
    /// True when no answer is due: none is open, or the last query has been for so long that it counts as missing.
    bool isQuiet(qint64 now) const;

    /// The requester's last query is given up: its answer will not be handed out any more.
    void abandon(Requester requester) { slot(requester) = {}; }

private:
    struct Query {
        QByteArray text;
        qint64 at = 0;
        Requester requester = Requester::Application;
        int identities = 0; ///< how often it asks for the identity
        bool isJoined = false;
        bool isMarker = false;
        bool isCrossedOut = false;
        int received = 0; ///< lines of the answer so far, where each identity comes in a line of its own
    };
    using Queries = std::deque<Query>;
    struct Slot {
        QByteArray text;
        qint64 at = 0;
        std::optional<QByteArray> answer;
    };

    const Slot& slot(Requester requester) const { return slots_[static_cast<std::size_t>(requester)]; }
    Slot& slot(Requester requester) { return slots_[static_cast<std::size_t>(requester)]; }

    static bool isOpen(const Query& query) { return !query.isCrossedOut && !query.isMarker; }
    bool needsMarker(bool isUrgent, qint64 now) const;
    int identitiesAtEnd(const QByteArray& line) const;
    bool takeIdentities(int count);
    void crossOut(Query& query, const QByteArray& answer, bool isWhole);
    void finishWith(Queries::iterator query);
    void finishBefore(Queries::iterator end, bool isMissing);
    Queries::iterator firstMarker();

    QByteArray identity_;
    std::array<Slot, 2> slots_;
    Queries queries_; // since the last certain place, oldest first
    bool isDistrusted_ = false;
    QSet<QByteArray> unanswered_; // texts among which was one that stayed unanswered
};

} // namespace orb
