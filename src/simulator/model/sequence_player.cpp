// SPDX-License-Identifier: GPL-3.0-or-later
#include "sequence_player.h"

#include "mainframe.h"

#include <algorithm>
#include <cmath>

namespace orb {

namespace {

constexpr int maxChangesAtOnce = SequencePlayer::maxRoundsAtOnce * SequenceMemory::pointCount * 2;

const ValueRange& currentRange(const LoadChannel& channel)
{
    return channel.module().range(LoadFunction::Current, channel.settings().range(LoadFunction::Current));
}

} // namespace

bool SequencePlayer::canPlay(const SequenceMemory& sequence, const LoadChannel& channel)
{
    return channel.inputOn() && channel.settings().function == LoadFunction::Current &&
           sequence.loopStart <= sequence.endPoint && sequence.secondsOfRound() > 0 &&
           sequence.peakCurrent() <= currentRange(channel).highest;
}

void SequencePlayer::start(const SequenceMemory& sequence, int channel, double seconds, Mainframe& mainframe)
{
    sequence_ = sequence;
    secondsOfRound_ = sequence.secondsOfRound();
    channel_ = channel;
    point_ = sequence.loopStart;
    round_ = 1;
    began_ = seconds;
    beganCurrent_ = mainframe.channel(channel).settings().setValue();
    mainframe.change(channel).play(beganCurrent_, sequence_.voltageRange);
}

void SequencePlayer::stop(Mainframe& mainframe)
{
    if (!runs(mainframe))
        return;
    if (sequence_.endValue != 0)
        mainframe.change(channel_).endPlay();
    else
        mainframe.change(channel_).switchOff();
}

bool SequencePlayer::runs(const Mainframe& mainframe) const
{
    return mainframe.channel(channel_).isPlaying();
}

double SequencePlayer::currentAt(double seconds, const LoadChannel& channel) const
{
    const SequenceMemory::Point& point = sequence_.point(point_);
    const LoadSettings& settings = channel.settings();
    const ValueRange& rates = channel.module().slewRate[indexOf(settings.range(LoadFunction::Current))];
    const double wanted = currentRange(channel).nearest(point.current);
    const double rate = rates.nearest(wanted > beganCurrent_ ? point.rise : point.fall) * 1e6; // A/s
    const double way = std::min(std::abs(wanted - beganCurrent_), rate * (seconds - began_));
    return wanted > beganCurrent_ ? beganCurrent_ + way : beganCurrent_ - way;
}

bool SequencePlayer::enterNextPoint(const LoadChannel& channel)
{
    const double end = endOfPoint();
    beganCurrent_ = currentAt(end, channel);
    began_ = end;
    if (point_ < sequence_.endPoint) {
        ++point_;
        return true;
    }
    if (sequence_.repeatCount > 0 && round_ == sequence_.repeatCount)
        return false;
    ++round_;
    point_ = sequence_.loopStart;
    return true;
}

void SequencePlayer::skipRounds(double seconds)
{
    if (point_ != sequence_.loopStart)
        return;
    double rounds = std::floor((seconds - began_) / secondsOfRound_) - maxRoundsAtOnce;
    if (sequence_.repeatCount > 0)
        rounds = std::min(rounds, static_cast<double>(sequence_.repeatCount - round_));
    if (rounds < 1)
        return;
    round_ += static_cast<std::int64_t>(rounds);
    began_ += rounds * secondsOfRound_;
}

void SequencePlayer::advanceTo(double seconds, Mainframe& mainframe)
{
    for (int changes = 0; changes < maxChangesAtOnce && runs(mainframe) && endOfPoint() <= seconds; ++changes) {
        skipRounds(seconds);
        // After a skip, rounding may put the end of the point after `seconds`.
        mainframe.moveTo(std::min(endOfPoint(), seconds));
        if (!enterNextPoint(mainframe.channel(channel_)))
            return stop(mainframe);
        holdAt(began_, mainframe);
    }
}

void SequencePlayer::holdAt(double seconds, Mainframe& mainframe)
{
    if (runs(mainframe)) {
        LoadChannel& channel = mainframe.change(channel_);
        channel.play(currentAt(seconds, channel), sequence_.voltageRange);
    }
}

} // namespace orb
