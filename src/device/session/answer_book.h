// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include <array>
#include <deque>
#include <map>
#include <optional>

namespace orb {

/// Who asks: the application by way of `SendCommand`, or the control for its own pages.
enum class Requester { Application, Control };

/// Keeps account of which answer belongs to which query. The instrument answers in order, but may answer late or not
/// at all, and an answer does not say what it answers. The rule, told at length in docs/connecting.md:
///
/// An answer is handed out only when it can't belong to another query than the last one, or to an earlier one of the
/// same text. A query without an answer is written off after `patienceMs`; behind one that was written off an answer
/// is believed when the line stays quiet for `settleMs`, since a late one would be followed by the right one.
///
/// Holds no clock: every call says what time it is, in milliseconds that only grow.
class AnswerBook {
public:
    /// How long an answer may take before it counts as lost.
    static constexpr qint64 patienceMs = 2000;
    /// The same for a query that was lost time and again, as one is that the instrument does not know.
    static constexpr qint64 shortPatienceMs = 150;
    static constexpr qint64 settleMs = 30;
    /// An answer behind its query by no more than this came at once.
    static constexpr qint64 promptMs = 30;

    /// A query goes out. The answer of this requester is empty from now on.
    void asked(Requester requester, const QByteArray& question, qint64 now);
    /// An answer is in. It can't have come before `earliest`; `begunBefore`: its first part was in before the last
    /// query went out.
    void answered(const QByteArray& answer, qint64 now, qint64 earliest, bool begunBefore = false);
    /// It is known that nothing more will come to the queries so far.
    void nothingIsComing();
    /// Hands out what has been held back for long enough, and writes off what has been awaited for too long.
    void pass(qint64 now);

    /// The answer to the requester's last query; nothing while it has not come.
    const std::optional<QByteArray>& answer(Requester requester) const { return slot(requester).answer; }
    /// True while the requester's last query may still be answered.
    bool awaits(Requester requester) const { return slot(requester).waiting && !slot(requester).answer; }
    /// When the requester's last query went out; meaningless before the first.
    qint64 askedAt(Requester requester) const { return slot(requester).at; }
    /// True when no answer is due: no query is open, or the last one has been for so long that it counts as lost.
    bool isQuiet(qint64 now) const;
    /// When the answer that is held back will be handed out; nothing while there is none.
    std::optional<qint64> settlesAt() const;

    /// The requester's last query is given up: its answer will not be handed out any more.
    void abandon(Requester requester) { slot(requester).waiting = false; }

private:
    struct Query {
        QByteArray question;
        qint64 at = 0;
    };
    struct Slot {
        QByteArray question;
        qint64 at = 0;
        bool waiting = false;
        std::optional<QByteArray> answer;
    };
    struct Held {
        QByteArray question;
        QByteArray answer;
        qint64 at = 0;
    };

    const Slot& slot(Requester requester) const { return slots_[static_cast<std::size_t>(requester)]; }
    Slot& slot(Requester requester) { return slots_[static_cast<std::size_t>(requester)]; }

    qint64 patienceFor(const QByteArray& question) const;
    void extra(const QByteArray& answer, qint64 now);
    void weigh(qint64 now, bool prompt);
    void handOut(const QByteArray& question, const QByteArray& answer);
    void writeOffFront(qint64 now);
    void writeOffMissing(qint64 now);
    void countAsLost(const QByteArray& question);
    void settleDebt();

    std::array<Slot, 2> slots_;
    std::deque<Query> open_; // may still be answered, oldest first
    std::optional<Held> held_;

    int writtenOff_ = 0; // queries whose answers might come after all
    qint64 writtenOffUntil_ = 0;
    std::map<QByteArray, int> lost_; // how often in a row a query was written off

    // Evidence that a missing answer, and not a slow instrument, makes the answers fall behind the queries.
    std::optional<qint64> behindSince_;
    int promptAnswers_ = 0;
    int answersSinceAsked_ = 0;
    std::deque<QByteArray> unheard_; // queries behind which nothing came
};

} // namespace orb
