// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "file_table.h"
#include "seq_file_record.h"

#include <string_view>

namespace orb {

/// The content of a sequence file, whatever its checksum is. Points of zeros at the end are left out, but no point of
/// the loop.
FileTable sequenceTable(const SeqFileRecord& record);

/// The record that the comma-separated values of a sequence make, with its checksum: what `csvOf(sequenceTable(record))`
/// gives makes the same record. The load module and the range must be given. Other settings that are missing are: mode
/// CC, versions 1.0 and 1.00, 80 V, a loop of all points that is repeated once, end value 0. A time base that is missing
/// is chosen. Throws `CsvError` for what is wrong.
SeqFileRecord readSequence(std::string_view csv);

} // namespace orb
