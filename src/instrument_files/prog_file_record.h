// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtEndian>

#include <array>
#include <cstddef>

namespace orb {

/// One program of a program file: ten steps, stored by field. Times are in 0.1 s.
struct ProgramBlock {
    static constexpr int stepCount = 10;

    std::array<quint8, stepCount> Memory; ///< the number of the instrument's memory minus 1
    std::array<qint16_le, stepCount> PFTime;
    std::array<qint16_le, stepCount> ShortCH; ///< the channels to short: bit 0 is CH1, bit 7 is CH8
    std::array<qint16_le, stepCount> ShortTime;
    std::array<qint16_le, stepCount> OnTimer;
    std::array<qint16_le, stepCount> OffTime;
    std::array<quint8, stepCount> RunMode; ///< 0 is SKIP, 1 is AUTO, 2 is MANUAL
};

/// The image of a program file (`.b`), byte for byte. The checksum is big-endian, all other numbers are little-endian.
/// Reserved bytes may hold anything, count for the checksum, and are kept.
struct ProgFileRecord {
    static constexpr int programCount = 12;

    quint32_be CheckSum; ///< the sum of all bytes after it
    std::array<std::byte, 4108> reserved4;
    std::array<std::byte, 4> reserved4112;
    std::array<ProgramBlock, programCount> programs;
    std::array<std::byte, 1> reserved5556;
    quint8 ChainStart; ///< the program at which the chain starts, counted from 0
    /// Entry p is the number, counted from 1, of the program that follows program p, counted from 0; 0 ends the chain.
    /// The last two entries belong to no program.
    std::array<quint8, 14> ChainNext;
    std::array<std::byte, 8> reserved5572;
};

static_assert(sizeof(ProgramBlock) == 120);
static_assert(offsetof(ProgramBlock, OnTimer) == 70);
static_assert(offsetof(ProgramBlock, RunMode) == 110);
static_assert(sizeof(ProgFileRecord) == 5580);
static_assert(offsetof(ProgFileRecord, programs) == 4116);
static_assert(offsetof(ProgFileRecord, ChainStart) == 5557);
static_assert(offsetof(ProgFileRecord, ChainNext) == 5558);
static_assert(offsetof(ProgFileRecord, reserved5572) == 5572);

} // namespace orb
