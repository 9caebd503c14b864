// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "csv.h"
#include "file_table.h"
#include "prog_file_record.h"
#include "seq_file_record.h"

#include <cstddef>
#include <span>

namespace orb {

/// Bytes of a file without a meaning.
struct ReservedRun {
    std::size_t offset = 0;
    std::size_t size = 0;
};

/// All of them, in the order of the file.
std::vector<ReservedRun> reservedRuns(const SeqFileRecord& record);
std::vector<ReservedRun> reservedRuns(const ProgFileRecord& record);

/// A row for each piece of the runs that is not all 0.
std::vector<FileTable::Row> reservedRows(std::span<const std::byte> image, const std::vector<ReservedRun>& runs);

/// Whether the line is such a row.
bool isReservedLine(const CsvLine& line);

/// Writes the bytes of such a row into the image. Throws `CsvError` where one of them is no reserved byte.
void readReservedLine(const CsvLine& line, std::span<std::byte> image, const std::vector<ReservedRun>& runs);

} // namespace orb
