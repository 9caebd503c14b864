// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "command_table.h"

namespace orb {

/// All rows of the command table, without their sections.
std::vector<Command> allRows();

/// The forms of the header of a row: its long form with all optional nodes, its short form without any, and the short
/// form in small letters with a leading colon and a number after every node that can have one.
std::vector<std::string> formsOf(std::string_view header);

} // namespace orb
