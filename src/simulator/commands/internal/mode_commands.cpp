// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_commands.h"

namespace orb {

namespace {

struct Mode {
    LoadFunction function;
    /// Nothing: the range in force stays.
    std::optional<LoadRange> range;
};

constexpr std::string_view modeWords[] = {"CC", "CCL", "CCH", "CR", "CRL", "CRH", "CV"};
/// What the words mean, in their order.
constexpr Mode modes[] = {
    {LoadFunction::Current, std::nullopt},      {LoadFunction::Current, LoadRange::Low},
    {LoadFunction::Current, LoadRange::High},   {LoadFunction::Resistance, std::nullopt},
    {LoadFunction::Resistance, LoadRange::Low}, {LoadFunction::Resistance, LoadRange::High},
    {LoadFunction::Voltage, std::nullopt},
};
static_assert(std::size(modes) == std::size(modeWords));

void setMode(CommandContext& context, const CommandCall& call)
{
    const Mode& mode = modes[call.choice(0, modeWords)];
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
    return rangeText(channelAt(context, call).settings().range(LoadFunction::Voltage));
}

constexpr Command rows[] = {
    {.header = "MODE#",
     .parameters = "CC|CCL|CCH|CR|CRL|CRH|CV",
     .example = "CRL",
     .summary = "The mode and its range, L low and H high; CC and CR leave the range as it is. A change switches the "
                "input off. Answers CCL, CCH, CRL, CRH or CV.",
     .set = setMode,
     .query = queryMode},
    {.header = "VOLTage#:RANGe",
     .parameters = "Low|High",
     .example = "HIGH",
     .summary = "The range of the voltage, for the meter and for CV. A change switches the input off. Answers LOW or "
                "HIGH.",
     .set = setVoltageRange,
     .query = queryVoltageRange},
};

} // namespace

constinit const CommandSection modeCommands{"Mode and range", rows};

} // namespace orb
