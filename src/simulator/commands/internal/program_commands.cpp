// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_commands.h"

#include <cmath>

namespace orb {

namespace {

using Step = ProgramMemory::Step;

/// The words for `ProgramMemory::RunMode`, in its order, and the answers, which are whole words.
constexpr std::string_view modeWords[] = {"SKIP", "AUTO", "MANual"};
constexpr const char* modeAnswers[] = {"SKIP", "AUTO", "MANUAL"};

/// The program after another one: none, or a program by its name or its number.
constexpr std::string_view chainWords[] = {"OFF", "P01", "P02", "P03", "P04", "P05", "P06", "P07", "P08",
                                           "P09", "P10", "P11", "P12", "0",   "1",   "2",   "3",   "4",
                                           "5",   "6",   "7",   "8",   "9",   "10",  "11",  "12"};
constexpr std::size_t chainChoices = 1 + ProgramMemory::programCount;
static_assert(std::size(chainWords) == 2 * chainChoices);

// The unit of a time may follow the word as it follows a number.
constexpr std::string_view offWords[] = {"OFF", "OFFS"};

Step& editedStep(CommandContext& context)
{
    return context.mainframe.programs().editedStep();
}

/// The program or the step that is edited.
template <int ProgramStore::*Number, int Highest> void choose(CommandContext& context, const CommandCall& call)
{
    context.mainframe.programs().*Number = call.integer(0, {1, Highest, 1});
}

template <int ProgramStore::*Number> std::string queryChosen(CommandContext& context, const CommandCall&)
{
    return std::to_string(context.mainframe.programs().*Number);
}

std::string chainText(int program)
{
    return std::string(chainWords[static_cast<std::size_t>(program)]);
}

int readChain(const CommandCall& call)
{
    return static_cast<int>(call.choice(0, chainWords) % chainChoices);
}

int& nextProgram(CommandContext& context)
{
    ProgramStore& store = context.mainframe.programs();
    return store.programs.next(store.program);
}

void setChain(CommandContext& context, const CommandCall& call)
{
    nextProgram(context) = readChain(call);
}

std::string queryChain(CommandContext& context, const CommandCall&)
{
    return chainText(nextProgram(context));
}

void setStart(CommandContext& context, const CommandCall& call)
{
    const int program = readChain(call);
    if (program == 0)
        throw CommandFailure{ErrorNumber::IllegalParameterValue};
    context.mainframe.programs().programs.start = program;
}

std::string queryStart(CommandContext& context, const CommandCall&)
{
    return chainText(context.mainframe.programs().programs.start);
}

/// A whole number of a step: `Step::memory` or `Step::shortChannels`.
template <auto Number, int Highest> void setNumber(CommandContext& context, const CommandCall& call)
{
    auto& number = editedStep(context).*Number;
    number = static_cast<std::remove_reference_t<decltype(number)>>(call.integer(0, {0, Highest, 0}));
}

template <auto Number> std::string queryNumber(CommandContext& context, const CommandCall&)
{
    return std::to_string(editedStep(context).*Number);
}

void setMode(CommandContext& context, const CommandCall& call)
{
    editedStep(context).mode = static_cast<ProgramMemory::RunMode>(call.choice(0, modeWords));
}

std::string queryMode(CommandContext& context, const CommandCall&)
{
    return modeAnswers[static_cast<std::size_t>(editedStep(context).mode)];
}

/// Seconds with one or two decimals, 0 where the time is off, as the boxes for a time take them.
std::string timeText(double seconds)
{
    if (seconds <= 0)
        return "0";
    std::string text = decimalText(seconds, 2);
    if (text.ends_with('0'))
        text.pop_back();
    return text;
}

template <double Step::*Time> constexpr NumberLimits timeLimits()
{
    return {0, Time == &Step::judgeSeconds ? ProgramMemory::maxJudgeSeconds : ProgramMemory::maxSeconds, 0};
}

template <double Step::*Time> void setTime(CommandContext& context, const CommandCall& call)
{
    const double seconds = call.isWord(0, offWords) ? 0 : call.number(0, Unit::Second, timeLimits<Time>());
    editedStep(context).*Time = std::round(seconds * 100) / 100;
}

template <double Step::*Time> std::string queryTime(CommandContext& context, const CommandCall& call)
{
    return timeText(call.limitOr(editedStep(context).*Time, timeLimits<Time>()));
}

std::string queryStep(CommandContext& context, const CommandCall& call)
{
    const Step& step = editedStep(context);
    return std::to_string(step.memory) + ',' + queryMode(context, call) + ',' + timeText(step.onSeconds) + ',' +
           std::to_string(step.shortChannels) + ',' + timeText(step.offSeconds) + ',' + timeText(step.judgeSeconds) +
           ',' + timeText(step.shortSeconds);
}

void clearStep(CommandContext& context, const CommandCall&)
{
    editedStep(context) = {};
}

void save(CommandContext& context, const CommandCall&)
{
    context.mainframe.programs().save();
}

void clear(CommandContext& context, const CommandCall&)
{
    context.mainframe.programs().programs = {};
}

std::string queryState(CommandContext& context, const CommandCall&)
{
    const ProgramPlayer& player = context.mainframe.programPlayer();
    if (player.phase() == ProgramPlayer::Phase::Idle)
        return "IDLE";
    const char* const phase = player.phase() == ProgramPlayer::Phase::Off ? "OFF" : player.waits() ? "WAIT" : "ON";
    return "RUN," + std::to_string(player.program()) + ',' + std::to_string(player.step()) + ',' + phase;
}

std::string queryResult(CommandContext& context, const CommandCall&)
{
    const ProgramPlayer::Result& result = context.mainframe.programPlayer().result();
    const char* const verdict = result.judged == 0 ? "NONE" : result.failed == 0 ? "PASS" : "FAIL";
    return verdict + (',' + std::to_string(result.judged)) + ',' + std::to_string(result.failed);
}

template <double Step::*Time>
constexpr Command timeRow(std::string_view header, std::string_view example, std::string_view summary)
{
    return {.header = header,
            .parameters = "<s>|OFF|MINimum|MAXimum",
            .queryParameters = "[MINimum|MAXimum]",
            .example = example,
            .summary = summary,
            .set = setTime<Time>,
            .query = queryTime<Time>};
}

constexpr Command rows[] = {
    {.header = "PROGram:FILE",
     .parameters = "<1 to 12>",
     .example = "3",
     .summary = "Selects the program that the other commands mean.",
     .set = choose<&ProgramStore::program, ProgramMemory::programCount>,
     .query = queryChosen<&ProgramStore::program>},
    {.header = "PROGram:SEQuence",
     .parameters = "<1 to 10>",
     .example = "4",
     .summary = "Selects the step of the program that the other commands mean.",
     .set = choose<&ProgramStore::step, ProgramMemory::stepCount>,
     .query = queryChosen<&ProgramStore::step>},
    {.header = "PROGram:CHAin",
     .parameters = "OFF|P01 to P12|0 to 12",
     .example = "P03",
     .summary = "The program that follows this one; OFF ends the chain. Answers OFF or P and two digits.",
     .set = setChain,
     .query = queryChain},
    {.header = "PROGram:STARt",
     .parameters = "P01 to P12|1 to 12",
     .example = "P02",
     .summary = "The program at which the chain starts. Answers P and two digits.",
     .set = setStart,
     .query = queryStart},
    {.header = "PROGram:MEMory",
     .parameters = "<0 to 120>",
     .example = "17",
     .summary = "The memory that the step recalls; a step with memory 0 is skipped.",
     .set = setNumber<&Step::memory, Mainframe::memoryCount>,
     .query = queryNumber<&Step::memory>},
    {.header = "PROGram:SEQuence:MODE",
     .parameters = "SKIP|AUTO|MANual",
     .example = "AUTO",
     .summary = "Whether the step is skipped, or its on-time ends by itself or at PROGram:NEXT. Answers SKIP, AUTO or "
                "MANUAL.",
     .set = setMode,
     .query = queryMode},
    timeRow<&Step::onSeconds>("PROGram:ONTime", "1.5S",
                              "How many seconds the inputs are on in the step, at most 60; 0 is off."),
    timeRow<&Step::offSeconds>("PROGram:OFFTime", "OffS",
                               "How many seconds the inputs are off after the on-time, at most 60; 0 is off."),
    timeRow<&Step::judgeSeconds>(
        "PROGram:PFTime", "0.5S",
        "How many seconds after the inputs went on the readings are judged, at most 119.9 and at most the "
        "on-time; 0 is off."),
    {.header = "PROGram:SEQuence:SHORt:CHANnel",
     .parameters = "<0 to 255>",
     .example = "5",
     .summary = "The channels that the step shorts, as a sum: 1 for channel 1, 2 for channel 2, 4 for channel 3 and so "
                "on.",
     .set = setNumber<&Step::shortChannels, 255>,
     .query = queryNumber<&Step::shortChannels>},
    timeRow<&Step::shortSeconds>("PROGram:SEQuence:SHORt:TIME", "0.1S",
                                 "How many seconds the short lasts after the inputs went on, at most 60; 0 is off."),
    {.header = "PROGram:SEQuence:DATA",
     .summary = "The whole step: memory, mode, on-time, short channels, off-time, P/F-time and short time, separated "
                "by commas.",
     .query = queryStep},
    {.header = "PROGram:SEQuence:CLEar",
     .summary = "Makes the step one that is skipped, without a memory and without times.",
     .set = clearStep},
    {.header = "PROGram:SAVE",
     .summary = "Saves all programs and the chain; a reset returns to what was saved.",
     .set = save},
    {.header = "PROGram:CLEar",
     .summary = "Sets all programs and the chain to what they are at first; what was saved stays.",
     .set = clear},
    {.header = "PROGram:RUN",
     .before = ":PROG:STAR P01;:PROG:FILE 1;:PROG:SEQ 1;:PROG:MEM 1;:PROG:SEQ:MODE AUTO;:PROG:ONT 1S;:LOAD ON",
     .summary = "Runs the chain of programs on the channels whose inputs are on, and switches these off and on as the "
                "steps require. Answers 1 during a run, else 0.",
     .set = performIfPossible<&Mainframe::runProgram>,
     .query = querySwitch<&Mainframe::programRuns>},
    {.header = "PROGram:NEXT",
     .before = ":PROG:STAR P01;:PROG:FILE 1;:PROG:SEQ 1;:PROG:MEM 1;:PROG:SEQ:MODE MAN;:LOAD ON;:PROG:RUN",
     .summary = "Ends the on-time of a manual step.",
     .set = performIfPossible<&Mainframe::endManualStep>},
    {.header = "PROGram:STOP",
     .summary = "Ends the run and switches the inputs of its channels off.",
     .set = perform<&Mainframe::stopProgram>},
    {.header = "PROGram:STATe",
     .summary =
         "IDLE, or RUN, the program, the step and ON, WAIT (on, until PROGram:NEXT) or OFF, separated by commas.",
     .query = queryState},
    {.header = "PROGram:RESult",
     .summary = "PASS, FAIL or NONE, the number of judged steps in the present or last run, and how many of them "
                "failed, separated by commas.",
     .query = queryResult},
};

} // namespace

constinit const CommandSection programCommands{"Program", rows};

} // namespace orb
