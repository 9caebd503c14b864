// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "command_table.h"

#include <string>

namespace orb {

/// One line of the catalogue out of which an operator takes commands.
struct CatalogueEntry {
    /// What is sent, in short forms without optional nodes: ":CURR:L1", ":FETC:VOLT?", "*CLS". A command that has a
    /// set form stands without a question mark, whether it can be asked or not.
    std::string text;
    std::string description;
    /// The parameters that stand behind it, "no parameter" or "query".
    std::string format;
};

/// The entries of one row: the command itself, one for each level where it has levels, and one for each limit that its
/// query tells.
std::vector<CatalogueEntry> catalogueEntries(const Command& command);

/// The catalogue of the whole command language: a line for each entry, "entry^description^format", each line ended by
/// a carriage return and a line feed.
std::string commandCatalogue();

} // namespace orb
