// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace orb {

/// The command language as Markdown tables, a section each, made from the rows of the command table.
std::string commandsManual();

/// The load modules as a Markdown table, made from the catalogue.
std::string modulesManual();

/// The errors as a Markdown table.
std::string errorsManual();

} // namespace orb
