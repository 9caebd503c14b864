// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace orb {

class OutputFile;
class Recordset;

/// The first line of an exported log of so many channels. `PVal`, the column of the current, is called V here and
/// `SVal` is called A: the file's labels are crossed on purpose.
QString csvHeader(int channels);

/// The query for the rows to export. It asks for no order.
QString csvSelect(int channels);

/// Writes a line for each row of `rows`: SeqNo, RecTime, then both values of each channel, as the table gives them; Null
/// leaves its place empty. Throws `RuntimeFailure` 3265 without a first channel, and 13 for a number where a text is
/// needed.
void writeCsvRows(Recordset& rows, int channels, OutputFile& file);

} // namespace orb
