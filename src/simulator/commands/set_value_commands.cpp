// SPDX-License-Identifier: GPL-3.0-or-later
#include "answer_text.h"
#include "instrument_commands.h"
#include "mainframe.h"

namespace orb {

namespace {

/// Slew rates go down to 0.00008 A/us.
constexpr int slewDecimals = 5;

constexpr Unit unitOf(LoadFunction function)
{
    constexpr Unit units[] = {Unit::Ampere, Unit::Ohm, Unit::Volt};
    return units[indexOf(function)];
}

/// What a level may be; DEFault is what it is after a reset.
NumberLimits levelLimits(const LoadChannel& channel, LoadFunction function)
{
    const ValueRange& values = channel.module().range(function, channel.settings().range(function));
    return {values.lowest, values.highest, function == LoadFunction::Current ? values.lowest : values.highest};
}

/// Level 1, which a header without a level means, is 0.
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
    const auto level = static_cast<std::size_t>(levelOf(call));
    if (call.parameterCount() > 0)
        return valueText(call.limit(0, levelLimits(channel, Function)));
    return valueText(channel.settings().levelsOf(Function)[level]);
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
    if (call.parameterCount() > 0)
        return decimalText(call.limit(0, slewLimits(channel)), slewDecimals);
    const LoadSettings& settings = channel.settings();
    return decimalText(settings.slewRates[indexOf(settings.range(LoadFunction::Current))][Direction], slewDecimals);
}

} // namespace

CommandSection setValueCommands()
{
    using Context = CommandContext;
    using Call = CommandCall;
    constexpr static std::string_view limits = "[MINimum|MAXimum|DEFault]";
    return {
        "Set values",
        {
            {.header = "CURRent#[:STATic][:L#]",
             .parameters = "<A>|MINimum|MAXimum|DEFault",
             .queryParameters = limits,
             .example = "250 mA",
             .summary = "Level 1 or 2 of the current in CC, in the range in force.",
             .set = setLevel<LoadFunction::Current>,
             .query = queryLevel<LoadFunction::Current>},
            {.header = "CURRent#[:STATic]:RISE",
             .parameters = "<A/us>|MINimum|MAXimum|DEFault",
             .queryParameters = limits,
             .example = "0.05 A/us",
             .summary = "How fast the current rises, in the current's range in force.",
             .set = setSlewRate<Rise>,
             .query = querySlewRate<Rise>},
            {.header = "CURRent#[:STATic]:FALL",
             .parameters = "<A/us>|MINimum|MAXimum|DEFault",
             .queryParameters = limits,
             .example = "0.05",
             .summary = "How fast the current falls, in the current's range in force.",
             .set = setSlewRate<Fall>,
             .query = querySlewRate<Fall>},
            {.header = "RESistance#[:STATic][:L#]",
             .parameters = "<ohm>|MINimum|MAXimum|DEFault",
             .queryParameters = limits,
             .example = "50",
             .summary = "Level 1 or 2 of the resistance in CR, in the range in force.",
             .set = setLevel<LoadFunction::Resistance>,
             .query = queryLevel<LoadFunction::Resistance>},
            {.header = "VOLTage#[:STATic][:L#]",
             .parameters = "<V>|MINimum|MAXimum|DEFault",
             .queryParameters = limits,
             .example = "12.5V",
             .summary = "Level 1 or 2 of the voltage in CV, in the voltage range in force.",
             .set = setLevel<LoadFunction::Voltage>,
             .query = queryLevel<LoadFunction::Voltage>},
            {.header = "LEVel#",
             .parameters = "<1 or 2>",
             .example = "2",
             .summary = "Which of the two levels the input holds.",
             .set =
                 [](Context& context, const Call& call) {
                     changeAt(context, call).chooseLevel(call.integer(0, {1, 2, 1}) - 1);
                 },
             .query = [](Context& context,
                         const Call& call) { return std::to_string(channelAt(context, call).settings().level + 1); }},
        },
    };
}

} // namespace orb
