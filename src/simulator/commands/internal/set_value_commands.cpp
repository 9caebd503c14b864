// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_commands.h"

namespace orb {

namespace {

/// Slew rates go down to 0.00008 A/us.
constexpr int slewDecimals = 5;

constexpr Unit unitOf(LoadFunction function)
{
    constexpr Unit units[] = {Unit::Ampere, Unit::Ohm, Unit::Volt};
    return units[indexOf(function)];
}

/// The limits of a level; DEFault is its value after a reset.
NumberLimits levelLimits(const LoadChannel& channel, LoadFunction function)
{
    const ValueRange& values = channel.module().range(function, channel.settings().range(function));
    return {values.lowest, values.highest, function == LoadFunction::Current ? values.lowest : values.highest};
}

/// The index of the level; a header without a level means level 1.
int levelOf(const CommandCall& call)
{
    return call.suffix(1, 1, 1, 2) - 1;
}

template <LoadFunction Function> void setLevel(CommandContext& context, const CommandCall& call)
{
    LoadChannel& channel = changeAt(context, call);
    const double value = call.number(0, unitOf(Function), levelLimits(channel, Function));
    channel.setLevel(Function, levelOf(call), value);
}

template <LoadFunction Function> std::string queryLevel(CommandContext& context, const CommandCall& call)
{
    const LoadChannel& channel = channelAt(context, call);
    const double level = channel.settings().levelsOf(Function)[static_cast<std::size_t>(levelOf(call))];
    return valueText(call.limitOr(level, levelLimits(channel, Function)));
}

enum SlewDirection { Rise, Fall };

NumberLimits slewLimits(const LoadChannel& channel)
{
    const ValueRange& values = channel.module().slewRate[indexOf(channel.settings().range(LoadFunction::Current))];
    return {values.lowest, values.highest, values.highest};
}

template <SlewDirection Direction> void setSlewRate(CommandContext& context, const CommandCall& call)
{
    LoadChannel& channel = changeAt(context, call);
    channel.setSlewRate(Direction, call.number(0, Unit::AmperePerMicrosecond, slewLimits(channel)));
}

template <SlewDirection Direction> std::string querySlewRate(CommandContext& context, const CommandCall& call)
{
    const LoadChannel& channel = channelAt(context, call);
    const LoadSettings& settings = channel.settings();
    const double rate = settings.slewRates[indexOf(settings.range(LoadFunction::Current))][Direction];
    return decimalText(call.limitOr(rate, slewLimits(channel)), slewDecimals);
}

void chooseLevel(CommandContext& context, const CommandCall& call)
{
    changeAt(context, call).chooseLevel(call.integer(0, {1, 2, 1}) - 1);
}

std::string queryChosenLevel(CommandContext& context, const CommandCall& call)
{
    return std::to_string(channelAt(context, call).settings().level + 1);
}

constexpr Command rows[] = {
    {.header = "CURRent#[:STATic][:L#]",
     .parameters = amperesOrLimit,
     .queryParameters = limitNames,
     .example = "250 mA",
     .summary = "Level 1 or 2 of the current in CC, in the range in force.",
     .set = setLevel<LoadFunction::Current>,
     .query = queryLevel<LoadFunction::Current>},
    {.header = "CURRent#[:STATic]:RISE",
     .parameters = slewRateOrLimit,
     .queryParameters = limitNames,
     .example = "0.05 A/us",
     .summary = "The slew rate of a rising current, in the current's range in force.",
     .set = setSlewRate<Rise>,
     .query = querySlewRate<Rise>},
    {.header = "CURRent#[:STATic]:FALL",
     .parameters = slewRateOrLimit,
     .queryParameters = limitNames,
     .example = "0.05",
     .summary = "The slew rate of a falling current, in the current's range in force.",
     .set = setSlewRate<Fall>,
     .query = querySlewRate<Fall>},
    {.header = "RESistance#[:STATic][:L#]",
     .parameters = "<ohm>|MINimum|MAXimum|DEFault",
     .queryParameters = limitNames,
     .example = "50",
     .summary = "Level 1 or 2 of the resistance in CR, in the range in force.",
     .set = setLevel<LoadFunction::Resistance>,
     .query = queryLevel<LoadFunction::Resistance>},
    {.header = "VOLTage#[:STATic][:L#]",
     .parameters = voltsOrLimit,
     .queryParameters = limitNames,
     .example = "12.5V",
     .summary = "Level 1 or 2 of the voltage in CV, in the voltage range in force.",
     .set = setLevel<LoadFunction::Voltage>,
     .query = queryLevel<LoadFunction::Voltage>},
    {.header = "LEVel#",
     .parameters = "<1 or 2>",
     .example = "2",
     .summary = "Which of the two levels the input holds.",
     .set = chooseLevel,
     .query = queryChosenLevel},
};

} // namespace

constinit const CommandSection setValueCommands{"Set values", rows};

} // namespace orb
