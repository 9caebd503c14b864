// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_commands.h"

#include "instrument_screen.h"

namespace orb {

namespace {

constexpr NumberLimits byteLimits{0, 255, 0};
constexpr NumberLimits percentLimits{0, 100, 100};

/// The words for `InstrumentPanel::Page`, in its order.
constexpr std::string_view pageWords[] = {"CHANnel", "ALL", "SEQuence", "PROGram", "SYSTem"};
constexpr const char* pageAnswers[] = {"CHAN", "ALL", "SEQ", "PROG", "SYST"};
static_assert(std::size(pageWords) == InstrumentPanel::pageCount);

void pressKey(CommandContext& context, const CommandCall& call)
{
    const int code = call.integer(0, byteLimits);
    const int count = call.parameterCount() > 1 ? call.integer(1, byteLimits) : 1;
    switch (context.mainframe.panel().press(code, count, context.mainframe)) {
    case InstrumentPanel::Outcome::NoSuchKey:
        throw CommandFailure{ErrorNumber::IllegalParameterValue};
    case InstrumentPanel::Outcome::Locked:
        throw CommandFailure{ErrorNumber::SettingsConflict};
    case InstrumentPanel::Outcome::OutOfRange:
        throw CommandFailure{ErrorNumber::DataOutOfRange};
    case InstrumentPanel::Outcome::Done:
        break;
    }
}

std::string queryKey(CommandContext& context, const CommandCall&)
{
    const InstrumentPanel& panel = context.mainframe.panel();
    return std::to_string(panel.lastKey()) + ',' + std::to_string(panel.lastCount());
}

std::string queryEntry(CommandContext& context, const CommandCall&)
{
    return '"' + context.mainframe.panel().entry() + '"';
}

template <void (InstrumentPanel::*Member)(bool)> void setPanelSwitch(CommandContext& context, const CommandCall& call)
{
    (context.mainframe.panel().*Member)(call.boolean(0));
}

template <bool (InstrumentPanel::*Member)() const>
std::string queryPanelSwitch(CommandContext& context, const CommandCall&)
{
    return switchText((context.mainframe.panel().*Member)());
}

void showPage(CommandContext& context, const CommandCall& call)
{
    context.mainframe.panel().showPage(static_cast<InstrumentPanel::Page>(call.choice(0, pageWords)));
}

std::string queryPage(CommandContext& context, const CommandCall&)
{
    return pageAnswers[static_cast<std::size_t>(context.mainframe.panel().page())];
}

void setBrightness(CommandContext& context, const CommandCall& call)
{
    context.mainframe.panel().setBrightness(call.integer(0, percentLimits));
}

std::string queryBrightness(CommandContext& context, const CommandCall& call)
{
    return decimalText(call.limitOr(context.mainframe.panel().brightness(), percentLimits), 0);
}

std::string queryScreen(CommandContext& context, const CommandCall&)
{
    return blockText(bitmapOf(drawInstrumentScreen(context.mainframe, context.identity)));
}

void beep(CommandContext& context, const CommandCall&)
{
    context.mainframe.panel().beep();
}

std::string queryBeeps(CommandContext& context, const CommandCall&)
{
    return std::to_string(context.mainframe.panel().beepCount());
}

constexpr Command rows[] = {
    {.header = "KEYBoard:CODE",
     .parameters = "<0 to 255>[,<0 to 255>]",
     .example = "113,1",
     .summary = "Presses the key of that code, with a count that only the knob uses. Answers the code and the count of "
                "the last key that had an effect, separated by a comma.",
     .set = pressKey,
     .query = queryKey},
    {.header = "KEYBoard:ENTRy",
     .summary = "The digits that were typed and not yet entered, between quotation marks.",
     .query = queryEntry},
    {.header = "KEYBoard:LOCK",
     .parameters = onOrOff,
     .example = "ON",
     .summary = "Locks the keys, except for a LOAD key that switches an input off. Answers 1 or 0.",
     .set = setPanelSwitch<&InstrumentPanel::setLocked>,
     .query = queryPanelSwitch<&InstrumentPanel::locked>},
    {.header = "DISPlay[:WINDow][:STATe]",
     .parameters = onOrOff,
     .example = "OFF",
     .summary = "Switches the screen. Answers 1 or 0.",
     .set = setPanelSwitch<&InstrumentPanel::setScreenOn>,
     .query = queryPanelSwitch<&InstrumentPanel::screenOn>},
    {.header = "DISPlay[:WINDow]:PAGE",
     .parameters = "CHANnel|ALL|SEQuence|PROGram|SYSTem",
     .example = "ALL",
     .summary = "What the screen shows, as the keys F1 to F5 do: one channel, all of them, the sequence, the programs "
                "or the system. Answers CHAN, ALL, SEQ, PROG or SYST.",
     .set = showPage,
     .query = queryPage},
    {.header = "DISPlay[:WINDow]:BRIGhtness",
     .parameters = "<0 to 100>|MINimum|MAXimum|DEFault",
     .queryParameters = limitNames,
     .example = "60",
     .summary = "The brightness of the screen in percent.",
     .set = setBrightness,
     .query = queryBrightness},
    {.header = "HCOPy:SDUMp:DATA",
     .summary = "The picture on the screen as a Windows bitmap of 320 by 240 pixels, in a definite-length block.",
     .query = queryScreen},
    {.header = "SYSTem:BEEPer[:IMMediate]", .summary = "Beeps once, if the beeper is on.", .set = beep},
    {.header = "SYSTem:BEEPer:STATe",
     .parameters = onOrOff,
     .example = "OFF",
     .summary = "Whether each key and SYSTem:BEEPer beep. Answers 1 or 0.",
     .set = setPanelSwitch<&InstrumentPanel::setBeeperOn>,
     .query = queryPanelSwitch<&InstrumentPanel::beeperOn>},
    {.header = "SYSTem:BEEPer:COUNt", .summary = "The number of beeps since the last reset.", .query = queryBeeps},
};

} // namespace

constinit const CommandSection panelCommands{"Keys, screen and beeper", rows};

} // namespace orb
