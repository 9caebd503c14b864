// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_commands.h"

namespace orb {

namespace {

using End = double JudgedWindow::*;

constexpr End low = &JudgedWindow::low;
constexpr End high = &JudgedWindow::high;

/// The limits of an end of a window; DEFault is its value after a reset.
template <Quantity Of, End Which> NumberLimits limitsOf(const LoadChannel& channel)
{
    const JudgedWindow widest = LoadSettings::afterReset(channel.module()).windows[Of];
    return {widest.low, widest.high, widest.*Which};
}

template <Quantity Of, End Which> void setEnd(CommandContext& context, const CommandCall& call)
{
    LoadChannel& channel = changeAt(context, call);
    auto windows = channel.settings().windows;
    windows[Of].*Which = call.number(0, unitOf(Of), limitsOf<Of, Which>(channel));
    channel.setJudging(windows, channel.settings().judged);
}

template <Quantity Of, End Which> std::string queryEnd(CommandContext& context, const CommandCall& call)
{
    const LoadChannel& channel = channelAt(context, call);
    return valueText(call.limitOr(channel.settings().windows[Of].*Which, limitsOf<Of, Which>(channel)));
}

/// LOW, HIGH or PASS for one quantity, whether the channel is judged or not.
template <Quantity Of> std::string queryPlace(CommandContext& context, const CommandCall& call)
{
    const int number = channelOf(context, call);
    const Reading reading = context.mainframe.measure(number);
    const double value = Of == Voltage ? reading.voltage : Of == Current ? reading.current : reading.power;
    const JudgedWindow& window = context.mainframe.channel(number).settings().windows[Of];
    if (value < window.low)
        return "LOW";
    return value > window.high ? "HIGH" : "PASS";
}

std::string verdictText(Verdict verdict)
{
    constexpr const char* words[] = {"OFF", "PASS", "FAIL"};
    return words[static_cast<std::size_t>(verdict)];
}

void setJudged(CommandContext& context, const CommandCall& call)
{
    LoadChannel& channel = changeAt(context, call);
    channel.setJudging(channel.settings().windows, call.boolean(0));
}

std::string queryJudged(CommandContext& context, const CommandCall& call)
{
    return switchText(channelAt(context, call).settings().judged);
}

std::string queryVerdict(CommandContext& context, const CommandCall& call)
{
    return verdictText(context.mainframe.judge(channelOf(context, call)));
}

std::string queryAllVerdicts(CommandContext& context, const CommandCall&)
{
    return commaList(context.mainframe.channelCount(),
                     [&](int number) { return verdictText(context.mainframe.judge(number)); });
}

void clear(CommandContext& context, const CommandCall& call)
{
    LoadChannel& channel = changeAt(context, call);
    channel.setJudging(LoadSettings::afterReset(channel.module()).windows, false);
}

template <Quantity Of, End Which>
constexpr Command endRow(std::string_view header, std::string_view example, std::string_view summary)
{
    constexpr std::string_view parameters[] = {voltsOrLimit, amperesOrLimit, wattsOrLimit};
    return {.header = header,
            .parameters = parameters[Of],
            .queryParameters = limitNames,
            .example = example,
            .summary = summary,
            .set = setEnd<Of, Which>,
            .query = queryEnd<Of, Which>};
}

constexpr Command rows[] = {
    {.header = "LIMit#[:STATe]",
     .parameters = onOrOff,
     .example = "ON",
     .summary = "Whether the readings of the channel are judged by its limits. Answers 1 or 0.",
     .set = setJudged,
     .query = queryJudged},
    {.header = "LIMit#:RESult",
     .summary = "Judges a new reading of the channel: PASS where volts, amperes and watts are all within their limits, "
                "else FAIL; OFF where the channel is not judged.",
     .query = queryVerdict},
    {.header = "LIMit:ALL:RESult",
     .summary = "Judges a new reading of each channel: OFF, PASS or FAIL, channel 1 first, separated by commas.",
     .query = queryAllVerdicts},
    {.header = "LIMit#:CLEar",
     .summary = "Sets the limits of the channel to those of its module and stops judging it.",
     .set = clear},
    endRow<Voltage, low>("LIMit#:VOLTage:LOW", "10", "The least volts that pass."),
    endRow<Voltage, high>("LIMit#:VOLTage:HIGH", "15 V", "The most volts that pass."),
    {.header = "LIMit#:VOLTage:RESult",
     .summary = "Compares the volts of a new reading with their limits: LOW, HIGH or PASS.",
     .query = queryPlace<Voltage>},
    endRow<Current, low>("LIMit#:CURRent:LOW", "0.5", "The least amperes that pass."),
    endRow<Current, high>("LIMit#:CURRent:HIGH", "2.5 A", "The most amperes that pass."),
    {.header = "LIMit#:CURRent:RESult",
     .summary = "Compares the amperes of a new reading with their limits: LOW, HIGH or PASS.",
     .query = queryPlace<Current>},
    endRow<Power, low>("LIMit#:POWer:LOW", "1", "The least watts that pass."),
    endRow<Power, high>("LIMit#:POWer:HIGH", "30 W", "The most watts that pass."),
    {.header = "LIMit#:POWer:RESult",
     .summary = "Compares the watts of a new reading with their limits: LOW, HIGH or PASS.",
     .query = queryPlace<Power>},
};

} // namespace

constinit const CommandSection limitCommands{"Limits", rows};

} // namespace orb
