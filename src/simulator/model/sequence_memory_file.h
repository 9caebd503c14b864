// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "prog_file_record.h"
#include "seq_file_record.h"

namespace orb {

class LoadChannel;
struct SequenceMemory;

/// The sequence as a file, with its checksum: in CC, for the range and if possible the module of `channel`. It is a
/// module that holds all currents, and one whose steps give the values of the loop without rounding if there is such a
/// one; a module without known steps is never taken. The device block is the last section of `programs`.
SeqFileRecord sequenceFile(const SequenceMemory& sequence, const LoadChannel& channel, const ProgFileRecord& programs);

} // namespace orb
