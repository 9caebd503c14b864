// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_commands.h"

namespace orb {

namespace {

template <void (StatusRegisters::*Member)(std::uint8_t)> void setMask(CommandContext& context, const CommandCall& call)
{
    (context.status.*Member)(static_cast<std::uint8_t>(call.integer(0, {0, 255, 0})));
}

void clearStatus(CommandContext& context, const CommandCall&)
{
    context.status.clear();
}

std::string queryIdentity(CommandContext& context, const CommandCall&)
{
    return context.identity;
}

void setOperationComplete(CommandContext& context, const CommandCall&)
{
    context.status.setEvent(StatusRegisters::OperationComplete);
}

std::string queryOperationComplete(CommandContext&, const CommandCall&)
{
    return "1";
}

std::string queryModules(CommandContext& context, const CommandCall&)
{
    const Mainframe& mainframe = context.mainframe;
    return commaList(mainframe.channelCount(), [&](int number) { return mainframe.channel(number).module().name; });
}

std::string queryStatusByte(CommandContext& context, const CommandCall&)
{
    return std::to_string(context.status.statusByte(context.messageAvailable));
}

std::string querySelfTest(CommandContext&, const CommandCall&)
{
    return "0";
}

void wait(CommandContext&, const CommandCall&) {}

constexpr Command rows[] = {
    {.header = "*CLS", .summary = "Empties the error queue and clears the event registers.", .set = clearStatus},
    {.header = "*ESE",
     .parameters = "<0 to 255>",
     .example = "60",
     .summary = "The standard events that count in the status byte.",
     .set = setMask<&StatusRegisters::setStandardEventEnable>,
     .query = queryStatus<&StatusRegisters::standardEventEnable>},
    {.header = "*ESR",
     .summary = "Reads the standard event register and clears it.",
     .query = queryStatus<&StatusRegisters::takeStandardEvent>},
    {.header = "*IDN",
     .summary = "The maker, the model, the serial number and the version, separated by commas.",
     .query = queryIdentity},
    {.header = "*OPC",
     .summary = "Sets the operation complete bit of the standard events; the query answers 1. Every command is "
                "complete before the next one is read.",
     .set = setOperationComplete,
     .query = queryOperationComplete},
    {.header = "*OPT", .summary = "The load modules of all channels, separated by commas.", .query = queryModules},
    {.header = "*RCL",
     .parameters = "<1 to 120>",
     .example = "7",
     .summary = "Recalls the settings of all channels from a memory and switches all inputs off.",
     .set = performOnMemory<&Mainframe::recallMemory>},
    {.header = "*RST",
     .summary = "Resets all settings, switches all inputs off and selects channel 1. The programs return to what was "
                "saved. Memories, the sequence, the error queue and the status registers keep their contents.",
     .set = perform<&Mainframe::reset>},
    {.header = "*SAV",
     .parameters = "<1 to 120>",
     .example = "7",
     .summary = "Saves the settings of all channels in a memory.",
     .set = performOnMemory<&Mainframe::saveMemory>},
    {.header = "*SRE",
     .parameters = "<0 to 255>",
     .example = "32",
     .summary = "The bits of the status byte that count in its master summary.",
     .set = setMask<&StatusRegisters::setServiceRequestEnable>,
     .query = queryStatus<&StatusRegisters::serviceRequestEnable>},
    {.header = "*STB", .summary = "The status byte.", .query = queryStatusByte},
    {.header = "*TST", .summary = "The self-test. Always answers 0: passed.", .query = querySelfTest},
    {.header = "*WAI", .summary = "Waits until all commands are complete. They always are.", .set = wait},
};

} // namespace

constinit const CommandSection commonCommands{"Common commands", rows};

} // namespace orb
