// SPDX-License-Identifier: GPL-3.0-or-later
#include "channel_poll.h"

#include "channel_queries.h"

#include <algorithm>

namespace orb {

namespace {
constexpr qint64 roundMs = 500;
constexpr std::size_t firstOfRound = 1; // the queries before it are asked once
} // namespace

void ChannelPoll::restart(int channels)
{
    readouts_.assign(static_cast<std::size_t>(channels), {});
    step_ = 0;
    sentAt_.reset();
    roundAt_.reset();
    numbers_ = {};
}

bool ChannelPoll::poll(Session& session)
{
    const bool isNew = receive(session);
    if (!isAwaiting())
        sendNext(session);
    return isNew;
}

void ChannelPoll::abandon()
{
    sentAt_.reset();
    step_ = std::min(step_, firstOfRound);
}

/// An answer that stays away counts as an empty one.
bool ChannelPoll::receive(const Session& session)
{
    if (!isAwaiting())
        return false;
    const auto& answer = session.answer(Requester::Control);
    if (!answer && clock_.elapsed() - *sentAt_ < Session::patienceMs)
        return false;
    sentAt_.reset();
    channelQueries[step_].read(answer.value_or(QByteArray()), readouts_);
    numbers_[step_] = sentCount_;
    stepOn();
    return true;
}

void ChannelPoll::stepOn()
{
    do
        ++step_;
    while (step_ < channelQueries.size() && channelQueries[step_].text(readouts_).isEmpty());
    if (step_ == channelQueries.size())
        step_ = firstOfRound;
}

void ChannelPoll::sendNext(Session& session)
{
    const qint64 now = clock_.elapsed();
    const bool isRoundBegin = step_ == firstOfRound;
    if ((isRoundBegin && roundAt_ && now - *roundAt_ < roundMs) || !session.isQuiet())
        return;
    if (isRoundBegin)
        roundAt_ = now;
    sentAt_ = now;
    ++sentCount_;
    session.send(Requester::Control, channelQueries[step_].text(readouts_));
}

} // namespace orb
