// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_commands.h"
#include "mainframe.h"

#include "instrument_error.h"

namespace orb {

namespace {

constexpr NumberLimits byteLimits{0, 255, 0};
constexpr NumberLimits percentLimits{0, 100, 100};

/// The words for `InstrumentPanel::Page`, in its order.
constexpr std::string_view pageWords[] = {"CHANnel", "ALL", "SEQuence", "PROGram", "SYSTem"};
constexpr std::string_view pageAnswers[] = {"CHAN", "ALL", "SEQ", "PROG", "SYST"};
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

std::string queryBrightness(CommandContext& context, const CommandCall& call)
{
    if (call.parameterCount() > 0)
        return std::to_string(static_cast<int>(call.limit(0, percentLimits)));
    return std::to_string(context.mainframe.panel().brightness());
}

} // namespace

CommandSection panelCommands()
{
    using Context = CommandContext;
    using Call = CommandCall;
    return {
        "Keys and screen",
        {
            {.header = "KEYBoard:CODE",
             .parameters = "<0 to 255>[,<0 to 255>]",
             .example = "113,1",
             .summary =
                 "Presses the key of that code, with a count that only the knob regards. Answers the code and the "
                 "count of the last key that acted, separated by a comma.",
             .set = pressKey,
             .query = queryKey},
            {.header = "KEYBoard:ENTRy",
             .summary = "The digits that were typed and wait for the ENTER key, between quotation marks.",
             .query = [](Context& context, const Call&) { return '"' + context.mainframe.panel().entry() + '"'; }},
            {.header = "KEYBoard:LOCK",
             .parameters = "ON|OFF|1|0",
             .example = "ON",
             .summary = "Locks the keys, but for a LOAD key that switches an input off. Answers 1 or 0.",
             .set = [](Context& context, const Call& call) { context.mainframe.panel().setLocked(call.boolean(0)); },
             .query = [](Context& context, const Call&) -> std::string {
                 return context.mainframe.panel().locked() ? "1" : "0";
             }},
            {.header = "DISPlay[:WINDow][:STATe]",
             .parameters = "ON|OFF|1|0",
             .example = "OFF",
             .summary = "Switches the screen. Answers 1 or 0.",
             .set = [](Context& context, const Call& call) { context.mainframe.panel().setScreenOn(call.boolean(0)); },
             .query = [](Context& context, const Call&) -> std::string {
                 return context.mainframe.panel().screenOn() ? "1" : "0";
             }},
            {.header = "DISPlay[:WINDow]:PAGE",
             .parameters = "CHANnel|ALL|SEQuence|PROGram|SYSTem",
             .example = "ALL",
             .summary = "What the screen shows, as the keys F1 to F5 do: one channel, all of them, the sequence, the "
                        "programs or the system. Answers CHAN, ALL, SEQ, PROG or SYST.",
             .set =
                 [](Context& context, const Call& call) {
                     context.mainframe.panel().showPage(static_cast<InstrumentPanel::Page>(call.choice(0, pageWords)));
                 },
             .query =
                 [](Context& context, const Call&) {
                     return std::string(pageAnswers[static_cast<std::size_t>(context.mainframe.panel().page())]);
                 }},
            {.header = "DISPlay[:WINDow]:BRIGhtness",
             .parameters = "<0 to 100>|MINimum|MAXimum|DEFault",
             .queryParameters = "[MINimum|MAXimum|DEFault]",
             .example = "60",
             .summary = "The brightness of the screen in percent.",
             .set = [](Context& context,
                       const Call& call) { context.mainframe.panel().setBrightness(call.integer(0, percentLimits)); },
             .query = queryBrightness},
        },
    };
}

} // namespace orb
