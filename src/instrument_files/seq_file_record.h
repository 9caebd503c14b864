// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtEndian>

#include <array>
#include <cstddef>

namespace orb {

/// One of the 120 points of a sequence file. Its duration stands in the record's own table.
struct SeqPoint {
    std::array<std::byte, 2> reserved0;
    qint16_le CurrentRaw; ///< in steps of the module's value scale
    std::array<std::byte, 2> reserved4;
    qint16_le SlewUpRaw;    ///< in steps of the module's slew scale
    qint16_le SlewDownRaw;  ///< in steps of the module's slew scale
    qint16_le TimeBaseCode; ///< what one count of the duration is worth
    std::array<std::byte, 8> reserved12;
};

/// The image of a sequence file (`.a`), byte for byte. The checksum is big-endian, all other numbers are little-endian.
/// Reserved bytes may hold anything, count for the checksum, and are kept.
struct SeqFileRecord {
    static constexpr int pointCount = 120;

    quint32_be CheckSum; ///< the sum of all bytes after it
    quint8 LoadModuleType;
    char SeqVersion1;
    char SeqVersion2;
    quint8 SeqVersion3; ///< a number; shown as the character with that code plus 48
    std::array<char, 4> MasterFirmware;
    std::array<SeqPoint, pointCount> Points;
    std::array<qint32_le, pointCount> DurationCount; ///< entry i is the duration of point i in units of its time base
    qint16_le LoopStart;                             ///< counted from 0
    qint16_le RepeatCount;                           ///< 0 means for ever
    qint16_le LoopEnd;                               ///< counted from 0
    quint8 LoadMode;
    quint8 LoadRange;
    std::array<std::byte, 2> reserved2900;
    quint8 VRange; ///< 0 is 16 V, 1 is 80 V
    std::array<std::byte, 1> reserved2903;
    qint16_le OnEndOfSeq;
    std::array<std::byte, 6> reserved2906;
    std::array<std::byte, 1468> deviceBlock;
};

static_assert(sizeof(SeqPoint) == 20);
static_assert(offsetof(SeqPoint, TimeBaseCode) == 10);
static_assert(sizeof(SeqFileRecord) == 4380);
static_assert(offsetof(SeqFileRecord, Points) == 12);
static_assert(offsetof(SeqFileRecord, DurationCount) == 2412);
static_assert(offsetof(SeqFileRecord, LoopStart) == 2892);
static_assert(offsetof(SeqFileRecord, OnEndOfSeq) == 2904);
static_assert(offsetof(SeqFileRecord, deviceBlock) == 2912);

} // namespace orb
