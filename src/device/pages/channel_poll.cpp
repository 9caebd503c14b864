// SPDX-License-Identifier: GPL-3.0-or-later
#include "channel_poll.h"

#include "channel_queries.h"

#include <algorithm>

namespace orb {

namespace {
constexpr qint64 roundMs = 500;
constexpr std::size_t firstOfRound = 1; // the queries before it are asked once
constexpr int loneAnswersToBelieve = 2;
} // namespace

void ChannelPoll::restart(int channels)
{
    readouts_.assign(static_cast<std::size_t>(channels), {});
    step_ = 0;
    answers_.clear();
    isSeparate_ = false;
    loneAnswers_ = 0;
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
    restartRound();
}

void ChannelPoll::restartRound()
{
    answers_.clear();
    step_ = std::min(step_, firstOfRound);
}

/// The lines of this step.
QByteArrayList ChannelPoll::queries() const
{
    const QByteArray text = channelQueries[step_].text(readouts_);
    return isSeparate_ ? text.split(';') : QByteArrayList{text};
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
    answers_ += answer.value_or(QByteArray());
    const bool isHurried = isSeparate_ && !roundAt_;
    if (isHurried)
        restartRound();
    if (answers_.size() < queries().size())
        return false;
    readAnswer(answers_.join(';'));
    stepOn();
    return true;
}

void ChannelPoll::readAnswer(const QByteArray& answer)
{
    channelQueries[step_].read(answer, readouts_);
    numbers_[step_] = firstNumber_;
    if (step_ == firstOfRound && !isSeparate_)
        judgeReadings(answer);
}

void ChannelPoll::judgeReadings(const QByteArray& answer)
{
    const bool isLone = !answer.isEmpty() && !answer.contains(';');
    loneAnswers_ = isLone ? loneAnswers_ + 1 : 0;
    isSeparate_ = loneAnswers_ == loneAnswersToBelieve;
    if (isSeparate_) { // the readings at once, before queries to which there may be no answer
        hurry();
        step_ = 0;
    }
}

void ChannelPoll::stepOn()
{
    answers_.clear();
    do
        ++step_;
    while (step_ < channelQueries.size() && channelQueries[step_].text(readouts_).isEmpty());
    if (step_ == channelQueries.size())
        step_ = firstOfRound;
}

void ChannelPoll::sendNext(Session& session)
{
    const qint64 now = clock_.elapsed();
    const bool isStepBegin = answers_.isEmpty();
    const bool isRoundBegin = isStepBegin && step_ == firstOfRound;
    if ((isRoundBegin && roundAt_ && now - *roundAt_ < roundMs) || !session.isQuiet())
        return;
    if (isRoundBegin)
        roundAt_ = now;
    sentAt_ = now;
    ++sentCount_;
    if (isStepBegin)
        firstNumber_ = sentCount_;
    session.send(Requester::Control, queries().at(answers_.size()));
}

} // namespace orb
