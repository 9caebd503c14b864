// SPDX-License-Identifier: GPL-3.0-or-later
#include "program_player.h"

#include "mainframe.h"

#include <algorithm>

namespace orb {

namespace {

constexpr int maxChangesAtOnce = 1000;

} // namespace

bool ProgramPlayer::waits() const
{
    return phase_ == Phase::On && current().mode == ProgramMemory::RunMode::Manual;
}

double ProgramPlayer::nextChange() const
{
    return std::min({phaseEnds_, shortEnds_, judgedAt_});
}

bool ProgramPlayer::findStep()
{
    // A chain that is a loop may have no step that takes time.
    constexpr int maxTries = 2 * ProgramMemory::programCount * ProgramMemory::stepCount;
    for (int tries = 0; tries < maxTries; ++tries) {
        if (++step_ > ProgramMemory::stepCount) {
            program_ = programs_.next(program_);
            step_ = 1;
        }
        if (program_ == 0)
            break;
        if (current().takesTime())
            return true;
    }
    program_ = 1;
    step_ = 1;
    return false;
}

bool ProgramPlayer::start(const ProgramMemory& programs, double seconds, Mainframe& mainframe)
{
    unsigned channels = 0;
    for (int number = 1; number <= mainframe.channelCount(); ++number)
        channels |= mainframe.channel(number).inputOn() ? 1U << (number - 1) : 0U;
    programs_ = programs;
    program_ = programs.start;
    step_ = 0;
    if (channels == 0 || !findStep())
        return false;
    channels_ = channels;
    result_ = {};
    enterStep(seconds, mainframe);
    return true;
}

void ProgramPlayer::stop(Mainframe& mainframe)
{
    if (phase_ == Phase::Idle)
        return;
    switchOff(mainframe);
    phase_ = Phase::Idle;
    phaseEnds_ = never;
    channels_ = 0;
}

void ProgramPlayer::leave(int channel, Mainframe& mainframe)
{
    channels_ &= ~(1U << (channel - 1));
    if (channels_ == 0)
        stop(mainframe);
}

bool ProgramPlayer::endManualStep(double seconds, Mainframe& mainframe)
{
    if (!waits())
        return false;
    endOnTime(seconds, mainframe);
    return true;
}

void ProgramPlayer::enterStep(double seconds, Mainframe& mainframe)
{
    mainframe.applyMemory(current().memory);
    stepFailed_ = false;
    const bool manual = current().mode == ProgramMemory::RunMode::Manual;
    if (!manual && current().onSeconds <= 0)
        return endOnTime(seconds, mainframe);
    phase_ = Phase::On;
    phaseEnds_ = manual ? never : seconds + current().onSeconds;
    if (current().judgeSeconds > 0)
        judgedAt_ = std::min(seconds + current().judgeSeconds, phaseEnds_);
    switchOn(seconds, mainframe);
}

void ProgramPlayer::switchOn(double seconds, Mainframe& mainframe)
{
    const bool shorts = current().shortSeconds > 0 && current().shortChannels != 0;
    if (shorts)
        shortEnds_ = std::min(seconds + current().shortSeconds, phaseEnds_);
    forEachChannel([&](int number) {
        LoadChannel& channel = mainframe.change(number);
        channel.switchOn();
        if (shorts && (current().shortChannels >> (number - 1) & 1U) != 0 && channel.inputOn())
            channel.setShort(true);
    });
}

void ProgramPlayer::switchOff(Mainframe& mainframe)
{
    shortEnds_ = never;
    judgedAt_ = never;
    forEachChannel([&](int number) { mainframe.change(number).switchOff(); });
}

void ProgramPlayer::endShort(Mainframe& mainframe)
{
    shortEnds_ = never;
    forEachChannel([&](int number) { mainframe.change(number).setShort(false); });
}

void ProgramPlayer::endOnTime(double seconds, Mainframe& mainframe)
{
    switchOff(mainframe);
    if (current().offSeconds <= 0)
        return endStep(seconds, mainframe);
    phase_ = Phase::Off;
    phaseEnds_ = seconds + current().offSeconds;
}

void ProgramPlayer::endStep(double seconds, Mainframe& mainframe)
{
    if (findStep())
        enterStep(seconds, mainframe);
    else
        stop(mainframe);
}

void ProgramPlayer::judge(Mainframe& mainframe)
{
    judgedAt_ = never;
    ++result_.judged;
    bool passes = !stepFailed_;
    forEachChannel([&](int number) { passes = passes && mainframe.judge(number) != Verdict::Fail; });
    if (!passes)
        ++result_.failed;
}

void ProgramPlayer::dropChannelsThatWentOff(Mainframe& mainframe)
{
    if (phase_ != Phase::On)
        return;
    forEachChannel([&](int number) {
        const LoadChannel& channel = mainframe.channel(number);
        if (channel.inputOn())
            return;
        stepFailed_ = stepFailed_ || channel.condition() != 0;
        channels_ &= ~(1U << (number - 1));
    });
    if (channels_ == 0) {
        // The time of judging will not be reached, and the step has failed.
        if (stepFailed_ && judgedAt_ != never)
            judge(mainframe);
        stop(mainframe);
    }
}

void ProgramPlayer::change(Mainframe& mainframe)
{
    const double now = nextChange();
    if (shortEnds_ <= now)
        endShort(mainframe);
    else if (judgedAt_ <= now)
        judge(mainframe);
    else if (phase_ == Phase::On)
        endOnTime(now, mainframe);
    else
        endStep(now, mainframe);
}

void ProgramPlayer::advanceTo(double seconds, Mainframe& mainframe)
{
    dropChannelsThatWentOff(mainframe);
    for (int changes = 0; nextChange() <= seconds; ++changes) {
        if (changes == maxChangesAtOnce) {
            const double late = seconds - nextChange();
            for (double* time : {&phaseEnds_, &shortEnds_, &judgedAt_})
                *time += late;
            return;
        }
        mainframe.moveTo(nextChange());
        dropChannelsThatWentOff(mainframe);
        if (phase_ != Phase::Idle)
            change(mainframe);
    }
}

} // namespace orb
