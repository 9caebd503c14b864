// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "record_file.h"
#include "seq_file_record.h"

#include <QByteArray>

#include <random>

namespace orb {

/// The record with the checksum that its bytes have.
inline SeqFileRecord withCheckSum(SeqFileRecord record)
{
    record.CheckSum = computedCheckSum(record);
    return record;
}

/// A sequence of a K12B in CC, range High, with a loop over the points 1 to `points`. Point i lasts i times 1 ms, has i
/// times 0.01 A, and slew rates that differ from each other.
inline SeqFileRecord sequenceRecord(int points = SeqFileRecord::pointCount)
{
    SeqFileRecord record{};
    record.LoadModuleType = 7;
    record.SeqVersion1 = 'A';
    record.SeqVersion2 = 'B';
    record.SeqVersion3 = 3;
    record.MasterFirmware = {'V', '1', '.', '2'};
    for (int i = 0; i < SeqFileRecord::pointCount; ++i) {
        SeqPoint& point = record.Points[static_cast<std::size_t>(i)];
        point.TimeBaseCode = 8;
        point.CurrentRaw = static_cast<qint16>(i + 1);
        point.SlewUpRaw = 250;
        point.SlewDownRaw = 125;
        record.DurationCount[static_cast<std::size_t>(i)] = i + 1;
    }
    record.RepeatCount = 3;
    record.LoopEnd = static_cast<qint16>(points - 1);
    record.LoadRange = 1;
    record.VRange = 1;
    return withCheckSum(record);
}

inline QByteArray bytesOf(const SeqFileRecord& record)
{
    return {reinterpret_cast<const char*>(&record), sizeof record};
}

/// A record of random bytes, the reserved ones and the checksum included.
inline SeqFileRecord randomRecord(std::mt19937& random)
{
    SeqFileRecord record{};
    for (std::byte& byte : imageOf(record))
        byte = static_cast<std::byte>(random());
    return record;
}

} // namespace orb
