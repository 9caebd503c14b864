// SPDX-License-Identifier: GPL-3.0-or-later
#include "answer_text.h"
#include "instrument_commands.h"

#include "mainframe.h"
#include "status_registers.h"

namespace orb {

namespace {

/// The words for `ControlState`, in its order.
constexpr std::string_view controlWords[] = {"LOCal", "REMote", "RWLock"};
constexpr std::string_view controlAnswers[] = {"LOC", "REM", "RWL"};

constexpr std::string_view remoteModes[] = {"0", "NORMal", "1", "FAST"};

template <ControlState State> void setControl(CommandContext& context, const CommandCall&)
{
    context.mainframe.setControlState(State);
}

std::string joined(int first, int second, int third)
{
    return std::to_string(first) + ',' + std::to_string(second) + ',' + std::to_string(third);
}

void setDate(CommandContext& context, const CommandCall& call)
{
    constexpr double first = InstrumentCalendar::firstYear;
    constexpr double last = InstrumentCalendar::lastYear;
    const InstrumentCalendar::Date date{call.integer(0, {first, last, first}), call.integer(1, {1, 12, 1}),
                                        call.integer(2, {1, 31, 1})};
    if (!context.mainframe.calendar().setDate(date, context.mainframe.seconds()))
        throw CommandFailure{ErrorNumber::DataOutOfRange};
}

std::string queryDate(CommandContext& context, const CommandCall&)
{
    const auto [year, month, day] = context.mainframe.calendar().date(context.mainframe.seconds());
    return joined(year, month, day);
}

void setTime(CommandContext& context, const CommandCall& call)
{
    const InstrumentCalendar::Time time{call.integer(0, {0, 23, 0}), call.integer(1, {0, 59, 0}),
                                        call.integer(2, {0, 59, 0})};
    context.mainframe.calendar().setTime(time, context.mainframe.seconds());
}

std::string queryTime(CommandContext& context, const CommandCall&)
{
    const auto [hour, minute, second] = context.mainframe.calendar().time(context.mainframe.seconds());
    return joined(hour, minute, second);
}

std::string takeAllErrors(StatusRegisters& status)
{
    std::string entries = errorEntry(status.takeError());
    while (status.errorCount() > 0)
        entries += ',' + errorEntry(status.takeError());
    return entries;
}

} // namespace

CommandSection systemCommands()
{
    using Context = CommandContext;
    using Call = CommandCall;
    return {
        "System",
        {
            {.header = "SYSTem:ERRor[:NEXT]",
             .summary =
                 "Takes the oldest error out of the queue: its number and its text; 0,\"No error\" when there is "
                 "none.",
             .query = [](Context& context, const Call&) { return errorEntry(context.status.takeError()); }},
            {.header = "SYSTem:ERRor:ALL",
             .summary = "Takes all errors out of the queue, separated by commas.",
             .query = [](Context& context, const Call&) { return takeAllErrors(context.status); }},
            {.header = "SYSTem:ERRor:COUNt",
             .summary = "The number of errors in the queue.",
             .query = [](Context& context, const Call&) { return std::to_string(context.status.errorCount()); }},
            {.header = "SYSTem:VERSion",
             .summary = "The edition of SCPI that the language follows.",
             .query = [](Context&, const Call&) -> std::string { return "1999.0"; }},
            {.header = "SYSTem:LOCal",
             .summary = "Gives the front panel back.",
             .set = setControl<ControlState::Local>},
            {.header = "SYSTem:REMote",
             .summary = "Takes the instrument under remote control; the front panel can take it back.",
             .set = setControl<ControlState::Remote>},
            {.header = "SYSTem:RWLock",
             .summary = "Takes the instrument under remote control and locks the whole front panel.",
             .set = setControl<ControlState::RemoteWithLockout>},
            {.header = "SYSTem:COMMunicate:RLSTate",
             .parameters = "LOCal|REMote|RWLock",
             .example = "REMote",
             .summary = "Who works the instrument. Answers LOC, REM or RWL.",
             .set =
                 [](Context& context, const Call& call) {
                     context.mainframe.setControlState(static_cast<ControlState>(call.choice(0, controlWords)));
                 },
             .query =
                 [](Context& context, const Call&) {
                     return std::string(controlAnswers[static_cast<std::size_t>(context.mainframe.controlState())]);
                 }},
            {.header = "SYSTem:PRESet",
             .summary = "Resets all settings and switches all inputs off, as *RST does.",
             .set = [](Context& context, const Call&) { context.mainframe.reset(); }},
            {.header = "SYSTem:BEEPer[:IMMediate]",
             .summary = "Beeps once, if the beeper is on.",
             .set = [](Context& context, const Call&) { context.mainframe.panel().beep(); }},
            {.header = "SYSTem:BEEPer:STATe",
             .parameters = "ON|OFF|1|0",
             .example = "OFF",
             .summary = "Whether there is a beep, with each key and when it is asked for. Answers 1 or 0.",
             .set = [](Context& context, const Call& call) { context.mainframe.panel().setBeeperOn(call.boolean(0)); },
             .query = [](Context& context, const Call&) -> std::string {
                 return context.mainframe.panel().beeperOn() ? "1" : "0";
             }},
            {.header = "SYSTem:BEEPer:COUNt",
             .summary = "How often it has beeped since the last reset.",
             .query = [](Context& context,
                         const Call&) { return std::to_string(context.mainframe.panel().beepCount()); }},
            {.header = "SYSTem:DATE",
             .parameters = "<2000 to 2099>,<1 to 12>,<1 to 31>",
             .example = "2024,2,29",
             .summary = "The year, the month and the day, separated by commas.",
             .set = setDate,
             .query = queryDate},
            {.header = "SYSTem:TIME",
             .parameters = "<0 to 23>,<0 to 59>,<0 to 59>",
             .example = "23,59,58",
             .summary = "The hour, the minute and the second, separated by commas.",
             .set = setTime,
             .query = queryTime},
            {.header = "SYSTem:UPTime",
             .summary = "The seconds since the instrument was switched on.",
             .query = [](Context& context, const Call&) { return decimalText(context.mainframe.seconds(), 3); }},
            {.header = "UTILity:REMote:MODE",
             .parameters = "FAST|NORMal|1|0",
             .example = "FAST",
             .summary =
                 "Whether remote commands are taken without drawing the screen for each of them. Answers FAST or "
                 "NORM.",
             .set = [](Context& context,
                       const Call& call) { context.mainframe.setFastRemote(call.choice(0, remoteModes) >= 2); },
             .query = [](Context& context, const Call&) -> std::string {
                 return context.mainframe.fastRemote() ? "FAST" : "NORM";
             }},
        },
    };
}

CommandSection statusCommands()
{
    using Context = CommandContext;
    using Call = CommandCall;
    constexpr static NumberLimits maskLimits{0, 32767, 0};
    return {
        "Status",
        {
            {.header = "STATus:QUEStionable[:EVENt]",
             .summary = "What was questionable on any channel since the last reading, which clears it: 1 over voltage, "
                        "2 over current, 8 over power.",
             .query = [](Context& context,
                         const Call&) { return std::to_string(context.status.takeQuestionableEvent()); }},
            {.header = "STATus:QUEStionable:CONDition",
             .summary = "What is questionable on any channel now.",
             .query = [](Context& context,
                         const Call&) { return std::to_string(context.status.questionableCondition()); }},
            {.header = "STATus:QUEStionable:ENABle",
             .parameters = "<0 to 32767>",
             .example = "11",
             .summary = "Says which questionable events count in the status byte.",
             .set =
                 [](Context& context, const Call& call) {
                     context.status.setQuestionableEnable(static_cast<unsigned>(call.integer(0, maskLimits)));
                 },
             .query = [](Context& context,
                         const Call&) { return std::to_string(context.status.questionableEnable()); }},
            {.header = "STATus:PRESet",
             .summary = "Lets no questionable event count in the status byte.",
             .set = [](Context& context, const Call&) { context.status.setQuestionableEnable(0); }},
        },
    };
}

} // namespace orb
