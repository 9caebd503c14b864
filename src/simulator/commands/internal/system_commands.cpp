// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_commands.h"

namespace orb {

namespace {

/// The words for `ControlState`, in its order.
constexpr std::string_view controlWords[] = {"LOCal", "REMote", "RWLock"};
constexpr const char* controlAnswers[] = {"LOC", "REM", "RWL"};

constexpr std::string_view remoteModes[] = {"0", "NORMal", "1", "FAST"};

std::string queryError(CommandContext& context, const CommandCall&)
{
    return errorEntry(context.status.takeError());
}

std::string queryAllErrors(CommandContext& context, const CommandCall&)
{
    std::string entries = errorEntry(context.status.takeError());
    while (context.status.errorCount() > 0)
        entries += ',' + errorEntry(context.status.takeError());
    return entries;
}

std::string queryVersion(CommandContext&, const CommandCall&)
{
    return "1999.0";
}

template <ControlState State> void setControl(CommandContext& context, const CommandCall&)
{
    context.mainframe.setControlState(State);
}

void setControlByWord(CommandContext& context, const CommandCall& call)
{
    context.mainframe.setControlState(static_cast<ControlState>(call.choice(0, controlWords)));
}

std::string queryControl(CommandContext& context, const CommandCall&)
{
    return controlAnswers[static_cast<std::size_t>(context.mainframe.controlState())];
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

std::string queryUpTime(CommandContext& context, const CommandCall&)
{
    return decimalText(context.mainframe.seconds(), 3);
}

void setRemoteMode(CommandContext& context, const CommandCall& call)
{
    context.mainframe.setFastRemote(call.choice(0, remoteModes) >= 2);
}

std::string queryRemoteMode(CommandContext& context, const CommandCall&)
{
    return context.mainframe.fastRemote() ? "FAST" : "NORM";
}

constexpr Command rows[] = {
    {.header = "SYSTem:ERRor[:NEXT]",
     .summary = "Takes the oldest error out of the queue: its number and its text; 0,\"No error\" when there is none.",
     .query = queryError},
    {.header = "SYSTem:ERRor:ALL",
     .summary = "Takes all errors out of the queue, separated by commas.",
     .query = queryAllErrors},
    {.header = "SYSTem:ERRor:COUNt",
     .summary = "The number of errors in the queue.",
     .query = queryStatus<&StatusRegisters::errorCount>},
    {.header = "SYSTem:VERSion", .summary = "The edition of SCPI that the language follows.", .query = queryVersion},
    {.header = "SYSTem:LOCal",
     .summary = "Returns control to the front panel.",
     .set = setControl<ControlState::Local>},
    {.header = "SYSTem:REMote",
     .summary = "Puts the instrument under remote control; the front panel can end it.",
     .set = setControl<ControlState::Remote>},
    {.header = "SYSTem:RWLock",
     .summary = "Puts the instrument under remote control and locks the whole front panel.",
     .set = setControl<ControlState::RemoteWithLockout>},
    {.header = "SYSTem:COMMunicate:RLSTate",
     .parameters = "LOCal|REMote|RWLock",
     .example = "REMote",
     .summary = "Whether the front panel or the remote interface controls the instrument. Answers LOC, REM or RWL.",
     .set = setControlByWord,
     .query = queryControl},
    {.header = "SYSTem:PRESet",
     .summary = "Resets all settings and switches all inputs off, as *RST does.",
     .set = perform<&Mainframe::reset>},
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
    {.header = "SYSTem:UPTime", .summary = "The seconds since the instrument was switched on.", .query = queryUpTime},
    {.header = "UTILity:REMote:MODE",
     .parameters = "FAST|NORMal|1|0",
     .example = "FAST",
     .summary = "Whether remote commands are executed without drawing the screen for each. Answers FAST or NORM.",
     .set = setRemoteMode,
     .query = queryRemoteMode},
};

} // namespace

constinit const CommandSection systemCommands{"System", rows};

} // namespace orb
