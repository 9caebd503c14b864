// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_commands.h"

#include "mainframe.h"

namespace orb {

std::vector<CommandSection> instrumentCommands()
{
    return {commonCommands(), systemCommands(), statusCommands(), channelCommands(), loadCommands(), measureCommands()};
}

int channelOf(const CommandContext& context, const CommandCall& call)
{
    return call.suffix(0, context.mainframe.selectedChannel(), 1, context.mainframe.channelCount());
}

} // namespace orb
