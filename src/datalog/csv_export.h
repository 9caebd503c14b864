// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <functional>

namespace orb {

class OutputFile;
class Recordset;

/// The first line of an exported log of so many channels. `PVal`, the column of the current, is called V here and
/// `SVal` is called A: the file's labels are crossed on purpose.
QString csvHeader(int channels);

/// The first line of a file of rows that were put aside, with each column under its own unit: `PVal` is A, `SVal` is V.
QString unsavedCsvHeader(int channels);

/// The columns of a line for so many channels, as both files have them.
QString csvColumns(int channels);

/// The query for the rows to export. It asks for no order.
QString csvSelect(int channels);

/// Writes a line for each row of `rows`: SeqNo, RecTime, then both values of each channel, as the table gives them; Null
/// leaves its place empty. Throws `RuntimeFailure` 3265 without a first channel, and 13 for a number where a text is
/// needed. `check` is called at each row and may throw.
void writeCsvRows(Recordset& rows, int channels, OutputFile& file, const std::function<void()>& check = {});

} // namespace orb
