// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <functional>

namespace orb {

class OutputFile;

/// How many files of rows that were put aside a folder keeps.
constexpr int keptRecoveredFiles = 20;

/// Adds a file to the folder, which is made where it is missing, and deletes the oldest ones beyond those it keeps; files
/// of other names are left alone. `time`, "YYYY/MM/DD HH:MM:SS", names the file; a name that is taken gets a number. A
/// file of that time with the same bytes is there only once. The path of the file, which is on the disk by then. Throws
/// what `write` and `OutputFile` throw, and then nothing was added.
QString addRecoveredFile(const QString& folder, const QString& time, const std::function<void(OutputFile&)>& write);

} // namespace orb
