// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "command_table.h"

#include <string>

namespace orb {

/// One line of the catalogue from which an operator selects commands.
struct CatalogueEntry {
    /// The command in short forms without optional nodes: ":CURR:L1", ":FETC:VOLT?", "*CLS". A command with a set form
    /// has no question mark, whether it has a query form or not.
    std::string text;
    std::string description;
    /// Its parameters, "no parameter" or "query".
    std::string format;
};

/// The entries of one row: the command itself, one for each of its levels, and one for each limit that its query
/// answers.
std::vector<CatalogueEntry> catalogueEntries(const Command& command);

/// The catalogue of the whole command language: a line for each entry, "entry^description^format", each line ended by
/// a carriage return and a line feed.
std::string commandCatalogue();

} // namespace orb
