// SPDX-License-Identifier: GPL-3.0-or-later
#include "program_memory.h"

#include "program_memory_file.h"

namespace orb {

bool ProgramMemory::Step::takesTime() const
{
    if (memory == 0 || mode == RunMode::Skip)
        return false;
    return mode == RunMode::Manual || onSeconds > 0 || offSeconds > 0;
}

ProgramMemory::ProgramMemory()
{
    int memory = 0;
    for (Step& step : steps)
        step.memory = ++memory;
}

ProgramStore::ProgramStore() : rest_(freshProgramFile()) {}

void ProgramStore::save()
{
    saved_ = programs;
    countSave(rest_);
}

ProgFileRecord ProgramStore::file() const
{
    return programFile(programs, rest_);
}

bool ProgramStore::takeFile(const ProgFileRecord& file)
{
    const auto read = programsOf(file);
    if (!read)
        return false;
    programs = *read;
    saved_ = *read;
    rest_ = file;
    return true;
}

void ProgramStore::revert()
{
    programs = saved_;
    program = 1;
    step = 1;
}

} // namespace orb
