// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace orb {

/// The lines of a text file. Throws `TourFailure` where it can't be read.
QStringList linesOf(const QString& path);

/// Compares an exported log with what the instrument says it served from line `firstServed` of its record on: each
/// row must hold the values of one pair of answers, to the last character, in their order, none left out. Throws
/// `TourFailure` at the first difference. The result is the number of rows.
int compareWithServed(const QString& csvPath, const QString& servedPath, int firstServed);

} // namespace orb
