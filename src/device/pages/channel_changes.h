// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "channel_poll.h"

#include <functional>

namespace orb {

/// A change of one channel that the operator has confirmed.
struct ChannelChange {
    enum class Kind { Load, Mode, Range, SetValue };

    Kind kind = Kind::Load;
    bool isOn = false; ///< of `Load`: switch on; of `Range`: the high one
    QString mode = {}; ///< of `Mode`: "CC", "CR" or "CV"
    double value = 0;  ///< of `SetValue`
};

/// How far the last change of a channel has come.
struct ChangeStatus {
    enum class Stage {
        None,
        Pending,  ///< the input is switched off first
        Sent,     ///< not read back yet
        ReadBack, ///< the instrument has it
        Failed,   ///< see `text`
    };

    Stage stage = Stage::None;
    ChannelChange change;
    QString text; ///< the stage in words

    bool isUnderWay() const { return stage == Stage::Pending || stage == Stage::Sent; }
};

/// The changes that the operator makes on the Control page, the last one of each channel. A change of the mode or the
/// range switches the input off first and goes out when that is read back.
class ChannelChanges {
public:
    /// How long the input may take to be read back as off, and a change to be read back.
    static constexpr qint64 offLimitMs = 3000;
    static constexpr qint64 readBackLimitMs = 5000;
    /// How long the end of a change is shown.
    static constexpr qint64 shownMs = 4000;

    /// A line went out.
    std::function<void(const QByteArray& line)> onSent;

    /// Both must outlive the changes.
    ChannelChanges(Clock& clock, ChannelPoll& poll) : clock_(clock), poll_(poll) {}

    /// Forgets everything and expects `channels` channels.
    void restart(int channels) { entries_.assign(static_cast<std::size_t>(channels), {}); }
    /// Sends a change, or the LOAD OFF before it. A change of a channel whose last one is pending is passed over, apart
    /// from LOAD OFF, which always goes out; so is a range or a set value where the mode is unknown.
    void request(Session& session, int channel, const ChannelChange& change);
    /// Sends what has become due and compares what was read back. True when a stage has changed.
    bool step(Session& session);
    /// The page is left: what is not sent yet will not be sent.
    void abandon();

    /// Of a channel, counted from 1.
    const ChangeStatus& status(int channel) const { return entries_[static_cast<std::size_t>(channel - 1)].status; }

private:
    struct Entry {
        ChangeStatus status;
        QByteArray line; // that makes the change
        qint64 since = 0;
        int queriesBefore = 0; // `ChannelPoll::sentCount` when the last line went out
    };

    bool stepOne(Session& session, int channel);
    bool stepPending(Session& session, int channel);
    bool stepSent(int channel);
    void sendChange(Session& session, Entry& entry);
    bool sendLine(Session& session, Entry& entry, const QByteArray& line);
    bool send(Session& session, const QByteArray& line);
    void enterStage(Entry& entry, ChangeStatus::Stage stage, const QString& text);
    qint64 age(const Entry& entry) const { return clock_.elapsed() - entry.since; }
    Entry& entry(int channel) { return entries_[static_cast<std::size_t>(channel - 1)]; }
    const ChannelReadout& readout(int channel) const { return poll_.readouts()[static_cast<std::size_t>(channel - 1)]; }

    Clock& clock_;
    ChannelPoll& poll_;
    std::vector<Entry> entries_;
};

} // namespace orb
