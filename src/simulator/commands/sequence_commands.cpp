// SPDX-License-Identifier: GPL-3.0-or-later
#include "answer_text.h"
#include "instrument_commands.h"
#include "mainframe.h"

#include "instrument_error.h"

#include <cmath>

namespace orb {

namespace {

constexpr std::string_view rangeWords[] = {"Low", "High"};

using Point = SequenceMemory::Point;

/// One of the numbers of a point.
struct Field {
    double Point::*value;
    Unit unit;
    NumberLimits limits;
    int decimals;
};

constexpr Field seconds{&Point::seconds, Unit::Second, {0, SequenceMemory::maxSeconds, 0}, 6};
constexpr Field amperes{&Point::current, Unit::Ampere, {0, SequenceMemory::maxCurrent, 0}, 4};
constexpr NumberLimits slewLimits{0, SequenceMemory::maxSlewRate, SequenceMemory::maxSlewRate};
constexpr Field rise{&Point::rise, Unit::AmperePerMicrosecond, slewLimits, 5};
constexpr Field fall{&Point::fall, Unit::AmperePerMicrosecond, slewLimits, 5};

/// The parameter as the field keeps it: with the decimals that it is shown with.
double readField(const Field& field, const CommandCall& call, std::size_t index)
{
    const double scale = std::pow(10.0, field.decimals);
    return std::round(call.number(index, field.unit, field.limits) * scale) / scale;
}

Point& editedPoint(CommandContext& context)
{
    return context.mainframe.sequence().point(context.mainframe.editedPoint());
}

template <const Field& Shown> void setField(CommandContext& context, const CommandCall& call)
{
    editedPoint(context).*Shown.value = readField(Shown, call, 0);
}

template <const Field& Shown> std::string queryField(CommandContext& context, const CommandCall& call)
{
    if (call.parameterCount() > 0)
        return decimalText(call.limit(0, Shown.limits), Shown.decimals);
    return decimalText(editedPoint(context).*Shown.value, Shown.decimals);
}

void setPoint(CommandContext& context, const CommandCall& call)
{
    Point point;
    std::size_t index = 0;
    for (const Field* field : {&seconds, &amperes, &rise, &fall})
        point.*field->value = readField(*field, call, index++);
    editedPoint(context) = point;
}

std::string queryPoint(CommandContext& context, const CommandCall&)
{
    std::string text;
    for (const Field* field : {&seconds, &amperes, &rise, &fall}) {
        text += text.empty() ? "" : ",";
        text += decimalText(editedPoint(context).*field->value, field->decimals);
    }
    return text;
}

template <int SequenceMemory::*Number, int Lowest, int Highest, int Fallback>
void setNumber(CommandContext& context, const CommandCall& call)
{
    context.mainframe.sequence().*Number = call.integer(0, {Lowest, Highest, Fallback});
}

template <int SequenceMemory::*Number> std::string queryNumber(CommandContext& context, const CommandCall&)
{
    return std::to_string(context.mainframe.sequence().*Number);
}

void run(CommandContext& context, const CommandCall&)
{
    if (!context.mainframe.runSequence())
        throw CommandFailure{ErrorNumber::SettingsConflict};
}

std::string queryState(CommandContext& context, const CommandCall&)
{
    if (!context.mainframe.sequenceRuns())
        return "IDLE";
    const SequencePlayer& player = context.mainframe.sequencePlayer();
    return "RUN," + std::to_string(player.point()) + ',' + std::to_string(player.round());
}

} // namespace

CommandSection sequenceCommands()
{
    using Context = CommandContext;
    using Call = CommandCall;
    constexpr static std::string_view limits = "[MINimum|MAXimum|DEFault]";
    constexpr static int last = SequenceMemory::pointCount;
    constexpr static int often = SequenceMemory::maxRepeatCount;
    return {
        "Sequence",
        {
            {.header = "SEQuence:VOLTage:RANGe",
             .parameters = "Low|High",
             .example = "H",
             .summary = "The range of the voltage meter while the sequence plays. Answers LOW or HIGH.",
             .set =
                 [](Context& context, const Call& call) {
                     context.mainframe.sequence().voltageRange = static_cast<LoadRange>(call.choice(0, rangeWords));
                 },
             .query = [](Context& context, const Call&) -> std::string {
                 return context.mainframe.sequence().voltageRange == LoadRange::High ? "HIGH" : "LOW";
             }},
            {.header = "SEQuence:END:LOAD",
             .parameters = "ON|OFF|1|0",
             .example = "0",
             .summary = "Whether the input stays on, at its set value, when the sequence has ended. Answers 1 or 0.",
             .set = [](Context& context,
                       const Call& call) { context.mainframe.sequence().loadOnAtEnd = call.boolean(0); },
             .query = [](Context& context, const Call&) -> std::string {
                 return context.mainframe.sequence().loadOnAtEnd ? "1" : "0";
             }},
            {.header = "SEQuence:REPeat",
             .parameters = "<0 to 32767>",
             .example = "3",
             .summary = "How often the loop is played; 0 for ever.",
             .set = setNumber<&SequenceMemory::repeatCount, 0, often, 1>,
             .query = queryNumber<&SequenceMemory::repeatCount>},
            {.header = "SEQuence:LOOP:STARt",
             .parameters = "<1 to 120>",
             .example = "1",
             .summary = "The point at which the loop begins, and the run with it.",
             .set = setNumber<&SequenceMemory::loopStart, 1, last, 1>,
             .query = queryNumber<&SequenceMemory::loopStart>},
            {.header = "SEQuence:END",
             .parameters = "<1 to 120>",
             .example = "2",
             .summary = "The point at which the loop ends.",
             .set = setNumber<&SequenceMemory::endPoint, 1, last, 1>,
             .query = queryNumber<&SequenceMemory::endPoint>},
            {.header = "SEQuence:EDIT:POINt",
             .parameters = "<1 to 120>",
             .example = "1",
             .summary = "Chooses the point that the commands below SEQuence:POINt mean.",
             .set =
                 [](Context& context, const Call& call) {
                     context.mainframe.editPoint(call.integer(0, {1, last, 1}));
                 },
             .query = [](Context& context, const Call&) { return std::to_string(context.mainframe.editedPoint()); }},
            {.header = "SEQuence:POINt:TIME",
             .parameters = "<s>|MINimum|MAXimum|DEFault",
             .queryParameters = limits,
             .example = "20 ms",
             .summary = "How long the point lasts, in seconds; a point of 0 is passed over.",
             .set = setField<seconds>,
             .query = queryField<seconds>},
            {.header = "SEQuence:POINt:CURRent",
             .parameters = "<A>|MINimum|MAXimum|DEFault",
             .queryParameters = limits,
             .example = "1.5",
             .summary = "The current of the point.",
             .set = setField<amperes>,
             .query = queryField<amperes>},
            {.header = "SEQuence:POINt:RISE",
             .parameters = "<A/us>|MINimum|MAXimum|DEFault",
             .queryParameters = limits,
             .example = "0.8",
             .summary = "How fast the current rises to the point; the nearest rate of the module is played.",
             .set = setField<rise>,
             .query = queryField<rise>},
            {.header = "SEQuence:POINt:FALL",
             .parameters = "<A/us>|MINimum|MAXimum|DEFault",
             .queryParameters = limits,
             .example = "0.8",
             .summary = "How fast the current falls to the point; the nearest rate of the module is played.",
             .set = setField<fall>,
             .query = queryField<fall>},
            {.header = "SEQuence:POINt:DATA",
             .parameters = "<s>,<A>,<A/us>,<A/us>",
             .example = "0.5,1,0.8,0.8",
             .summary = "All of the point at once: its time, current, rise and fall, separated by commas.",
             .set = setPoint,
             .query = queryPoint},
            {.header = "SEQuence:POINt:COUNt",
             .summary = "The number of points that the sequence has room for.",
             .query = [](Context&, const Call&) { return std::to_string(last); }},
            {.header = "SEQuence:TIME",
             .summary = "The seconds that one round of the loop takes.",
             .query =
                 [](Context& context, const Call&) {
                     return decimalText(context.mainframe.sequence().secondsOfRound(), seconds.decimals);
                 }},
            {.header = "SEQuence:CLEar",
             .summary = "Empties the sequence: no point has a time, and the loop is point 1.",
             .set = [](Context& context, const Call&) { context.mainframe.sequence() = {}; }},
            {.header = "SEQuence:RUN",
             .before = ":SEQ:EDIT:POIN 1;:SEQ:LOOP:STAR 1;:SEQ:END 1;:SEQ:POIN:TIME 1;:LOAD ON",
             .summary = "Plays the sequence on the selected channel, whose input must be on, in CC, with a range that "
                        "holds all its currents. Answers 1 while a run is under way, else 0.",
             .set = run,
             .query = [](Context& context, const Call&) -> std::string {
                 return context.mainframe.sequenceRuns() ? "1" : "0";
             }},
            {.header = "SEQuence:STOP",
             .summary = "Ends the run as its last point would.",
             .set = [](Context& context, const Call&) { context.mainframe.stopSequence(); }},
            {.header = "SEQuence:STATe",
             .summary = "IDLE, or RUN, the point and the round that are played, separated by commas.",
             .query = queryState},
            {.header = "SEQuence:CHANnel",
             .summary = "The channel that a run plays on; 0 without a run.",
             .query =
                 [](Context& context, const Call&) {
                     return std::to_string(
                         context.mainframe.sequenceRuns() ? context.mainframe.sequencePlayer().channel() : 0);
                 }},
        },
    };
}

} // namespace orb
