// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_commands.h"

#include "mainframe.h"
#include "status_registers.h"

namespace orb {

namespace {

constexpr NumberLimits byteLimits{0, 255, 0};
constexpr NumberLimits memoryLimits{1, Mainframe::memoryCount, 1};

std::string modulesInstalled(const Mainframe& mainframe)
{
    std::string names;
    for (int number = 1; number <= mainframe.channelCount(); ++number) {
        names += number > 1 ? "," : "";
        names += mainframe.channel(number).module().name;
    }
    return names;
}

} // namespace

CommandSection commonCommands()
{
    using Context = CommandContext;
    using Call = CommandCall;
    return {
        "Common commands",
        {
            {.header = "*CLS",
             .summary = "Empties the error queue and clears the event registers.",
             .set = [](Context& context, const Call&) { context.status.clear(); }},
            {.header = "*ESE",
             .parameters = "<0 to 255>",
             .example = "60",
             .summary = "Says which standard events count in the status byte.",
             .set =
                 [](Context& context, const Call& call) {
                     context.status.setStandardEventEnable(static_cast<std::uint8_t>(call.integer(0, byteLimits)));
                 },
             .query = [](Context& context,
                         const Call&) { return std::to_string(context.status.standardEventEnable()); }},
            {.header = "*ESR",
             .summary = "Reads the standard event register and clears it.",
             .query = [](Context& context, const Call&) { return std::to_string(context.status.takeStandardEvent()); }},
            {.header = "*IDN",
             .summary = "The maker, the model, the serial number and the version, separated by commas.",
             .query = [](Context& context, const Call&) { return context.identity; }},
            {.header = "*OPC",
             .summary = "Sets the operation complete bit of the standard events; the query answers 1. Every command is "
                        "complete before the next one is read.",
             .set = [](Context& context, const Call&) { context.status.setEvent(StatusRegisters::OperationComplete); },
             .query = [](Context&, const Call&) -> std::string { return "1"; }},
            {.header = "*OPT",
             .summary = "The load modules of all channels, separated by commas.",
             .query = [](Context& context, const Call&) { return modulesInstalled(context.mainframe); }},
            {.header = "*RCL",
             .parameters = "<1 to 120>",
             .example = "7",
             .summary = "Takes the settings of all channels out of a memory and switches all inputs off.",
             .set = [](Context& context,
                       const Call& call) { context.mainframe.recallMemory(call.integer(0, memoryLimits)); }},
            {.header = "*RST",
             .summary = "Resets all settings, switches all inputs off and selects channel 1. The programs go back to "
                        "what was saved. Memories, the sequence, the error queue and the status registers keep what "
                        "they hold.",
             .set = [](Context& context, const Call&) { context.mainframe.reset(); }},
            {.header = "*SAV",
             .parameters = "<1 to 120>",
             .example = "7",
             .summary = "Puts the settings of all channels into a memory.",
             .set = [](Context& context,
                       const Call& call) { context.mainframe.saveMemory(call.integer(0, memoryLimits)); }},
            {.header = "*SRE",
             .parameters = "<0 to 255>",
             .example = "32",
             .summary = "Says which bits of the status byte count in its master summary.",
             .set =
                 [](Context& context, const Call& call) {
                     context.status.setServiceRequestEnable(static_cast<std::uint8_t>(call.integer(0, byteLimits)));
                 },
             .query = [](Context& context,
                         const Call&) { return std::to_string(context.status.serviceRequestEnable()); }},
            {.header = "*STB",
             .summary = "The status byte.",
             .query = [](Context& context,
                         const Call&) { return std::to_string(context.status.statusByte(context.messageAvailable)); }},
            {.header = "*TST",
             .summary = "The self-test. Answers 0: nothing is broken.",
             .query = [](Context&, const Call&) -> std::string { return "0"; }},
            {.header = "*WAI",
             .summary = "Waits until all commands are complete, which they are.",
             .set = [](Context&, const Call&) {}},
        },
    };
}

} // namespace orb
