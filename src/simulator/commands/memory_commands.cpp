// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_commands.h"
#include "mainframe.h"

namespace orb {

namespace {

constexpr NumberLimits memoryLimits{1, Mainframe::memoryCount, 1};

/// Whether one memory holds anything, or that of all memories.
std::string queryState(CommandContext& context, const CommandCall& call)
{
    const Mainframe& mainframe = context.mainframe;
    if (call.parameterCount() > 0)
        return mainframe.isWritten(call.integer(0, memoryLimits)) ? "1" : "0";
    std::string states;
    for (int number = 1; number <= Mainframe::memoryCount; ++number) {
        states += number > 1 ? "," : "";
        states += mainframe.isWritten(number) ? '1' : '0';
    }
    return states;
}

std::string queryUsed(CommandContext& context, const CommandCall&)
{
    int used = 0;
    for (int number = 1; number <= Mainframe::memoryCount; ++number)
        used += context.mainframe.isWritten(number) ? 1 : 0;
    return std::to_string(used);
}

void clearAll(CommandContext& context, const CommandCall&)
{
    for (int number = 1; number <= Mainframe::memoryCount; ++number)
        context.mainframe.clearMemory(number);
}

} // namespace

CommandSection memoryCommands()
{
    using Context = CommandContext;
    using Call = CommandCall;
    return {
        "Memory",
        {
            {.header = "MEMory:SAVE",
             .parameters = "<1 to 120>",
             .example = "7",
             .summary = "Puts the settings of all channels into a memory, as *SAV does.",
             .set = [](Context& context,
                       const Call& call) { context.mainframe.saveMemory(call.integer(0, memoryLimits)); }},
            {.header = "MEMory:RECall",
             .parameters = "<1 to 120>",
             .example = "7",
             .summary = "Takes the settings of all channels out of a memory and switches all inputs off, as *RCL does.",
             .set = [](Context& context,
                       const Call& call) { context.mainframe.recallMemory(call.integer(0, memoryLimits)); }},
            {.header = "MEMory:COUNt",
             .summary = "The number of memories that there are.",
             .query = [](Context&, const Call&) { return std::to_string(Mainframe::memoryCount); }},
            {.header = "MEMory:USED", .summary = "The number of memories that hold settings.", .query = queryUsed},
            {.header = "MEMory:STATe",
             .queryParameters = "[<1 to 120>]",
             .summary =
                 "1 where the memory holds settings, else 0; without a number that of all memories, separated by "
                 "commas.",
             .query = queryState},
            {.header = "MEMory:CLEar",
             .parameters = "<1 to 120>",
             .example = "7",
             .summary = "Empties a memory. An empty one holds the settings after a reset.",
             .set = [](Context& context,
                       const Call& call) { context.mainframe.clearMemory(call.integer(0, memoryLimits)); }},
            {.header = "MEMory:CLEar:ALL", .summary = "Empties all memories.", .set = clearAll},
        },
    };
}

} // namespace orb
