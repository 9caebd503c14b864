// SPDX-License-Identifier: GPL-3.0-or-later
#include "random_record.h"

namespace orb {

SeqFileRecord sensibleSequence(std::mt19937& noise)
{
    const auto below = [&](unsigned bound) { return noise() % bound; };
    SeqFileRecord record{};
    constexpr quint8 modules[] = {1, 2, 3, 7};
    record.LoadModuleType = modules[below(4)];
    record.LoadRange = record.LoadModuleType == 1 ? quint8{1} : static_cast<quint8>(below(2));
    record.SeqVersion1 = 'A';
    record.SeqVersion2 = static_cast<char>('A' + below(26));
    record.SeqVersion3 = static_cast<quint8>(below(10));
    record.MasterFirmware = {'2', '.', '0', '1'};
    const int points = 1 + static_cast<int>(below(120));
    record.LoopEnd = static_cast<qint16>(below(points));
    record.LoopStart = static_cast<qint16>(below(record.LoopEnd + 1U));
    record.RepeatCount = static_cast<qint16>(below(32768));
    record.OnEndOfSeq = static_cast<qint16>(below(65536));
    record.VRange = static_cast<quint8>(below(2));
    for (int index = 0; index < points; ++index) {
        const auto at = static_cast<std::size_t>(index);
        record.Points[at].CurrentRaw = static_cast<qint16>(below(32768));
        record.Points[at].SlewUpRaw = static_cast<qint16>(below(32768));
        record.Points[at].SlewDownRaw = static_cast<qint16>(below(32768));
        record.Points[at].TimeBaseCode = static_cast<qint16>(5 + below(7));
        record.DurationCount[at] = static_cast<qint32>(below(2147483648U));
    }
    return sealed(record);
}

ProgFileRecord sensibleProgram(std::mt19937& noise)
{
    const auto below = [&](unsigned bound) { return noise() % bound; };
    ProgFileRecord record{};
    record.ChainStart = static_cast<quint8>(below(12));
    for (std::size_t program = 0; program < ProgFileRecord::programCount; ++program)
        record.ChainNext[program] = static_cast<quint8>(below(13));
    for (ProgramBlock& block : record.programs) {
        for (std::size_t step = 0; step < ProgramBlock::stepCount; ++step) {
            block.Memory[step] = static_cast<quint8>(below(120));
            block.RunMode[step] = static_cast<quint8>(below(3));
            block.ShortCH[step] = static_cast<qint16>(below(256));
            block.OnTimer[step] = static_cast<qint16>(below(601));
            block.OffTime[step] = static_cast<qint16>(below(601));
            block.PFTime[step] = static_cast<qint16>(below(1200));
            block.ShortTime[step] = static_cast<qint16>(below(601));
        }
    }
    return sealed(record);
}

} // namespace orb
