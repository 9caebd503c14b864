// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "command_table.h"

namespace orb {

class LoadChannel;

/// The command language of the instrument, section by section, in the order in which an operator looks for them. A new command is a new row in its section; the manual,
/// the reader of messages and the tests all go by the rows.
std::vector<CommandSection> instrumentCommands();

/// The sections.
CommandSection channelCommands();
CommandSection modeCommands();
CommandSection setValueCommands();
CommandSection loadCommands();
CommandSection measureCommands();
CommandSection sequenceCommands();
CommandSection programCommands();
CommandSection memoryCommands();
CommandSection panelCommands();
CommandSection systemCommands();
CommandSection statusCommands();
CommandSection commonCommands();

/// The rows of the section Measurement that judge readings.
std::vector<Command> limitCommands();

/// The channel that a command means: the number behind the first node of its header, or else the selected channel.
int channelOf(const CommandContext& context, const CommandCall& call);
const LoadChannel& channelAt(const CommandContext& context, const CommandCall& call);
/// The same for a change of it.
LoadChannel& changeAt(CommandContext& context, const CommandCall& call);

} // namespace orb
