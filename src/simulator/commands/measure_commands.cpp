// SPDX-License-Identifier: GPL-3.0-or-later
#include "answer_text.h"
#include "instrument_commands.h"
#include "mainframe.h"

namespace orb {

namespace {

using Quantity = double Reading::*;
/// `Mainframe::fetch` or `Mainframe::measure`.
using Take = Reading (Mainframe::*)(int);

template <Take Taken, Quantity Shown> std::string one(CommandContext& context, const CommandCall& call)
{
    const Reading reading = (context.mainframe.*Taken)(channelOf(context, call));
    return valueText(reading.*Shown);
}

/// A field for each channel, each with a comma behind it, the last one too.
template <Take Taken, Quantity Shown> std::string all(CommandContext& context, const CommandCall&)
{
    std::string fields;
    for (int number = 1; number <= context.mainframe.channelCount(); ++number) {
        const Reading reading = (context.mainframe.*Taken)(number);
        fields += valueText(reading.*Shown);
        fields += ',';
    }
    return fields;
}

} // namespace

CommandSection measureCommands()
{
    constexpr Take fetch = &Mainframe::fetch;
    constexpr Take measure = &Mainframe::measure;
    std::vector<Command> rows{
        {.header = "FETCh#[:SCALar]:VOLTage[:DC]",
         .summary = "The latest reading of the channel's volts.",
         .query = one<fetch, &Reading::voltage>},
        {.header = "FETCh#[:SCALar]:CURRent[:DC]",
         .summary = "The latest reading of the channel's amperes.",
         .query = one<fetch, &Reading::current>},
        {.header = "FETCh#[:SCALar]:POWer[:DC]",
         .summary = "The latest reading of the channel's watts.",
         .query = one<fetch, &Reading::power>},
        {.header = "FETCh:ALLVoltage",
         .summary = "The latest readings of the volts of all channels, channel 1 first, a comma behind each.",
         .query = all<fetch, &Reading::voltage>,
         .served = true},
        {.header = "FETCh:ALLCurrent",
         .summary = "The latest readings of the amperes of all channels, channel 1 first, a comma behind each.",
         .query = all<fetch, &Reading::current>,
         .served = true},
        {.header = "FETCh:ALLPower",
         .summary = "The latest readings of the watts of all channels, channel 1 first, a comma behind each.",
         .query = all<fetch, &Reading::power>,
         .served = true},
        {.header = "MEASure#[:SCALar]:VOLTage[:DC]",
         .summary = "A new reading of the channel's volts.",
         .query = one<measure, &Reading::voltage>},
        {.header = "MEASure#[:SCALar]:CURRent[:DC]",
         .summary = "A new reading of the channel's amperes.",
         .query = one<measure, &Reading::current>},
        {.header = "MEASure#[:SCALar]:POWer[:DC]",
         .summary = "A new reading of the channel's watts.",
         .query = one<measure, &Reading::power>},
        {.header = "MEASure:ALLVoltage",
         .summary = "New readings of the volts of all channels, channel 1 first, a comma behind each.",
         .query = all<measure, &Reading::voltage>,
         .served = true},
        {.header = "MEASure:ALLCurrent",
         .summary = "New readings of the amperes of all channels, channel 1 first, a comma behind each.",
         .query = all<measure, &Reading::current>,
         .served = true},
        {.header = "MEASure:ALLPower",
         .summary = "New readings of the watts of all channels, channel 1 first, a comma behind each.",
         .query = all<measure, &Reading::power>,
         .served = true},
    };
    const std::vector<Command> limits = limitCommands();
    rows.insert(rows.end(), limits.begin(), limits.end());
    return {"Measurement", std::move(rows)};
}

} // namespace orb
