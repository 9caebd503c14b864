// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "answer_text.h"
#include "command_table.h"
#include "instrument_error.h"
#include "mainframe.h"
#include "status_registers.h"

namespace orb {

/// The sections of the command language, a table each. A new command is a new row in its section; the manual, the
/// catalogue, the parser and the tests all read the rows.
extern const CommandSection channelCommands;
extern const CommandSection modeCommands;
extern const CommandSection setValueCommands;
extern const CommandSection loadCommands;
extern const CommandSection measureCommands;
extern const CommandSection limitCommands;
extern const CommandSection sequenceCommands;
extern const CommandSection programCommands;
extern const CommandSection memoryCommands;
extern const CommandSection fileCommands;
extern const CommandSection panelCommands;
extern const CommandSection systemCommands;
extern const CommandSection statusCommands;
extern const CommandSection commonCommands;

/// All sections, in the order in which the manual shows them.
std::span<const CommandSection> instrumentCommands();

/// Parameters that many rows take, as the manual shows them.
inline constexpr std::string_view onOrOff = "ON|OFF|1|0";
inline constexpr std::string_view limitNames = "[MINimum|MAXimum|DEFault]";
inline constexpr std::string_view voltsOrLimit = "<V>|MINimum|MAXimum|DEFault";
inline constexpr std::string_view amperesOrLimit = "<A>|MINimum|MAXimum|DEFault";
inline constexpr std::string_view wattsOrLimit = "<W>|MINimum|MAXimum|DEFault";
inline constexpr std::string_view slewRateOrLimit = "<A/us>|MINimum|MAXimum|DEFault";

/// The words for `LoadRange`, in its order.
inline constexpr std::string_view rangeWords[] = {"Low", "High"};

/// The channel that a command means: the number after the first node of its header, or else the selected channel.
int channelOf(const CommandContext& context, const CommandCall& call);
const LoadChannel& channelAt(const CommandContext& context, const CommandCall& call);
/// The same for a change of it.
LoadChannel& changeAt(CommandContext& context, const CommandCall& call);

/// What is measured, limited and protected. Indexes `LoadSettings::windows` and `LoadSettings::protection`.
enum Quantity : std::size_t { Voltage, Current, Power };

constexpr Unit unitOf(Quantity quantity)
{
    constexpr Unit units[] = {Unit::Volt, Unit::Ampere, Unit::Watt};
    return units[quantity];
}

inline std::string switchText(bool on)
{
    return on ? "1" : "0";
}

inline std::string rangeText(LoadRange range)
{
    return range == LoadRange::High ? "HIGH" : "LOW";
}

/// `textOf(1)` to `textOf(count)`, separated by commas.
template <typename TextOf> std::string commaList(int count, TextOf textOf)
{
    std::string list;
    for (int number = 1; number <= count; ++number) {
        list += number > 1 ? "," : "";
        list += textOf(number);
    }
    return list;
}

/// Handlers of commands that call one member function of the mainframe and do nothing else.
template <auto Member> void perform(CommandContext& context, const CommandCall&)
{
    (context.mainframe.*Member)();
}

/// The member function returns false where it can't be done now.
template <bool (Mainframe::*Member)()> void performIfPossible(CommandContext& context, const CommandCall&)
{
    if (!(context.mainframe.*Member)())
        throw CommandFailure{ErrorNumber::SettingsConflict};
}

template <void (Mainframe::*Member)(int)> void performOnMemory(CommandContext& context, const CommandCall& call)
{
    (context.mainframe.*Member)(call.integer(0, {1, Mainframe::memoryCount, 1}));
}

template <auto Member> std::string queryNumber(CommandContext& context, const CommandCall&)
{
    return std::to_string((context.mainframe.*Member)());
}

template <bool (Mainframe::*Member)() const> std::string querySwitch(CommandContext& context, const CommandCall&)
{
    return switchText((context.mainframe.*Member)());
}

/// A member function of the status registers that returns a number.
template <auto Member> std::string queryStatus(CommandContext& context, const CommandCall&)
{
    return std::to_string((context.status.*Member)());
}

} // namespace orb
