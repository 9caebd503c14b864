// SPDX-License-Identifier: GPL-3.0-or-later
#include "answer_text.h"
#include "instrument_commands.h"
#include "mainframe.h"

#include "instrument_error.h"

namespace orb {

namespace {

void switchAll(CommandContext& context, const CommandCall& call)
{
    const bool on = call.boolean(0);
    for (int number = 1; number <= context.mainframe.channelCount(); ++number)
        context.mainframe.switchInput(number, on);
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

enum Quantity : std::size_t { Voltage, Current, Power };

template <Quantity Of> constexpr Unit unitOf()
{
    return Of == Voltage ? Unit::Volt : Of == Current ? Unit::Ampere : Unit::Watt;
}

/// Protection may reach as far as the module's own.
template <Quantity Of> NumberLimits protectionLimits(const LoadChannel& channel)
{
    const double own = LoadSettings::afterReset(channel.module()).protection[Of];
    return {0, own, own};
}

template <Quantity Of> void setProtection(CommandContext& context, const CommandCall& call)
{
    LoadChannel& channel = changeAt(context, call);
    channel.setProtection(Of, call.number(0, unitOf<Of>(), protectionLimits<Of>(channel)));
}

template <Quantity Of> std::string queryProtectionOf(CommandContext& context, const CommandCall& call)
{
    const LoadChannel& channel = channelAt(context, call);
    if (call.parameterCount() > 0)
        return valueText(call.limit(0, protectionLimits<Of>(channel)));
    return valueText(channel.settings().protection[Of]);
}

void setShort(CommandContext& context, const CommandCall& call)
{
    const bool on = call.boolean(0);
    LoadChannel& channel = changeAt(context, call);
    if (on && !channel.inputOn())
        throw CommandFailure{ErrorNumber::SettingsConflict};
    channel.setShort(on);
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
    if (call.parameterCount() > 0)
        return valueText(call.limit(0, onVoltageLimits(channel)));
    return valueText(channel.settings().onVoltage);
}

void setLatch(CommandContext& context, const CommandCall& call)
{
    LoadChannel& channel = changeAt(context, call);
    channel.setOnVoltage(channel.settings().onVoltage, call.boolean(0));
}

} // namespace

CommandSection loadCommands()
{
    using Context = CommandContext;
    using Call = CommandCall;
    constexpr static std::string_view limits = "[MINimum|MAXimum|DEFault]";
    return {
        "Load",
        {
            {.header = "LOAD#[:STATe]",
             .parameters = "ON|OFF|1|0",
             .example = "ON",
             .summary = "Switches the input. Switching on clears what protection has tripped. Answers 1 or 0.",
             .set = [](Context& context,
                       const Call& call) { context.mainframe.switchInput(channelOf(context, call), call.boolean(0)); },
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
            {.header = "LOAD#:PROTection:VOLTage",
             .parameters = "<V>|MINimum|MAXimum|DEFault",
             .queryParameters = limits,
             .example = "20 V",
             .summary = "The volts beyond which the input goes off.",
             .set = setProtection<Voltage>,
             .query = queryProtectionOf<Voltage>},
            {.header = "LOAD#:PROTection:CURRent",
             .parameters = "<A>|MINimum|MAXimum|DEFault",
             .queryParameters = limits,
             .example = "2.5",
             .summary = "The amperes beyond which the input goes off.",
             .set = setProtection<Current>,
             .query = queryProtectionOf<Current>},
            {.header = "LOAD#:PROTection:POWer",
             .parameters = "<W>|MINimum|MAXimum|DEFault",
             .queryParameters = limits,
             .example = "25 W",
             .summary = "The watts beyond which the input goes off.",
             .set = setProtection<Power>,
             .query = queryProtectionOf<Power>},
            {.header = "LOAD#:SHORt",
             .parameters = "ON|OFF|1|0",
             .example = "ON",
             .before = ":LOAD ON",
             .summary = "Shorts the terminals with all the current that the module has. The input must be on; when it "
                        "goes off, the short has ended. Answers 1 or 0.",
             .set = setShort,
             .query = [](Context& context, const Call& call) -> std::string {
                 return channelAt(context, call).isShort() ? "1" : "0";
             }},
            {.header = "CONFigure#:VOLTage:ON",
             .parameters = "<V>|MINimum|MAXimum|DEFault",
             .queryParameters = limits,
             .example = "2.5",
             .summary = "The volts of the source from which on an input that is on draws a current.",
             .set = setOnVoltage,
             .query = queryOnVoltage},
            {.header = "CONFigure#:VOLTage:LATCh",
             .parameters = "ON|OFF|1|0",
             .example = "ON",
             .summary = "Whether an input that draws a current goes on when the source falls below the load-on "
                        "voltage. Answers 1 or 0.",
             .set = setLatch,
             .query = [](Context& context, const Call& call) -> std::string {
                 return channelAt(context, call).settings().latched ? "1" : "0";
             }},
            {.header = "ABORt",
             .summary = "Switches the inputs of all channels off.",
             .set = [](Context& context, const Call&) { context.mainframe.switchAllOff(); }},
        },
    };
}

} // namespace orb
