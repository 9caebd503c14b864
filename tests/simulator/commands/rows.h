// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "command_table.h"

namespace orb {

/// All rows of the command table, without their sections.
std::vector<Command> allRows();

/// The ways to write the header of a row: its long form with all optional nodes, its short form without any, and the
/// short form in small letters with a colon before it and a number behind every node that can have one.
std::vector<std::string> waysToWrite(std::string_view header);

} // namespace orb
