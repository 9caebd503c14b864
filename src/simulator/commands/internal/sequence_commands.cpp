// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_commands.h"

#include <cmath>

namespace orb {

namespace {

using Point = SequenceMemory::Point;

constexpr int lastPoint = SequenceMemory::pointCount;

/// One of the numbers of a point.
struct Field {
    double Point::*value;
    Unit unit;
    NumberLimits limits;
    int decimals;
};

constexpr NumberLimits slewLimits{0, SequenceMemory::maxSlewRate, SequenceMemory::maxSlewRate};
constexpr Field seconds{&Point::seconds, Unit::Second, {0, SequenceMemory::maxSeconds, 0}, 6};
constexpr Field amperes{&Point::current, Unit::Ampere, {0, SequenceMemory::maxCurrent, 0}, 4};
constexpr Field rise{&Point::rise, Unit::AmperePerMicrosecond, slewLimits, 5};
constexpr Field fall{&Point::fall, Unit::AmperePerMicrosecond, slewLimits, 5};
constexpr const Field* fields[] = {&seconds, &amperes, &rise, &fall};

/// The parameter, rounded to the decimals that are shown.
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
    return decimalText(call.limitOr(editedPoint(context).*Shown.value, Shown.limits), Shown.decimals);
}

void setPoint(CommandContext& context, const CommandCall& call)
{
    Point point;
    for (std::size_t index = 0; index < std::size(fields); ++index)
        point.*fields[index]->value = readField(*fields[index], call, index);
    editedPoint(context) = point;
}

std::string queryPoint(CommandContext& context, const CommandCall&)
{
    return commaList(static_cast<int>(std::size(fields)), [&](int number) {
        const Field& field = *fields[number - 1];
        return decimalText(editedPoint(context).*field.value, field.decimals);
    });
}

template <int SequenceMemory::*Number, int Lowest, int Highest>
void setNumber(CommandContext& context, const CommandCall& call)
{
    context.mainframe.sequence().*Number = call.integer(0, {Lowest, Highest, 1});
}

template <int SequenceMemory::*Number> std::string queryNumber(CommandContext& context, const CommandCall&)
{
    return std::to_string(context.mainframe.sequence().*Number);
}

void setRange(CommandContext& context, const CommandCall& call)
{
    context.mainframe.sequence().voltageRange = static_cast<LoadRange>(call.choice(0, rangeWords));
}

std::string queryRange(CommandContext& context, const CommandCall&)
{
    return rangeText(context.mainframe.sequence().voltageRange);
}

void setEndValue(CommandContext& context, const CommandCall& call)
{
    constexpr std::string_view on[] = {"ON"};
    constexpr std::string_view off[] = {"OFF"};
    int& value = context.mainframe.sequence().endValue;
    if (call.isWord(0, on))
        value = 1;
    else if (call.isWord(0, off))
        value = 0;
    else
        value = call.integer(0, {SequenceMemory::minEndValue, SequenceMemory::maxEndValue, 0});
}

void editPoint(CommandContext& context, const CommandCall& call)
{
    context.mainframe.editPoint(call.integer(0, {1, lastPoint, 1}));
}

std::string queryPointCount(CommandContext&, const CommandCall&)
{
    return std::to_string(lastPoint);
}

std::string queryTime(CommandContext& context, const CommandCall&)
{
    return decimalText(context.mainframe.sequence().secondsOfRound(), seconds.decimals);
}

void clear(CommandContext& context, const CommandCall&)
{
    context.mainframe.sequence() = {};
}

std::string queryState(CommandContext& context, const CommandCall&)
{
    if (!context.mainframe.sequenceRuns())
        return "IDLE";
    const SequencePlayer& player = context.mainframe.sequencePlayer();
    return "RUN," + std::to_string(player.point()) + ',' + std::to_string(player.round());
}

std::string queryChannel(CommandContext& context, const CommandCall&)
{
    return std::to_string(context.mainframe.sequenceRuns() ? context.mainframe.sequencePlayer().channel() : 0);
}

template <const Field& Shown>
constexpr Command fieldRow(std::string_view header, std::string_view parameters, std::string_view example,
                           std::string_view summary)
{
    return {.header = header,
            .parameters = parameters,
            .queryParameters = limitNames,
            .example = example,
            .summary = summary,
            .set = setField<Shown>,
            .query = queryField<Shown>};
}

constexpr Command rows[] = {
    {.header = "SEQuence:VOLTage:RANGe",
     .parameters = "Low|High",
     .example = "H",
     .summary = "The range of the voltage meter while the sequence runs. Answers LOW or HIGH.",
     .set = setRange,
     .query = queryRange},
    {.header = "SEQuence:END:LOAD",
     .parameters = "ON|OFF|<-32768 to 32767>",
     .example = "0",
     .summary = "Whether the input stays on, at its set value, when the sequence has ended: with any number but 0. "
                "Answers the number, 1 for ON.",
     .set = setEndValue,
     .query = queryNumber<&SequenceMemory::endValue>},
    {.header = "SEQuence:REPeat",
     .parameters = "<0 to 32767>",
     .example = "3",
     .summary = "How often the loop is run; 0 for ever.",
     .set = setNumber<&SequenceMemory::repeatCount, 0, SequenceMemory::maxRepeatCount>,
     .query = queryNumber<&SequenceMemory::repeatCount>},
    {.header = "SEQuence:LOOP:STARt",
     .parameters = "<1 to 120>",
     .example = "1",
     .summary = "The point at which the loop begins, and the run with it.",
     .set = setNumber<&SequenceMemory::loopStart, 1, lastPoint>,
     .query = queryNumber<&SequenceMemory::loopStart>},
    {.header = "SEQuence:END",
     .parameters = "<1 to 120>",
     .example = "2",
     .summary = "The point at which the loop ends.",
     .set = setNumber<&SequenceMemory::endPoint, 1, lastPoint>,
     .query = queryNumber<&SequenceMemory::endPoint>},
    {.header = "SEQuence:EDIT:POINt",
     .parameters = "<1 to 120>",
     .example = "1",
     .summary = "Selects the point that the SEQuence:POINt commands mean.",
     .set = editPoint,
     .query = orb::queryNumber<&Mainframe::editedPoint>},
    fieldRow<seconds>("SEQuence:POINt:TIME", "<s>|MINimum|MAXimum|DEFault", "20 ms",
                      "The duration of the point in seconds; a point of 0 is skipped."),
    fieldRow<amperes>("SEQuence:POINt:CURRent", amperesOrLimit, "1.5", "The current of the point."),
    fieldRow<rise>("SEQuence:POINt:RISE", slewRateOrLimit, "0.8",
                   "The slew rate of a current that rises to the point; the nearest rate of the module is used."),
    fieldRow<fall>("SEQuence:POINt:FALL", slewRateOrLimit, "0.8",
                   "The slew rate of a current that falls to the point; the nearest rate of the module is used."),
    {.header = "SEQuence:POINt:DATA",
     .parameters = "<s>,<A>,<A/us>,<A/us>",
     .example = "0.5,1,0.8,0.8",
     .summary = "The whole point: its time, current, rise and fall, separated by commas.",
     .set = setPoint,
     .query = queryPoint},
    {.header = "SEQuence:POINt:COUNt", .summary = "The number of points of a sequence.", .query = queryPointCount},
    {.header = "SEQuence:TIME", .summary = "The duration of one round of the loop in seconds.", .query = queryTime},
    {.header = "SEQuence:CLEar",
     .summary = "Empties the sequence: no point has a time, and the loop is point 1.",
     .set = clear},
    {.header = "SEQuence:RUN",
     .before = ":SEQ:EDIT:POIN 1;:SEQ:LOOP:STAR 1;:SEQ:END 1;:SEQ:POIN:TIME 1;:LOAD ON",
     .summary = "Runs the sequence on the selected channel, whose input must be on, in CC, with a range that holds all "
                "its currents. Answers 1 during a run, else 0.",
     .set = performIfPossible<&Mainframe::runSequence>,
     .query = querySwitch<&Mainframe::sequenceRuns>},
    {.header = "SEQuence:STOP",
     .summary = "Ends the run as its last point would.",
     .set = perform<&Mainframe::stopSequence>},
    {.header = "SEQuence:STATe",
     .summary = "IDLE, or RUN and the present point and round, separated by commas.",
     .query = queryState},
    {.header = "SEQuence:CHANnel", .summary = "The channel of the run; 0 without a run.", .query = queryChannel},
};

} // namespace

constinit const CommandSection sequenceCommands{"Sequence", rows};

} // namespace orb
