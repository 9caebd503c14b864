// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_commands.h"

namespace orb {

namespace {

using Shown = double Reading::*;
/// `Mainframe::fetch` or `Mainframe::measure`.
using Read = Reading (Mainframe::*)(int);

constexpr Read fetch = &Mainframe::fetch;
constexpr Read measure = &Mainframe::measure;

template <Read From, Shown Value> std::string queryOne(CommandContext& context, const CommandCall& call)
{
    const Reading reading = (context.mainframe.*From)(channelOf(context, call));
    return valueText(reading.*Value);
}

/// A field for each channel. Each is followed by a comma, the last one too.
template <Read From, Shown Value> std::string queryAll(CommandContext& context, const CommandCall&)
{
    std::string fields;
    for (int number = 1; number <= context.mainframe.channelCount(); ++number) {
        const Reading reading = (context.mainframe.*From)(number);
        fields += valueText(reading.*Value) + ',';
    }
    return fields;
}

template <Read From, Shown Value> constexpr Command oneRow(std::string_view header, std::string_view summary)
{
    return {.header = header, .summary = summary, .query = queryOne<From, Value>};
}

template <Read From, Shown Value> constexpr Command allRow(std::string_view header, std::string_view summary)
{
    return {.header = header, .summary = summary, .query = queryAll<From, Value>, .served = true};
}

constexpr Command rows[] = {
    oneRow<fetch, &Reading::voltage>("FETCh#[:SCALar]:VOLTage[:DC]", "The latest reading of the channel's volts."),
    oneRow<fetch, &Reading::current>("FETCh#[:SCALar]:CURRent[:DC]", "The latest reading of the channel's amperes."),
    oneRow<fetch, &Reading::power>("FETCh#[:SCALar]:POWer[:DC]", "The latest reading of the channel's watts."),
    allRow<fetch, &Reading::voltage>(
        "FETCh:ALLVoltage",
        "The latest readings of the volts of all channels, channel 1 first, each followed by a comma."),
    allRow<fetch, &Reading::current>(
        "FETCh:ALLCurrent",
        "The latest readings of the amperes of all channels, channel 1 first, each followed by a comma."),
    allRow<fetch, &Reading::power>(
        "FETCh:ALLPower",
        "The latest readings of the watts of all channels, channel 1 first, each followed by a comma."),
    oneRow<measure, &Reading::voltage>("MEASure#[:SCALar]:VOLTage[:DC]", "A new reading of the channel's volts."),
    oneRow<measure, &Reading::current>("MEASure#[:SCALar]:CURRent[:DC]", "A new reading of the channel's amperes."),
    oneRow<measure, &Reading::power>("MEASure#[:SCALar]:POWer[:DC]", "A new reading of the channel's watts."),
    allRow<measure, &Reading::voltage>(
        "MEASure:ALLVoltage", "New readings of the volts of all channels, channel 1 first, each followed by a comma."),
    allRow<measure, &Reading::current>(
        "MEASure:ALLCurrent",
        "New readings of the amperes of all channels, channel 1 first, each followed by a comma."),
    allRow<measure, &Reading::power>(
        "MEASure:ALLPower", "New readings of the watts of all channels, channel 1 first, each followed by a comma."),
};

} // namespace

constinit const CommandSection measureCommands{"Measurement", rows};

} // namespace orb
