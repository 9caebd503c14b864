// SPDX-License-Identifier: GPL-3.0-or-later
#include "program_memory.h"

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

void ProgramStore::revert()
{
    programs = saved_;
    program = 1;
    step = 1;
}

} // namespace orb
