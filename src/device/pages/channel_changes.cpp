// SPDX-License-Identifier: GPL-3.0-or-later
#include "channel_changes.h"

#include <algorithm>
#include <cmath>

namespace orb {

namespace {

using Kind = ChannelChange::Kind;
using Stage = ChangeStatus::Stage;

/// An instrument rounds to its step, which is finer than this part of its range.
constexpr double tolerance = 0.001;

bool needsOff(const ChannelChange& change)
{
    return change.kind == Kind::Mode || change.kind == Kind::Range;
}

bool needsMode(const ChannelChange& change)
{
    return change.kind == Kind::Range || change.kind == Kind::SetValue;
}

QByteArray commandOf(int channel, const ChannelChange& change, const ChannelReadout& readout)
{
    switch (change.kind) {
    case Kind::Load:
        break;
    case Kind::Mode:
        return modeCommand(channel, change.mode);
    case Kind::Range:
        return rangeCommand(channel, readout, change.isOn);
    case Kind::SetValue:
        return setValueCommand(channel, readout, change.value);
    }
    return loadCommand(channel, change.isOn);
}

/// The readouts in which a change shows.
ChannelQueryKind shownIn(Kind kind)
{
    if (kind == Kind::Load)
        return ChannelQueryKind::Readings;
    return kind == Kind::SetValue ? ChannelQueryKind::SetValues : ChannelQueryKind::Modes;
}

bool isNear(double value, double wanted, const ChannelReadout& readout)
{
    const double range = readout.limits ? readout.limits->highest : std::abs(wanted);
    return std::abs(value - wanted) <= tolerance * range;
}

/// Whether the instrument has the change; nothing where that is unknown.
std::optional<bool> isTaken(const ChannelChange& change, const ChannelReadout& readout)
{
    const auto equals = [](const auto& value, bool wanted) {
        return value ? std::optional(*value == wanted) : std::nullopt;
    };
    switch (change.kind) {
    case Kind::Load:
        return equals(readout.loadOn, change.isOn);
    case Kind::Mode:
        return readout.mode.isEmpty() ? std::nullopt : std::optional(readout.mode.startsWith(change.mode));
    case Kind::Range:
        return equals(isHighRange(readout), change.isOn);
    case Kind::SetValue:
        break;
    }
    return readout.setValue ? std::optional(isNear(*readout.setValue, change.value, readout)) : std::nullopt;
}

} // namespace

void ChannelChanges::request(Session& session, int channel, const ChannelChange& change)
{
    Entry& entry = this->entry(channel);
    if (entry.status.stage == Stage::Pending) {
        if (change.kind == Kind::Load && !change.isOn)
            send(session, loadCommand(channel, false));
        return;
    }
    if (needsMode(change) && readout(channel).mode.isEmpty())
        return;
    entry.status.change = change;
    entry.line = commandOf(channel, change, readout(channel));
    if (!needsOff(change))
        sendChange(session, entry);
    else if (sendLine(session, entry, loadCommand(channel, false)))
        enterStage(entry, Stage::Pending, QStringLiteral("Pending: load off"));
}

void ChannelChanges::sendChange(Session& session, Entry& entry)
{
    if (sendLine(session, entry, entry.line))
        enterStage(entry, Stage::Sent, QStringLiteral("Sent"));
}

bool ChannelChanges::sendLine(Session& session, Entry& entry, const QByteArray& line)
{
    const bool isSent = send(session, line);
    if (!isSent)
        enterStage(entry, Stage::Failed, QStringLiteral("Not sent"));
    entry.queriesBefore = poll_.sentCount();
    return isSent;
}

bool ChannelChanges::send(Session& session, const QByteArray& line)
{
    const bool isSent = session.send(Requester::Control, line);
    if (isSent && onSent)
        onSent(line);
    poll_.hurry();
    return isSent;
}

void ChannelChanges::enterStage(Entry& entry, Stage stage, const QString& text)
{
    entry.status.stage = stage;
    entry.status.text = text;
    entry.since = clock_.elapsed();
}

bool ChannelChanges::step(Session& session)
{
    bool isNew = false;
    for (int channel = 1; channel <= static_cast<int>(entries_.size()); ++channel)
        isNew = stepOne(session, channel) || isNew;
    return isNew;
}

bool ChannelChanges::stepOne(Session& session, int channel)
{
    Entry& entry = this->entry(channel);
    switch (entry.status.stage) {
    case Stage::None:
        return false;
    case Stage::Pending:
        return stepPending(session, channel);
    case Stage::Sent:
        return stepSent(channel);
    case Stage::ReadBack:
    case Stage::Failed:
        break;
    }
    if (age(entry) < shownMs)
        return false;
    enterStage(entry, Stage::None, {});
    return true;
}

/// An input that is not read back as off keeps its mode and range.
bool ChannelChanges::stepPending(Session& session, int channel)
{
    Entry& entry = this->entry(channel);
    const bool isRead = poll_.numberOf(ChannelQueryKind::Readings) > entry.queriesBefore;
    if (isRead && readout(channel).loadOn == false) {
        sendChange(session, entry);
        return true;
    }
    if (age(entry) < offLimitMs)
        return false;
    enterStage(entry, Stage::Failed, QStringLiteral("Not sent: not off"));
    return true;
}

bool ChannelChanges::stepSent(int channel)
{
    Entry& entry = this->entry(channel);
    const ChannelChange& change = entry.status.change;
    const bool isRead = poll_.numberOf(shownIn(change.kind)) > entry.queriesBefore;
    if (!isRead && age(entry) < readBackLimitMs)
        return false;
    const auto taken = isRead ? isTaken(change, readout(channel)) : std::nullopt;
    if (!taken)
        enterStage(entry, Stage::Failed, QStringLiteral("Not read back"));
    else if (*taken)
        enterStage(entry, Stage::ReadBack, QStringLiteral("Read back"));
    else
        enterStage(entry, Stage::Failed, QStringLiteral("Not taken"));
    return true;
}

void ChannelChanges::abandon()
{
    for (Entry& entry : entries_)
        if (entry.status.stage == Stage::Pending)
            enterStage(entry, Stage::Failed, QStringLiteral("Not sent: page left"));
        else if (entry.status.stage == Stage::Sent)
            enterStage(entry, Stage::None, {});
}

} // namespace orb
