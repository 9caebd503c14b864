// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_commands.h"

namespace orb {

namespace {

using Group = StatusGroup StatusRegisters::*;
using Mask = unsigned StatusGroup::*;

constexpr Group questionable = &StatusRegisters::questionable;
constexpr Group operation = &StatusRegisters::operation;

template <Group Of> std::string queryEvent(CommandContext& context, const CommandCall&)
{
    return std::to_string((context.status.*Of).takeEvent());
}

template <Group Of> std::string queryCondition(CommandContext& context, const CommandCall&)
{
    return std::to_string((context.status.*Of).condition());
}

template <Group Of, Mask Which> void setMask(CommandContext& context, const CommandCall& call)
{
    context.status.*Of.*Which = static_cast<unsigned>(call.integer(0, {0, StatusGroup::allBits, 0}));
}

template <Group Of, Mask Which> std::string queryMask(CommandContext& context, const CommandCall&)
{
    return std::to_string(context.status.*Of.*Which);
}

void preset(CommandContext& context, const CommandCall&)
{
    context.status.questionable.preset();
    context.status.operation.preset();
}

template <Group Of, Mask Which>
constexpr Command maskRow(std::string_view header, std::string_view example, std::string_view summary)
{
    return {.header = header,
            .parameters = "<0 to 32767>",
            .example = example,
            .summary = summary,
            .set = setMask<Of, Which>,
            .query = queryMask<Of, Which>};
}

constexpr Command rows[] = {
    {.header = "STATus:OPERation[:EVENt]",
     .summary = "The changes of STATus:OPERation:CONDition that the filters let through since the last reading, which "
                "clears them.",
     .query = queryEvent<operation>},
    {.header = "STATus:OPERation:CONDition",
     .summary = "What the instrument does now, as a sum: 32 a program waits for PROGram:NEXT, 256 a sequence runs, "
                "16384 a program runs.",
     .query = queryCondition<operation>},
    maskRow<operation, &StatusGroup::enable>("STATus:OPERation:ENABle", "16640",
                                             "The operation events that count in the status byte."),
    maskRow<operation, &StatusGroup::positive>(
        "STATus:OPERation:PTRansition", "32",
        "The operation conditions that are events when they begin; at first all."),
    maskRow<operation, &StatusGroup::negative>(
        "STATus:OPERation:NTRansition", "16640",
        "The operation conditions that are events when they end; at first none."),
    {.header = "STATus:QUEStionable[:EVENt]",
     .summary = "The changes of STATus:QUEStionable:CONDition that the filters let through since the last reading, "
                "which clears them.",
     .query = queryEvent<questionable>},
    {.header = "STATus:QUEStionable:CONDition",
     .summary = "What is questionable on any channel now, as a sum: 1 over voltage, 2 over current, 8 over power.",
     .query = queryCondition<questionable>},
    maskRow<questionable, &StatusGroup::enable>("STATus:QUEStionable:ENABle", "11",
                                                "The questionable events that count in the status byte."),
    maskRow<questionable, &StatusGroup::positive>(
        "STATus:QUEStionable:PTRansition", "1",
        "The questionable conditions that are events when they begin; at first all."),
    maskRow<questionable, &StatusGroup::negative>(
        "STATus:QUEStionable:NTRansition", "8",
        "The questionable conditions that are events when they end; at first none."),
    {.header = "STATus:PRESet",
     .summary = "Sets the masks and filters of both groups to what they are at first.",
     .set = preset},
};

} // namespace

constinit const CommandSection statusCommands{"Status", rows};

} // namespace orb
