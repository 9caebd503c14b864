// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "file_table.h"
#include "prog_file_record.h"

#include <string_view>

namespace orb {

/// The content of a program file, whatever its checksum is: all 120 steps.
FileTable programTable(const ProgFileRecord& record);

/// The record that the comma-separated values of programs make, with its checksum: what `csvOf(programTable(record))`
/// gives makes the same record. A step that is missing is skipped and has memory 1, a program that is missing ends the
/// chain, and the chain starts at P01. Throws `CsvError` for what is wrong.
ProgFileRecord readProgram(std::string_view csv);

} // namespace orb
