// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_commands.h"
#include "mainframe.h"

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

} // namespace

CommandSection loadCommands()
{
    using Context = CommandContext;
    using Call = CommandCall;
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
            {.header = "ABORt",
             .summary = "Switches the inputs of all channels off.",
             .set = [](Context& context, const Call&) { context.mainframe.switchAllOff(); }},
        },
    };
}

} // namespace orb
