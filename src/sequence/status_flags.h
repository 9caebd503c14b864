// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace orb {

/// The words of the single bits of the instrument's status bytes. Bit 7 has two meanings, by the byte that it is in;
/// bit 5 has none.
QString ByteToEndofStatus(quint8 status);                 ///< bit 0: "ON", "OFF"
QString ByteToSeqFlag(quint8 status);                     ///< bit 0: "ON", "OFF"
QString ByteToLoadStatusRange(quint8 status);             ///< bit 0: "High", "Low"
QString ByteToLoadStatusDyna(quint8 status);              ///< bit 1: "ON", "OFF"
QString ByteToLoadStatusGongo(quint8 status);             ///< bit 2: "ON", "OFF"
QString ByteToLoadStatusGongoprecentvalue(quint8 status); ///< bit 3: "Precent", "Value"
QString ByteToLoadStatusT1_range(quint8 status);          ///< bit 4: "1", "0"
QString ByteToLoadStatusVrange(quint8 status);            ///< bit 6: "High 80V", "Low 16V"
QString ByteToLoadStatusResponse(quint8 status);          ///< bit 7: "FAST 10k", "SLOW 1k"
QString ByteToLoadStatusT2_range(quint8 status);          ///< bit 7: "1", "0"

} // namespace orb
