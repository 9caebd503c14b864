// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "clock.h"
#include "session.h"

#include <QString>

#include <optional>
#include <vector>

namespace orb {

/// What is known of one load channel. An empty text or an empty optional is unknown.
struct ChannelReadout {
    QString module;
    std::optional<double> volts;
    std::optional<double> amperes;
    std::optional<double> watts;
    std::optional<bool> loadOn;
    QString mode;     ///< "CCL", "CCH", "CRL", "CRH" or "CV"
    int level = 1;    ///< 1 or 2, the level whose set value is in force
    QString tripped;  ///< "OV", "OP" or "OC" where protection has tripped or is limiting
    QString setValue; ///< with its unit
};

using ChannelReadouts = std::vector<ChannelReadout>;

/// Keeps the readouts of all channels current: one query at a time, and a round of queries every 500 ms.
class ChannelPoll {
public:
    /// `clock` must outlive the poll.
    explicit ChannelPoll(Clock& clock) : clock_(clock) {}

    /// Forgets everything and expects `channels` channels, 0 without a link.
    void restart(int channels);
    /// Evaluates the answer that `session` has received and sends the next query when that is due and no other answer
    /// is. Reads nothing from the link. True when the readouts are new.
    bool poll(Session& session);
    /// The next round begins at once and not when it is due.
    void hurry() { roundAt_.reset(); }
    /// Ignores the answer that is due. The next query begins a round.
    void abandon();

    /// True when a query was sent and its answer is still to be evaluated.
    bool isAwaiting() const { return sentAt_.has_value(); }
    const ChannelReadouts& readouts() const { return readouts_; }

private:
    bool receive(const Session& session);
    void sendNext(Session& session);
    void stepOn();

    Clock& clock_;
    ChannelReadouts readouts_;
    std::size_t step_ = 0;          // in `channelQueries`
    std::optional<qint64> sentAt_;  // the query that is not answered yet
    std::optional<qint64> roundAt_; // the beginning of the last round
};

/// The command that switches the input of one channel, counted from 1.
QByteArray loadCommand(int channel, bool on);

/// The command that switches the inputs of all channels off.
QByteArray allOffCommand();

} // namespace orb
