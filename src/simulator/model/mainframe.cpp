// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainframe.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace orb {

namespace {

double inSeconds(std::chrono::nanoseconds time)
{
    return std::chrono::duration<double>(time).count();
}

const LoadModule& moduleNamed(const std::string& name)
{
    const LoadModule* module = findLoadModule(name);
    if (module == nullptr)
        throw std::invalid_argument("no load module is called " + name);
    return *module;
}

LoadChannel channelFrom(const ChannelConfiguration& configuration, std::uint64_t noiseSeed, double meterNoise)
{
    LoadChannel channel(moduleNamed(configuration.module), configuration.source, noiseSeed, meterNoise);
    const ValueRange& values = channel.module().range(configuration.function, configuration.range);
    if (!values.exists())
        throw std::invalid_argument("the module " + configuration.module + " has no such range");
    if (!std::isfinite(configuration.setValue))
        throw std::invalid_argument("a set value is no number");
    if (configuration.function == LoadFunction::Voltage)
        channel.setVoltageRange(configuration.range);
    channel.setMode(configuration.function, configuration.range);
    channel.setLevel(configuration.function, 0, configuration.setValue);
    return channel;
}

} // namespace

Mainframe::Mainframe(const SimulatorConfiguration& configuration, SimulatorClock clock)
    : clock_(std::move(clock)),
      origin_(clock_()),
      interval_(std::chrono::duration<double>(configuration.measurementInterval).count())
{
    if (configuration.channels.empty() || configuration.channels.size() > maxChannels)
        throw std::invalid_argument("an instrument has 1 to 8 channels");
    if (!std::isfinite(configuration.meterNoise) || configuration.meterNoise < 0)
        throw std::invalid_argument("the noise of the meters is negative or no number");
    std::mt19937_64 seeds(configuration.seed);
    for (const ChannelConfiguration& channel : configuration.channels)
        channels_.push_back(channelFrom(channel, seeds(), configuration.meterNoise));
    measurements_.resize(channels_.size());
}

LoadChannel& Mainframe::change(int number)
{
    measurements_[indexOfChannel(number)].obsolete = true;
    return channels_[indexOfChannel(number)];
}

void Mainframe::advance()
{
    // As numbers: on a clock that jumps, the difference of two times may overflow.
    const double now = inSeconds(clock_()) - inSeconds(origin_);
    // Only one of the two runs.
    sequencePlayer_.advanceTo(now, *this);
    programPlayer_.advanceTo(now, *this);
    moveTo(now);
    sequencePlayer_.holdAt(seconds_, *this);
}

void Mainframe::moveTo(double seconds)
{
    seconds_ = std::max(seconds_, seconds);
    for (LoadChannel& channel : channels_)
        channel.advanceTo(seconds_);
}

bool Mainframe::runSequence()
{
    if (sequenceRuns() || programRuns() || !SequencePlayer::canPlay(sequence_, channel(selected_)))
        return false;
    sequencePlayer_.start(sequence_, selected_, seconds_, *this);
    return true;
}

Reading Mainframe::fetch(int number)
{
    const Measurement& last = measurements_[indexOfChannel(number)];
    const bool isNew = !last.obsolete && seconds_ - last.seconds < interval_;
    return isNew ? last.reading : measure(number);
}

Reading Mainframe::measure(int number)
{
    const Reading reading = channels_[indexOfChannel(number)].measure();
    measurements_[indexOfChannel(number)] = {reading, seconds_, false};
    return reading;
}

bool Mainframe::runProgram()
{
    return !sequenceRuns() && !programRuns() && programPlayer_.start(programs_.programs, seconds_, *this);
}

Verdict Mainframe::judge(int number)
{
    const LoadSettings& settings = channel(number).settings();
    if (!settings.judged)
        return Verdict::Off;
    const Reading reading = measure(number);
    const auto& [voltage, current, power] = settings.windows;
    const bool passes = voltage.holds(reading.voltage) && current.holds(reading.current) && power.holds(reading.power);
    return passes ? Verdict::Pass : Verdict::Fail;
}

void Mainframe::switchInput(int number, bool on)
{
    if (on)
        return change(number).switchOn();
    change(number).switchOff();
    programPlayer_.leave(number, *this);
}

void Mainframe::switchAllOff()
{
    programPlayer_.stop(*this);
    for (int number = 1; number <= channelCount(); ++number)
        change(number).switchOff();
}

void Mainframe::reset()
{
    programPlayer_.stop(*this);
    programs_.revert();
    panel_ = {};
    for (int number = 1; number <= channelCount(); ++number) {
        LoadChannel& channel = change(number);
        channel.recall(LoadSettings::afterReset(channel.module()));
        channel.clearTrips();
    }
    editedPoint_ = 1;
    selected_ = 1;
    displayed_ = 1;
}

void Mainframe::saveMemory(int number)
{
    Memory& memory = memoryAt(number);
    memory.clear();
    for (const LoadChannel& channel : channels_)
        memory.push_back(channel.settings());
}

void Mainframe::recallMemory(int number)
{
    programPlayer_.stop(*this);
    applyMemory(number);
}

void Mainframe::applyMemory(int number)
{
    const Memory& memory = memoryAt(number);
    for (int each = 1; each <= channelCount(); ++each) {
        LoadChannel& channel = change(each);
        const std::size_t index = indexOfChannel(each);
        channel.recall(memory.empty() ? LoadSettings::afterReset(channel.module()) : memory[index]);
    }
}

unsigned Mainframe::condition() const
{
    unsigned all = 0;
    for (const LoadChannel& channel : channels_)
        all |= channel.condition();
    return all;
}

unsigned Mainframe::operation() const
{
    return (programPlayer_.waits() ? WaitingForNext : 0U) | (sequenceRuns() ? SequenceRunning : 0U) |
           (programRuns() ? ProgramRunning : 0U);
}

} // namespace orb
