// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "file_table.h"
#include "prog_file_record.h"
#include "seq_file_record.h"

#include <string_view>
#include <variant>

namespace orb {

/// A sequence file or a program file with the right checksum.
using CheckedFile = std::variant<SeqFileRecord, ProgFileRecord>;

/// The record of the whole content of a file; its length tells which one. Throws `std::runtime_error` with the reason for
/// another length and for a wrong checksum.
CheckedFile readCheckedFile(std::string_view content);

FileTable tableOf(const CheckedFile& file);

/// "sequence file, 4380 bytes, checksum 1234".
std::string describe(const CheckedFile& file);

} // namespace orb
