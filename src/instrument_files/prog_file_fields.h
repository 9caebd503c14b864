// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "prog_file_record.h"

#include <QString>

namespace orb {

/// A time of a program file, in 0.1 s, as seconds with one decimal: 600 gives "60.0".
QString secondsText(int tenths);

/// The time that the text begins with, in 0.1 s; "Off" gives 0. It has the range of a byte although its field is wider,
/// so 25.5 s is the longest. Throws `RuntimeFailure` 6 outside of it.
quint8 packedSeconds(const QString& text);

/// Stores the checksum of the record's content in it. False if what is stored then reads back as another number.
bool finishImage(ProgFileRecord& record);

} // namespace orb
