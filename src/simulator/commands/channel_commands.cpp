// SPDX-License-Identifier: GPL-3.0-or-later
#include "answer_text.h"
#include "instrument_commands.h"
#include "mainframe.h"

#include "instrument_error.h"

namespace orb {

namespace {

struct ModeRow {
    std::string_view word;
    LoadFunction function;
    /// Nothing: the range in force stays.
    std::optional<LoadRange> range;
};

constexpr ModeRow modes[] = {
    {"CC", LoadFunction::Current, std::nullopt},       {"CCL", LoadFunction::Current, LoadRange::Low},
    {"CCH", LoadFunction::Current, LoadRange::High},   {"CR", LoadFunction::Resistance, std::nullopt},
    {"CRL", LoadFunction::Resistance, LoadRange::Low}, {"CRH", LoadFunction::Resistance, LoadRange::High},
    {"CV", LoadFunction::Voltage, std::nullopt},
};

constexpr std::string_view modeWords[] = {"CC", "CCL", "CCH", "CR", "CRL", "CRH", "CV"};
static_assert(std::size(modes) == std::size(modeWords));

constexpr std::string_view rangeWords[] = {"Low", "High"};

void setMode(CommandContext& context, const CommandCall& call)
{
    const ModeRow& mode = modes[call.choice(0, modeWords)];
    LoadChannel& channel = changeAt(context, call);
    const LoadRange range = mode.range.value_or(channel.settings().range(mode.function));
    if (!channel.module().range(mode.function, range).exists())
        throw CommandFailure{ErrorNumber::HardwareMissing};
    channel.setMode(mode.function, range);
}

std::string queryMode(CommandContext& context, const CommandCall& call)
{
    return std::string(modeName(channelAt(context, call).settings()));
}

void setVoltageRange(CommandContext& context, const CommandCall& call)
{
    const auto range = static_cast<LoadRange>(call.choice(0, rangeWords));
    changeAt(context, call).setVoltageRange(range);
}

std::string queryVoltageRange(CommandContext& context, const CommandCall& call)
{
    return channelAt(context, call).settings().range(LoadFunction::Voltage) == LoadRange::High ? "HIGH" : "LOW";
}

std::string queryRating(CommandContext& context, const CommandCall& call)
{
    const LoadModule& module = channelAt(context, call).module();
    return valueText(module.maxVoltage()) + ',' + valueText(module.maxCurrent()) + ',' + valueText(module.maxPower);
}

} // namespace

CommandSection channelCommands()
{
    using Context = CommandContext;
    using Call = CommandCall;
    return {
        "Channels",
        {
            {.header = "CHANnel[:SELect]",
             .parameters = "<channel>|MINimum|MAXimum",
             .example = "2",
             .summary = "Selects the channel that headers without a channel number mean.",
             .set =
                 [](Context& context, const Call& call) {
                     const double last = context.mainframe.channelCount();
                     context.mainframe.selectChannel(call.integer(0, {1, last, 1}));
                 },
             .query = [](Context& context,
                         const Call&) { return std::to_string(context.mainframe.selectedChannel()); }},
            {.header = "CHANnel:COUNt",
             .summary = "The number of channels.",
             .query = [](Context& context, const Call&) { return std::to_string(context.mainframe.channelCount()); }},
            {.header = "CHANnel#:ID",
             .summary = "The name of the channel's load module.",
             .query = [](Context& context,
                         const Call& call) { return std::string(channelAt(context, call).module().name); }},
            {.header = "CHANnel#:RATing",
             .summary = "The volts, amperes and watts that the channel's load module takes, separated by commas.",
             .query = queryRating},
            {.header = "CHANnel#:DISPlay",
             .summary = "Shows the channel large on the screen. Answers the number of the channel that is shown.",
             .set = [](Context& context,
                       const Call& call) { context.mainframe.displayChannel(channelOf(context, call)); },
             .query = [](Context& context,
                         const Call&) { return std::to_string(context.mainframe.displayedChannel()); }},
        },
    };
}

CommandSection modeCommands()
{
    return {
        "Mode and range",
        {
            {.header = "MODE#",
             .parameters = "CC|CCL|CCH|CR|CRL|CRH|CV",
             .example = "CRL",
             .summary =
                 "The mode and its range, L low and H high; CC and CR leave the range as it is. A change switches "
                 "the input off. Answers CCL, CCH, CRL, CRH or CV.",
             .set = setMode,
             .query = queryMode},
            {.header = "VOLTage#:RANGe",
             .parameters = "Low|High",
             .example = "HIGH",
             .summary = "The range of the voltage, for the meter and for CV. A change switches the input off. Answers "
                        "LOW or HIGH.",
             .set = setVoltageRange,
             .query = queryVoltageRange},
        },
    };
}

} // namespace orb
