// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "program_memory.h"

#include <optional>

namespace orb {

/// The program file of a fresh instrument. None of its reserved bytes is 0: they hold the state of an instrument, of
/// which only the number of saves is known.
ProgFileRecord freshProgramFile();

/// The programs as a file, with its checksum. All bytes that hold no programs are those of `rest`. Times are rounded to
/// 0.1 s; a step without a memory becomes a skipped one with memory 1.
ProgFileRecord programFile(const ProgramMemory& programs, const ProgFileRecord& rest);

/// The programs of a file, whatever its checksum is. Nothing where a number is outside of what `ProgramMemory` holds.
std::optional<ProgramMemory> programsOf(const ProgFileRecord& file);

/// Adds 1 to the number of saves, among the reserved bytes.
void countSave(ProgFileRecord& file);

} // namespace orb
