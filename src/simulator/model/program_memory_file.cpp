// SPDX-License-Identifier: GPL-3.0-or-later
#include "program_memory_file.h"

#include "record_file.h"

#include <QtEndian>

#include <algorithm>
#include <cmath>

namespace orb {

namespace {

using Step = ProgramMemory::Step;

/// One of the times of a step, in the programs and in the file.
struct TimeField {
    double Step::*seconds;
    std::array<qint16_le, ProgramBlock::stepCount> ProgramBlock::*tenths;
    double most; // seconds
};

constexpr TimeField times[] = {
    {&Step::onSeconds, &ProgramBlock::OnTimer, ProgramMemory::maxSeconds},
    {&Step::offSeconds, &ProgramBlock::OffTime, ProgramMemory::maxSeconds},
    {&Step::judgeSeconds, &ProgramBlock::PFTime, ProgramMemory::maxJudgeSeconds},
    {&Step::shortSeconds, &ProgramBlock::ShortTime, ProgramMemory::maxSeconds},
};

constexpr int memoryCount = ProgramMemory::programCount * ProgramMemory::stepCount;
constexpr int lastMode = static_cast<int>(ProgramMemory::RunMode::Manual);
constexpr int allChannels = 255;

std::size_t at(int number)
{
    return static_cast<std::size_t>(number - 1);
}

void writeStep(const Step& step, ProgramBlock& block, std::size_t index)
{
    const bool skipped = step.memory == 0;
    block.Memory[index] = static_cast<quint8>(skipped ? 0 : step.memory - 1);
    block.RunMode[index] = skipped ? quint8{0} : static_cast<quint8>(step.mode);
    block.ShortCH[index] = static_cast<qint16>(step.shortChannels);
    for (const TimeField& time : times)
        (block.*time.tenths)[index] = static_cast<qint16>(std::lround(step.*time.seconds * 10));
}

/// Nothing where the instrument can't hold a number of the step.
std::optional<Step> readStep(const ProgramBlock& block, std::size_t index)
{
    const int channels = block.ShortCH[index];
    if (block.Memory[index] >= memoryCount || block.RunMode[index] > lastMode || channels < 0 || channels > allChannels)
        return std::nullopt;
    Step step;
    step.memory = block.Memory[index] + 1;
    step.mode = static_cast<ProgramMemory::RunMode>(block.RunMode[index]);
    step.shortChannels = static_cast<unsigned>(channels);
    for (const TimeField& time : times) {
        const double seconds = (block.*time.tenths)[index] / 10.0;
        if (seconds < 0 || seconds > time.most)
            return std::nullopt;
        step.*time.seconds = seconds;
    }
    return step;
}

bool readProgram(const ProgFileRecord& file, int program, ProgramMemory& programs)
{
    if (file.ChainNext[at(program)] > ProgramMemory::programCount)
        return false;
    programs.next(program) = file.ChainNext[at(program)];
    for (int number = 1; number <= ProgramMemory::stepCount; ++number) {
        const std::optional<Step> step = readStep(file.programs[at(program)], at(number));
        if (!step)
            return false;
        programs.step(program, number) = *step;
    }
    return true;
}

} // namespace

ProgFileRecord freshProgramFile()
{
    ProgFileRecord file{};
    int next = 0;
    for (std::byte& byte : imageOf(file))
        byte = static_cast<std::byte>(next++ % 255 + 1);
    qToLittleEndian(quint32{1}, file.reserved5572.data());
    std::fill(file.reserved5572.begin() + sizeof(quint32), file.reserved5572.end(), std::byte{0x5a});
    return file;
}

void countSave(ProgFileRecord& file)
{
    const auto saves = qFromLittleEndian<quint32>(file.reserved5572.data());
    qToLittleEndian(saves + 1, file.reserved5572.data());
}

ProgFileRecord programFile(const ProgramMemory& programs, const ProgFileRecord& rest)
{
    ProgFileRecord file = rest;
    file.ChainStart = static_cast<quint8>(programs.start - 1);
    for (int program = 1; program <= ProgramMemory::programCount; ++program) {
        file.ChainNext[at(program)] = static_cast<quint8>(programs.next(program));
        for (int number = 1; number <= ProgramMemory::stepCount; ++number)
            writeStep(programs.step(program, number), file.programs[at(program)], at(number));
    }
    file.CheckSum = computedCheckSum(file);
    return file;
}

std::optional<ProgramMemory> programsOf(const ProgFileRecord& file)
{
    ProgramMemory programs;
    if (file.ChainStart >= ProgramMemory::programCount)
        return std::nullopt;
    programs.start = file.ChainStart + 1;
    for (int program = 1; program <= ProgramMemory::programCount; ++program) {
        if (!readProgram(file, program, programs))
            return std::nullopt;
    }
    return programs;
}

} // namespace orb
