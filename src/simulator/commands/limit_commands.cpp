// SPDX-License-Identifier: GPL-3.0-or-later
#include "answer_text.h"
#include "instrument_commands.h"
#include "mainframe.h"

namespace orb {

namespace {

/// The windows of `LoadSettings::windows`, in their order.
enum Quantity : std::size_t { Voltage, Current, Power };

template <Quantity Of> constexpr Unit unitOf()
{
    return Of == Voltage ? Unit::Volt : Of == Current ? Unit::Ampere : Unit::Watt;
}

/// What an end of a window may be; DEFault is what it is after a reset.
template <Quantity Of, double JudgedWindow::*End> NumberLimits limitsOf(const LoadChannel& channel)
{
    const JudgedWindow widest = LoadSettings::afterReset(channel.module()).windows[Of];
    return {widest.low, widest.high, widest.*End};
}

template <Quantity Of, double JudgedWindow::*End> void setEnd(CommandContext& context, const CommandCall& call)
{
    LoadChannel& channel = changeAt(context, call);
    auto windows = channel.settings().windows;
    windows[Of].*End = call.number(0, unitOf<Of>(), limitsOf<Of, End>(channel));
    channel.setJudging(windows, channel.settings().judged);
}

template <Quantity Of, double JudgedWindow::*End> std::string queryEnd(CommandContext& context, const CommandCall& call)
{
    const LoadChannel& channel = channelAt(context, call);
    if (call.parameterCount() > 0)
        return valueText(call.limit(0, limitsOf<Of, End>(channel)));
    return valueText(channel.settings().windows[Of].*End);
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

std::string queryAll(CommandContext& context, const CommandCall&)
{
    std::string verdicts;
    for (int number = 1; number <= context.mainframe.channelCount(); ++number) {
        verdicts += number > 1 ? "," : "";
        verdicts += verdictText(context.mainframe.judge(number));
    }
    return verdicts;
}

void clear(CommandContext& context, const CommandCall& call)
{
    LoadChannel& channel = changeAt(context, call);
    channel.setJudging(LoadSettings::afterReset(channel.module()).windows, false);
}

constexpr std::string_view limits = "[MINimum|MAXimum|DEFault]";
constexpr std::string_view volts = "<V>|MINimum|MAXimum|DEFault";
constexpr std::string_view amperes = "<A>|MINimum|MAXimum|DEFault";
constexpr std::string_view watts = "<W>|MINimum|MAXimum|DEFault";

/// The rows of one quantity: the ends of its window, and where a reading lies.
template <Quantity Of> std::vector<Command> windowRows(const std::array<Command, 3>& texts)
{
    std::vector<Command> rows(texts.begin(), texts.end());
    for (Command* const row : {&rows[0], &rows[1]}) {
        row->parameters = Of == Voltage ? volts : Of == Current ? amperes : watts;
        row->queryParameters = limits;
    }
    rows[0].set = setEnd<Of, &JudgedWindow::low>;
    rows[0].query = queryEnd<Of, &JudgedWindow::low>;
    rows[1].set = setEnd<Of, &JudgedWindow::high>;
    rows[1].query = queryEnd<Of, &JudgedWindow::high>;
    rows[2].query = queryPlace<Of>;
    return rows;
}

} // namespace

std::vector<Command> limitCommands()
{
    using Context = CommandContext;
    using Call = CommandCall;
    std::vector<Command> rows{
        {.header = "LIMit#[:STATe]",
         .parameters = "ON|OFF|1|0",
         .example = "ON",
         .summary = "Whether the readings of the channel are judged by its limits. Answers 1 or 0.",
         .set = setJudged,
         .query = [](Context& context, const Call& call) -> std::string {
             return channelAt(context, call).settings().judged ? "1" : "0";
         }},
        {.header = "LIMit#:RESult",
         .summary = "Judges a new reading of the channel: PASS where volts, amperes and watts are all within their "
                    "limits, else FAIL; OFF where the channel is not judged.",
         .query = [](Context& context,
                     const Call& call) { return verdictText(context.mainframe.judge(channelOf(context, call))); }},
        {.header = "LIMit:ALL:RESult",
         .summary = "Judges a new reading of each channel: OFF, PASS or FAIL, channel 1 first, separated by commas.",
         .query = queryAll},
        {.header = "LIMit#:CLEar",
         .summary = "Makes the limits of the channel as wide as its module and judges it no more.",
         .set = clear},
    };
    const auto add = [&rows](const std::vector<Command>& more) { rows.insert(rows.end(), more.begin(), more.end()); };
    add(windowRows<Voltage>({{
        {.header = "LIMit#:VOLTage:LOW", .example = "10", .summary = "The least volts that pass."},
        {.header = "LIMit#:VOLTage:HIGH", .example = "15 V", .summary = "The most volts that pass."},
        {.header = "LIMit#:VOLTage:RESult", .summary = "Where the volts of a new reading lie: LOW, HIGH or PASS."},
    }}));
    add(windowRows<Current>({{
        {.header = "LIMit#:CURRent:LOW", .example = "0.5", .summary = "The least amperes that pass."},
        {.header = "LIMit#:CURRent:HIGH", .example = "2.5 A", .summary = "The most amperes that pass."},
        {.header = "LIMit#:CURRent:RESult", .summary = "Where the amperes of a new reading lie: LOW, HIGH or PASS."},
    }}));
    add(windowRows<Power>({{
        {.header = "LIMit#:POWer:LOW", .example = "1", .summary = "The least watts that pass."},
        {.header = "LIMit#:POWer:HIGH", .example = "30 W", .summary = "The most watts that pass."},
        {.header = "LIMit#:POWer:RESult", .summary = "Where the watts of a new reading lie: LOW, HIGH or PASS."},
    }}));
    return rows;
}

} // namespace orb
