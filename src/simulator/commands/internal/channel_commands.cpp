// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_commands.h"

namespace orb {

namespace {

void selectChannel(CommandContext& context, const CommandCall& call)
{
    const double last = context.mainframe.channelCount();
    context.mainframe.selectChannel(call.integer(0, {1, last, 1}));
}

std::string queryModule(CommandContext& context, const CommandCall& call)
{
    return std::string(channelAt(context, call).module().name);
}

std::string queryRating(CommandContext& context, const CommandCall& call)
{
    const LoadModule& module = channelAt(context, call).module();
    return valueText(module.maxVoltage()) + ',' + valueText(module.maxCurrent()) + ',' + valueText(module.maxPower);
}

void displayChannel(CommandContext& context, const CommandCall& call)
{
    context.mainframe.displayChannel(channelOf(context, call));
}

constexpr Command rows[] = {
    {.header = "CHANnel[:SELect]",
     .parameters = "<channel>|MINimum|MAXimum",
     .example = "2",
     .summary = "Selects the channel that headers without a channel number mean.",
     .set = selectChannel,
     .query = queryNumber<&Mainframe::selectedChannel>},
    {.header = "CHANnel:COUNt", .summary = "The number of channels.", .query = queryNumber<&Mainframe::channelCount>},
    {.header = "CHANnel#:ID", .summary = "The name of the channel's load module.", .query = queryModule},
    {.header = "CHANnel#:RATing",
     .summary = "The maximum volts, amperes and watts of the channel's load module, separated by commas.",
     .query = queryRating},
    {.header = "CHANnel#:DISPlay",
     .summary = "Shows the channel large on the screen. Answers the number of the channel that is shown.",
     .set = displayChannel,
     .query = queryNumber<&Mainframe::displayedChannel>},
};

} // namespace

constinit const CommandSection channelCommands{"Channels", rows};

} // namespace orb
