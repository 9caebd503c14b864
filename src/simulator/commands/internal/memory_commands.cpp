// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_commands.h"

namespace orb {

namespace {

std::string queryCount(CommandContext&, const CommandCall&)
{
    return std::to_string(Mainframe::memoryCount);
}

std::string queryUsed(CommandContext& context, const CommandCall&)
{
    int used = 0;
    for (int number = 1; number <= Mainframe::memoryCount; ++number)
        used += context.mainframe.isWritten(number) ? 1 : 0;
    return std::to_string(used);
}

/// Whether one memory holds settings, or the same of all memories.
std::string queryState(CommandContext& context, const CommandCall& call)
{
    constexpr int last = Mainframe::memoryCount;
    const auto state = [&](int number) { return switchText(context.mainframe.isWritten(number)); };
    return call.parameterCount() > 0 ? state(call.integer(0, {1, last, 1})) : commaList(last, state);
}

void clearAll(CommandContext& context, const CommandCall&)
{
    for (int number = 1; number <= Mainframe::memoryCount; ++number)
        context.mainframe.clearMemory(number);
}

constexpr Command rows[] = {
    {.header = "MEMory:SAVE",
     .parameters = "<1 to 120>",
     .example = "7",
     .summary = "Saves the settings of all channels in a memory, as *SAV does.",
     .set = performOnMemory<&Mainframe::saveMemory>},
    {.header = "MEMory:RECall",
     .parameters = "<1 to 120>",
     .example = "7",
     .summary = "Recalls the settings of all channels from a memory and switches all inputs off, as *RCL does.",
     .set = performOnMemory<&Mainframe::recallMemory>},
    {.header = "MEMory:COUNt", .summary = "The number of memories.", .query = queryCount},
    {.header = "MEMory:USED", .summary = "The number of memories that hold settings.", .query = queryUsed},
    {.header = "MEMory:STATe",
     .queryParameters = "[<1 to 120>]",
     .summary =
         "1 where the memory holds settings, else 0; without a number that of all memories, separated by commas.",
     .query = queryState},
    {.header = "MEMory:CLEar",
     .parameters = "<1 to 120>",
     .example = "7",
     .summary = "Empties a memory. An empty one holds the settings after a reset.",
     .set = performOnMemory<&Mainframe::clearMemory>},
    {.header = "MEMory:CLEar:ALL", .summary = "Empties all memories.", .set = clearAll},
};

} // namespace

constinit const CommandSection memoryCommands{"Memory", rows};

} // namespace orb
