// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "channel_readout.h"
#include "clock.h"
#include "session.h"

#include <QByteArrayList>

#include <array>

namespace orb {

/// What the poll asks for, in the order of a round. The modules are asked for once.
enum class ChannelQueryKind { Modules, Readings, Modes, Limits, SetValues };

/// Keeps the readouts of all channels current: one line at a time, and a round of queries every 500 ms. Queries that
/// belong together go out joined, until the readings are answered with one part alone twice running: such an instrument
/// answers the first of them, or each in a line of its own, and from then on is asked each by itself.
class ChannelPoll {
public:
    /// `clock` must outlive the poll.
    explicit ChannelPoll(Clock& clock) : clock_(clock) {}

    /// Forgets everything and expects `channels` channels, 0 without a link.
    void restart(int channels);
    /// Evaluates the answer that `session` has received and sends the next query when that is due and no other answer
    /// is. Reads nothing from the link. True when the readouts are new.
    bool poll(Session& session);
    /// The next round begins at once and not when it is due; where each query goes out by itself, without waiting for
    /// the end of the round.
    void hurry() { roundAt_.reset(); }
    /// Ignores the answer that is due. The next query begins a round.
    void abandon();

    /// True when a query was sent and its answer is still to be evaluated.
    bool isAwaiting() const { return sentAt_.has_value(); }
    const ChannelReadouts& readouts() const { return readouts_; }

    /// The number of queries sent so far.
    int sentCount() const { return sentCount_; }
    /// The number of the query, counted from 1, whose answer the readouts of this kind are, of several the first; 0 while
    /// there is none. What was sent when `sentCount` was n shows in readouts whose number is greater than n.
    int numberOf(ChannelQueryKind kind) const { return numbers_[static_cast<std::size_t>(kind)]; }

private:
    QByteArrayList queries() const;
    bool receive(const Session& session);
    void readAnswer(const QByteArray& answer);
    void judgeReadings(const QByteArray& answer);
    void sendNext(Session& session);
    void stepOn();
    void restartRound();

    Clock& clock_;
    ChannelReadouts readouts_;
    std::size_t step_ = 0;          // in `channelQueries`
    std::optional<qint64> sentAt_;  // the query that is not answered yet
    std::optional<qint64> roundAt_; // the beginning of the last round
    QByteArrayList answers_;        // to the queries of this step so far
    bool isSeparate_ = false;       // each query goes out by itself
    int loneAnswers_ = 0;           // to the readings, running
    int firstNumber_ = 0;           // of the queries of this step
    int sentCount_ = 0;
    std::array<int, 5> numbers_{}; // by `ChannelQueryKind`
};

} // namespace orb
