// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_commands.h"

namespace orb {

namespace {

void switchInput(CommandContext& context, const CommandCall& call)
{
    context.mainframe.switchInput(channelOf(context, call), call.boolean(0));
}

std::string queryInput(CommandContext& context, const CommandCall& call)
{
    return switchText(channelAt(context, call).inputOn());
}

void switchAll(CommandContext& context, const CommandCall& call)
{
    const bool on = call.boolean(0);
    for (int number = 1; number <= context.mainframe.channelCount(); ++number)
        context.mainframe.switchInput(number, on);
}

std::string queryAll(CommandContext& context, const CommandCall&)
{
    const Mainframe& mainframe = context.mainframe;
    return commaList(mainframe.channelCount(),
                     [&](int number) { return switchText(mainframe.channel(number).inputOn()); });
}

std::string queryTripped(CommandContext& context, const CommandCall& call)
{
    const unsigned condition = channelAt(context, call).condition();
    if ((condition & LoadChannel::OverVoltage) != 0)
        return "OV";
    if ((condition & LoadChannel::OverPower) != 0)
        return "OP";
    return (condition & LoadChannel::OverCurrent) != 0 ? "OC" : "NONE";
}

void clearTrips(CommandContext& context, const CommandCall& call)
{
    changeAt(context, call).clearTrips();
}

/// Protection can be set up to the module's own.
template <Quantity Of> NumberLimits protectionLimits(const LoadChannel& channel)
{
    const double own = LoadSettings::afterReset(channel.module()).protection[Of];
    return {0, own, own};
}

template <Quantity Of> void setProtection(CommandContext& context, const CommandCall& call)
{
    LoadChannel& channel = changeAt(context, call);
    channel.setProtection(Of, call.number(0, unitOf(Of), protectionLimits<Of>(channel)));
}

template <Quantity Of> std::string queryProtection(CommandContext& context, const CommandCall& call)
{
    const LoadChannel& channel = channelAt(context, call);
    return valueText(call.limitOr(channel.settings().protection[Of], protectionLimits<Of>(channel)));
}

void setShort(CommandContext& context, const CommandCall& call)
{
    const bool on = call.boolean(0);
    LoadChannel& channel = changeAt(context, call);
    if (on && !channel.inputOn())
        throw CommandFailure{ErrorNumber::SettingsConflict};
    channel.setShort(on);
}

std::string queryShort(CommandContext& context, const CommandCall& call)
{
    return switchText(channelAt(context, call).isShort());
}

NumberLimits onVoltageLimits(const LoadChannel& channel)
{
    return {0, channel.module().maxVoltage(), 0};
}

void setOnVoltage(CommandContext& context, const CommandCall& call)
{
    LoadChannel& channel = changeAt(context, call);
    channel.setOnVoltage(call.number(0, Unit::Volt, onVoltageLimits(channel)), channel.settings().latched);
}

std::string queryOnVoltage(CommandContext& context, const CommandCall& call)
{
    const LoadChannel& channel = channelAt(context, call);
    return valueText(call.limitOr(channel.settings().onVoltage, onVoltageLimits(channel)));
}

void setLatch(CommandContext& context, const CommandCall& call)
{
    LoadChannel& channel = changeAt(context, call);
    channel.setOnVoltage(channel.settings().onVoltage, call.boolean(0));
}

std::string queryLatch(CommandContext& context, const CommandCall& call)
{
    return switchText(channelAt(context, call).settings().latched);
}

template <Quantity Of>
constexpr Command protectionRow(std::string_view header, std::string_view parameters, std::string_view example,
                                std::string_view summary)
{
    return {.header = header,
            .parameters = parameters,
            .queryParameters = limitNames,
            .example = example,
            .summary = summary,
            .set = setProtection<Of>,
            .query = queryProtection<Of>};
}

constexpr Command rows[] = {
    {.header = "LOAD#[:STATe]",
     .parameters = onOrOff,
     .example = "ON",
     .summary = "Switches the input. Switching on clears a tripped protection. Answers 1 or 0.",
     .set = switchInput,
     .query = queryInput},
    {.header = "LOAD:ALL",
     .parameters = onOrOff,
     .example = "OFF",
     .summary = "Switches the inputs of all channels. Answers 1 or 0 for each, separated by commas.",
     .set = switchAll,
     .query = queryAll},
    {.header = "LOAD#:PROTection",
     .summary = "Which protection has tripped or limits the input now: OV over voltage, OP over power, OC over "
                "current, or NONE.",
     .query = queryTripped},
    {.header = "LOAD#:PROTection:CLEar",
     .summary = "Clears a tripped protection; the input stays off.",
     .set = clearTrips},
    protectionRow<Voltage>("LOAD#:PROTection:VOLTage", voltsOrLimit, "20 V",
                           "The volts above which the input goes off."),
    protectionRow<Current>("LOAD#:PROTection:CURRent", amperesOrLimit, "2.5",
                           "The amperes above which the input goes off."),
    protectionRow<Power>("LOAD#:PROTection:POWer", wattsOrLimit, "25 W", "The watts above which the input goes off."),
    {.header = "LOAD#:SHORt",
     .parameters = onOrOff,
     .example = "ON",
     .before = ":LOAD ON",
     .summary = "Shorts the terminals with the maximum current of the module. The input must be on; when it goes off, "
                "the short ends. Answers 1 or 0.",
     .set = setShort,
     .query = queryShort},
    {.header = "CONFigure#:VOLTage:ON",
     .parameters = voltsOrLimit,
     .queryParameters = limitNames,
     .example = "2.5",
     .summary = "The least volts of the source at which an input that is on draws a current.",
     .set = setOnVoltage,
     .query = queryOnVoltage},
    {.header = "CONFigure#:VOLTage:LATCh",
     .parameters = onOrOff,
     .example = "ON",
     .summary = "Whether an input that draws a current goes on when the source falls below the load-on voltage. "
                "Answers 1 or 0.",
     .set = setLatch,
     .query = queryLatch},
    {.header = "ABORt",
     .summary = "Switches the inputs of all channels off.",
     .set = perform<&Mainframe::switchAllOff>},
};

} // namespace

constinit const CommandSection loadCommands{"Load", rows};

} // namespace orb
