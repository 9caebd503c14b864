// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace orb {

/// The command language as Markdown, a table for each section.
std::string commandsManual();

/// The load modules as a Markdown table.
std::string modulesManual();

/// The errors as a Markdown table.
std::string errorsManual();

} // namespace orb
