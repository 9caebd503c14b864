// SPDX-License-Identifier: GPL-3.0-or-later
#include "answer_text.h"
#include "instrument_commands.h"
#include "mainframe.h"

#include "instrument_error.h"

namespace orb {

namespace {

/// Slew rates go down to 0.00008 A/us.
constexpr int slewDecimals = 5;

struct ModeRow {
    std::string_view word;
    LoadFunction function;
    /// Nothing: the range in force stays.
    std::optional<LoadRange> range;
};

constexpr ModeRow modes[] = {
    {"CC", LoadFunction::Current, std::nullopt},       {"CCL", LoadFunction::Current, LoadRange::Low},
    {"CCH", LoadFunction::Current, LoadRange::High},   {"CR", LoadFunction::Resistance, std::nullopt},
    {"CRL", LoadFunction::Resistance, LoadRange::Low}, {"CRH", LoadFunction::Resistance, LoadRange::High},
    {"CV", LoadFunction::Voltage, std::nullopt},
};

constexpr std::string_view modeWords[] = {"CC", "CCL", "CCH", "CR", "CRL", "CRH", "CV"};
static_assert(std::size(modes) == std::size(modeWords));

constexpr std::string_view rangeWords[] = {"Low", "High"};

const LoadChannel& channelAt(const CommandContext& context, const CommandCall& call)
{
    return context.mainframe.channel(channelOf(context, call));
}

LoadChannel& changeAt(CommandContext& context, const CommandCall& call)
{
    return context.mainframe.change(channelOf(context, call));
}

void setMode(CommandContext& context, const CommandCall& call)
{
    const ModeRow& mode = modes[call.choice(0, modeWords)];
    LoadChannel& channel = changeAt(context, call);
    const LoadRange range = mode.range.value_or(channel.settings().range(mode.function));
    if (!channel.module().range(mode.function, range).exists())
        throw CommandFailure{ErrorNumber::HardwareMissing};
    channel.setMode(mode.function, range);
}

std::string queryMode(CommandContext& context, const CommandCall& call)
{
    return std::string(modeName(channelAt(context, call).settings()));
}

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

void setVoltageRange(CommandContext& context, const CommandCall& call)
{
    const auto range = static_cast<LoadRange>(call.choice(0, rangeWords));
    changeAt(context, call).setVoltageRange(range);
}

std::string queryVoltageRange(CommandContext& context, const CommandCall& call)
{
    return channelAt(context, call).settings().range(LoadFunction::Voltage) == LoadRange::High ? "HIGH" : "LOW";
}

void switchInput(LoadChannel& channel, bool on)
{
    if (on)
        channel.switchOn();
    else
        channel.switchOff();
}

void switchAll(CommandContext& context, const CommandCall& call)
{
    const bool on = call.boolean(0);
    for (int number = 1; number <= context.mainframe.channelCount(); ++number)
        switchInput(context.mainframe.change(number), on);
}

std::string queryAll(CommandContext& context, const CommandCall&)
{
    std::string states;
    for (int number = 1; number <= context.mainframe.channelCount(); ++number) {
        states += number > 1 ? "," : "";
        states += context.mainframe.channel(number).inputOn() ? '1' : '0';
    }
    return states;
}

std::string queryProtection(CommandContext& context, const CommandCall& call)
{
    const unsigned condition = channelAt(context, call).condition();
    if ((condition & LoadChannel::OverVoltage) != 0)
        return "OV";
    if ((condition & LoadChannel::OverPower) != 0)
        return "OP";
    return (condition & LoadChannel::OverCurrent) != 0 ? "OC" : "NONE";
}

std::string queryRating(CommandContext& context, const CommandCall& call)
{
    const LoadModule& module = channelAt(context, call).module();
    return valueText(module.maxVoltage()) + ',' + valueText(module.maxCurrent()) + ',' + valueText(module.maxPower);
}

} // namespace

CommandSection channelCommands()
{
    using Context = CommandContext;
    using Call = CommandCall;
    return {
        "Channels",
        {
            {.header = "CHANnel[:SELect]",
             .parameters = "<channel>|MINimum|MAXimum",
             .example = "2",
             .summary = "Selects the channel that headers without a channel number mean.",
             .set =
                 [](Context& context, const Call& call) {
                     const double last = context.mainframe.channelCount();
                     context.mainframe.selectChannel(call.integer(0, {1, last, 1}));
                 },
             .query = [](Context& context,
                         const Call&) { return std::to_string(context.mainframe.selectedChannel()); }},
            {.header = "CHANnel:COUNt",
             .summary = "The number of channels.",
             .query = [](Context& context, const Call&) { return std::to_string(context.mainframe.channelCount()); }},
            {.header = "CHANnel#:ID",
             .summary = "The name of the channel's load module.",
             .query = [](Context& context,
                         const Call& call) { return std::string(channelAt(context, call).module().name); }},
            {.header = "CHANnel#:RATing",
             .summary = "The volts, amperes and watts that the channel's load module takes, separated by commas.",
             .query = queryRating},
            {.header = "CHANnel#:DISPlay",
             .summary = "Shows the channel large on the screen. Answers the number of the channel that is shown.",
             .set = [](Context& context,
                       const Call& call) { context.mainframe.displayChannel(channelOf(context, call)); },
             .query = [](Context& context,
                         const Call&) { return std::to_string(context.mainframe.displayedChannel()); }},
        },
    };
}

CommandSection loadCommands()
{
    using Context = CommandContext;
    using Call = CommandCall;
    constexpr static std::string_view limits = "[MINimum|MAXimum|DEFault]";
    return {
        "Load",
        {
            {.header = "MODE#",
             .parameters = "CC|CCL|CCH|CR|CRL|CRH|CV",
             .example = "CRL",
             .summary =
                 "The mode and its range, L low and H high; CC and CR leave the range as it is. A change switches "
                 "the input off. Answers CCL, CCH, CRL, CRH or CV.",
             .set = setMode,
             .query = queryMode},
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
            {.header = "VOLTage#:RANGe",
             .parameters = "Low|High",
             .example = "HIGH",
             .summary = "The range of the voltage, for the meter and for CV. A change switches the input off. Answers "
                        "LOW or HIGH.",
             .set = setVoltageRange,
             .query = queryVoltageRange},
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
            {.header = "LOAD#[:STATe]",
             .parameters = "ON|OFF|1|0",
             .example = "ON",
             .summary = "Switches the input. Switching on clears what protection has tripped. Answers 1 or 0.",
             .set = [](Context& context, const Call& call) { switchInput(changeAt(context, call), call.boolean(0)); },
             .query = [](Context& context, const Call& call) -> std::string {
                 return channelAt(context, call).inputOn() ? "1" : "0";
             }},
            {.header = "LOAD:ALL",
             .parameters = "ON|OFF|1|0",
             .example = "OFF",
             .summary = "Switches the inputs of all channels. Answers 1 or 0 for each, separated by commas.",
             .set = switchAll,
             .query = queryAll},
            {.header = "LOAD#:PROTection",
             .summary = "What protection has tripped, or is limiting now: OV over voltage, OP over power, OC over "
                        "current, or NONE.",
             .query = queryProtection},
            {.header = "LOAD#:PROTection:CLEar",
             .summary = "Clears what protection has tripped; the input stays off.",
             .set = [](Context& context, const Call& call) { changeAt(context, call).clearTrips(); }},
            {.header = "ABORt",
             .summary = "Switches the inputs of all channels off.",
             .set = [](Context& context, const Call&) { context.mainframe.switchAllOff(); }},
        },
    };
}

} // namespace orb
