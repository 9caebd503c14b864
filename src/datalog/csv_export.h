// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace orb {

class OutputFile;
class Recordset;

/// The first line of an exported log of so many channels. `PVal`, the column of the current, is named V here and
/// `SVal` is named A: the crossing belongs to the file.
QString csvHeader(int channels);

/// The statement that gives the rows to export, in no order of its own.
QString csvSelect(int channels);

/// Writes a line for each row of `rows`: SeqNo, RecTime, then both values of each channel, as the table gives them; a
/// value that is Null leaves its place empty. There is always a first channel: throws `RuntimeFailure` 3265 where a
/// row has no such field, and 13 where a value that has to be text is a number.
void writeCsvRows(Recordset& rows, int channels, OutputFile& file);

} // namespace orb
