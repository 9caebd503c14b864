// SPDX-License-Identifier: GPL-3.0-or-later
#include "load_channel.h"

#include <algorithm>
#include <cmath>

namespace orb {

namespace {

/// What a meter shows: whole counts from 0 to `meterSpan` times the end of its range.
double counted(double value, double count, double rangeEnd)
{
    const double shown = std::clamp(value, 0.0, rangeEnd * LoadChannel::meterSpan);
    return std::round(shown / count) * count;
}

} // namespace

LoadChannel::LoadChannel(const LoadModule& module, const Source& source, std::uint64_t noiseSeed, double meterNoise)
    : module_(&module), settings_(LoadSettings::afterReset(module)), noise_(noiseSeed), meterNoise_(meterNoise)
{
    connectSource(source);
}

void LoadChannel::setMode(LoadFunction function, LoadRange range)
{
    LoadRange& inForce = settings_.ranges[indexOf(function)];
    if (function == settings_.function && range == inForce)
        return;
    switchOff();
    settings_.function = function;
    inForce = range;
}

void LoadChannel::setVoltageRange(LoadRange range)
{
    LoadRange& inForce = settings_.ranges[indexOf(LoadFunction::Voltage)];
    if (range == inForce)
        return;
    switchOff();
    inForce = range;
}

void LoadChannel::setLevel(LoadFunction function, int level, double value)
{
    const ValueRange& values = module_->range(function, settings_.range(function));
    settings_.levelsOf(function)[static_cast<std::size_t>(level)] = values.nearest(value);
    settle();
}

void LoadChannel::setSlewRate(int direction, double value)
{
    const std::size_t range = indexOf(settings_.range(LoadFunction::Current));
    settings_.slewRates[range][static_cast<std::size_t>(direction)] = module_->slewRate[range].nearest(value);
}

void LoadChannel::chooseLevel(int level)
{
    settings_.level = level;
    settle();
}

void LoadChannel::recall(const LoadSettings& settings)
{
    switchOff();
    settings_ = settings;
}

void LoadChannel::switchOn()
{
    tripped_ = 0;
    inputOn_ = true;
    settle();
}

void LoadChannel::switchOff()
{
    goOff();
    settle();
}

void LoadChannel::goOff()
{
    inputOn_ = false;
    short_ = false;
    played_.reset();
}

void LoadChannel::setShort(bool on)
{
    short_ = on;
    settle();
}

void LoadChannel::setProtection(std::size_t quantity, double value)
{
    settings_.protection[quantity] = value;
    settle();
}

void LoadChannel::setOnVoltage(double volts, bool latched)
{
    settings_.onVoltage = volts;
    settings_.latched = latched;
    settle();
}

void LoadChannel::setJudging(const std::array<JudgedWindow, 3>& windows, bool judged)
{
    settings_.windows = windows;
    settings_.judged = judged;
}

void LoadChannel::play(double current, LoadRange voltageRange)
{
    played_ = {current, voltageRange};
    settle();
}

void LoadChannel::endPlay()
{
    played_.reset();
    settle();
}

void LoadChannel::clearTrips()
{
    tripped_ = 0;
}

void LoadChannel::connectSource(const Source& source)
{
    source.validate();
    source_ = source;
    drained_ = 0;
    settle();
}

void LoadChannel::advanceTo(double seconds)
{
    const double passed = std::max(seconds - seconds_, 0.0);
    drained_ += operatingPoint_.current * passed / 3600;
    seconds_ += passed;
    settle();
}

LoadRange LoadChannel::currentRange() const
{
    const bool current = !short_ && settings_.function == LoadFunction::Current;
    return current ? settings_.range(LoadFunction::Current) : LoadRange::High;
}

LoadRange LoadChannel::voltageRange() const
{
    return played_ ? played_->voltageRange : settings_.range(LoadFunction::Voltage);
}

OperatingPoint LoadChannel::pointAt(double openCircuitVoltage) const
{
    if (!inputOn_)
        return openTerminals(openCircuitVoltage);
    if (short_)
        return orb::operatingPoint(openCircuitVoltage, source_.seriesResistance,
                                   {LoadFunction::Resistance, 0, module_->maxCurrent(), module_->onResistance});
    if (!draws_)
        return openTerminals(openCircuitVoltage);
    const double setValue = played_ ? played_->current : settings_.setValue();
    const double maxCurrent = module_->range(LoadFunction::Current, currentRange()).highest;
    return orb::operatingPoint(openCircuitVoltage, source_.seriesResistance,
                               {settings_.function, setValue, maxCurrent, module_->onResistance});
}

void LoadChannel::settle()
{
    const double volts = source_.voltage(seconds_, drained_);
    draws_ = inputOn_ && (volts >= settings_.onVoltage || (draws_ && settings_.latched));
    operatingPoint_ = pointAt(volts);
    if (!inputOn_)
        return;
    const auto& [voltage, current, power] = settings_.protection;
    const unsigned reasons = (operatingPoint_.voltage > voltage ? OverVoltage : 0U) |
                             (operatingPoint_.current > current ? OverCurrent : 0U) |
                             (operatingPoint_.power() > power ? OverPower : 0U);
    if (reasons != 0) {
        tripped_ |= reasons;
        goOff();
        operatingPoint_ = openTerminals(volts);
    }
}

Reading LoadChannel::measure()
{
    const double volts = std::max(source_.voltage(seconds_, drained_) + source_.noise * noise_.next(), 0.0);
    const double meterNoise = meterNoise_ * noise_.next();
    const OperatingPoint point = pointAt(volts);

    const LoadRange inForce = voltageRange();
    const double currentCount = module_->currentResolution(currentRange());
    Reading reading;
    reading.voltage = counted(point.voltage, module_->voltageResolution(inForce),
                              module_->range(LoadFunction::Voltage, inForce).highest);
    // The reading of an input that draws no current is 0, without noise.
    if (point.current > 0)
        reading.current = counted(point.current + currentCount * meterNoise, currentCount,
                                  module_->range(LoadFunction::Current, currentRange()).highest);
    reading.power = reading.voltage * reading.current;
    return reading;
}

} // namespace orb
