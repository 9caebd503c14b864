// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_commands.h"

namespace orb {

std::span<const CommandSection> instrumentCommands()
{
    static const CommandSection sections[] = {
        channelCommands, modeCommands,     setValueCommands, loadCommands,   measureCommands,
        limitCommands,   sequenceCommands, programCommands,  memoryCommands, fileCommands,
        panelCommands,   systemCommands,   statusCommands,   commonCommands,
    };
    return sections;
}

int channelOf(const CommandContext& context, const CommandCall& call)
{
    return call.suffix(0, context.mainframe.selectedChannel(), 1, context.mainframe.channelCount());
}

const LoadChannel& channelAt(const CommandContext& context, const CommandCall& call)
{
    return context.mainframe.channel(channelOf(context, call));
}

LoadChannel& changeAt(CommandContext& context, const CommandCall& call)
{
    return context.mainframe.change(channelOf(context, call));
}

} // namespace orb
