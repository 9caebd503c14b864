// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "command_table.h"

namespace orb {

/// The command language of the instrument, section by section. A new command is a new row in its section; the manual,
/// the reader of messages and the tests all go by the rows.
std::vector<CommandSection> instrumentCommands();

/// The sections.
CommandSection commonCommands();
CommandSection systemCommands();
CommandSection statusCommands();
CommandSection channelCommands();
CommandSection loadCommands();
CommandSection measureCommands();

/// The channel that a command means: the number behind the first node of its header, or else the selected channel.
int channelOf(const CommandContext& context, const CommandCall& call);

} // namespace orb
