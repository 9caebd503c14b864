// SPDX-License-Identifier: GPL-3.0-or-later
#include "answer_text.h"
#include "instrument_commands.h"
#include "mainframe.h"

#include "instrument_error.h"

#include <cmath>

namespace orb {

namespace {

using Step = ProgramMemory::Step;

/// The words for `ProgramMemory::RunMode`, in its order, and the answers, which are whole words.
constexpr std::string_view modeWords[] = {"SKIP", "AUTO", "MANual"};
constexpr std::string_view modeAnswers[] = {"SKIP", "AUTO", "MANUAL"};

/// What a program can be followed by: nothing, or a program by its name or its number.
constexpr std::string_view chainWords[] = {"OFF", "P01", "P02", "P03", "P04", "P05", "P06", "P07", "P08",
                                           "P09", "P10", "P11", "P12", "0",   "1",   "2",   "3",   "4",
                                           "5",   "6",   "7",   "8",   "9",   "10",  "11",  "12"};
constexpr std::size_t chainChoices = 1 + ProgramMemory::programCount;
static_assert(std::size(chainWords) == 2 * chainChoices);

// The unit may stand behind the word as it does behind a number.
constexpr std::string_view offWords[] = {"OFF", "OFFS"};

Step& editedStep(CommandContext& context)
{
    return context.mainframe.programs().editedStep();
}

/// Seconds with one or two decimals, 0 where the time is off: what a box for a time takes, switched on or off.
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
    if (call.parameterCount() > 0)
        return timeText(call.limit(0, timeLimits<Time>()));
    return timeText(editedStep(context).*Time);
}

std::string chainText(int program)
{
    return std::string(chainWords[static_cast<std::size_t>(program)]);
}

int readChain(const CommandCall& call)
{
    return static_cast<int>(call.choice(0, chainWords) % chainChoices);
}

void setStart(CommandContext& context, const CommandCall& call)
{
    const int program = readChain(call);
    if (program == 0)
        throw CommandFailure{ErrorNumber::IllegalParameterValue};
    context.mainframe.programs().programs.start = program;
}

int& follower(CommandContext& context)
{
    ProgramStore& store = context.mainframe.programs();
    return store.programs.next(store.program);
}

std::string modeAnswer(const Step& step)
{
    return std::string(modeAnswers[static_cast<std::size_t>(step.mode)]);
}

std::string queryStep(CommandContext& context, const CommandCall&)
{
    const Step& step = editedStep(context);
    return std::to_string(step.memory) + ',' + modeAnswer(step) + ',' + timeText(step.onSeconds) + ',' +
           std::to_string(step.shortChannels) + ',' + timeText(step.offSeconds) + ',' + timeText(step.judgeSeconds) +
           ',' + timeText(step.shortSeconds);
}

void run(CommandContext& context, const CommandCall&)
{
    if (!context.mainframe.runProgram())
        throw CommandFailure{ErrorNumber::SettingsConflict};
}

void goOn(CommandContext& context, const CommandCall&)
{
    if (!context.mainframe.goOnFromManualStep())
        throw CommandFailure{ErrorNumber::SettingsConflict};
}

std::string queryState(CommandContext& context, const CommandCall&)
{
    const ProgramPlayer& player = context.mainframe.programPlayer();
    if (player.phase() == ProgramPlayer::Phase::Idle)
        return "IDLE";
    const bool on = player.phase() == ProgramPlayer::Phase::On;
    return "RUN," + std::to_string(player.program()) + ',' + std::to_string(player.step()) + ',' +
           (player.waits() ? "WAIT"
            : on           ? "ON"
                           : "OFF");
}

std::string queryResult(CommandContext& context, const CommandCall&)
{
    const ProgramPlayer::Result& result = context.mainframe.programPlayer().result();
    const char* const verdict = result.judged == 0 ? "NONE" : result.failed == 0 ? "PASS" : "FAIL";
    return verdict + (',' + std::to_string(result.judged)) + ',' + std::to_string(result.failed);
}

constexpr std::string_view timeParameters = "<s>|OFF|MINimum|MAXimum";
constexpr std::string_view limits = "[MINimum|MAXimum]";

using Context = CommandContext;
using Call = CommandCall;

std::vector<Command> stepCommands()
{
    constexpr static int memories = Mainframe::memoryCount;
    return {
        {.header = "PROGram:FILE",
         .parameters = "<1 to 12>",
         .example = "3",
         .summary = "Chooses the program that the other commands mean.",
         .set =
             [](Context& context, const Call& call) {
                 context.mainframe.programs().program = call.integer(0, {1, ProgramMemory::programCount, 1});
             },
         .query = [](Context& context, const Call&) { return std::to_string(context.mainframe.programs().program); }},
        {.header = "PROGram:SEQuence",
         .parameters = "<1 to 10>",
         .example = "4",
         .summary = "Chooses the step of the program that the other commands mean.",
         .set =
             [](Context& context, const Call& call) {
                 context.mainframe.programs().step = call.integer(0, {1, ProgramMemory::stepCount, 1});
             },
         .query = [](Context& context, const Call&) { return std::to_string(context.mainframe.programs().step); }},
        {.header = "PROGram:CHAin",
         .parameters = "OFF|P01 to P12|0 to 12",
         .example = "P03",
         .summary = "The program that follows this one; OFF ends the chain. Answers OFF or P and two digits.",
         .set = [](Context& context, const Call& call) { follower(context) = readChain(call); },
         .query = [](Context& context, const Call&) { return chainText(follower(context)); }},
        {.header = "PROGram:STARt",
         .parameters = "P01 to P12|1 to 12",
         .example = "P02",
         .summary = "The program at which the chain starts. Answers P and two digits.",
         .set = setStart,
         .query = [](Context& context, const Call&) { return chainText(context.mainframe.programs().programs.start); }},
        {.header = "PROGram:MEMory",
         .parameters = "<0 to 120>",
         .example = "17",
         .summary = "The memory whose settings the step takes; 0 for none, which passes the step over.",
         .set =
             [](Context& context, const Call& call) {
                 editedStep(context).memory = call.integer(0, {0, memories, 0});
             },
         .query = [](Context& context, const Call&) { return std::to_string(editedStep(context).memory); }},
        {.header = "PROGram:SEQuence:MODE",
         .parameters = "SKIP|AUTO|MANual",
         .example = "AUTO",
         .summary = "Whether the step is passed over, goes on when its on-time is over, or when PROGram:NEXT says so. "
                    "Answers SKIP, AUTO or MANUAL.",
         .set =
             [](Context& context, const Call& call) {
                 editedStep(context).mode = static_cast<ProgramMemory::RunMode>(call.choice(0, modeWords));
             },
         .query = [](Context& context, const Call&) { return modeAnswer(editedStep(context)); }},
        {.header = "PROGram:ONTime",
         .parameters = timeParameters,
         .queryParameters = limits,
         .example = "1.5S",
         .summary = "How many seconds the inputs are on in the step, at most 60; 0 is off.",
         .set = setTime<&Step::onSeconds>,
         .query = queryTime<&Step::onSeconds>},
        {.header = "PROGram:OFFTime",
         .parameters = timeParameters,
         .queryParameters = limits,
         .example = "OffS",
         .summary = "How many seconds the inputs are off behind the on-time, at most 60; 0 is off.",
         .set = setTime<&Step::offSeconds>,
         .query = queryTime<&Step::offSeconds>},
        {.header = "PROGram:PFTime",
         .parameters = timeParameters,
         .queryParameters = limits,
         .example = "0.5S",
         .summary = "How many seconds after the inputs went on the readings are judged, at most 119.9 and at most the "
                    "on-time; 0 is off.",
         .set = setTime<&Step::judgeSeconds>,
         .query = queryTime<&Step::judgeSeconds>},
        {.header = "PROGram:SEQuence:SHORt:CHANnel",
         .parameters = "<0 to 255>",
         .example = "5",
         .summary = "The channels that the step shorts, as a sum: 1 for channel 1, 2 for channel 2, 4 for channel 3 "
                    "and so on.",
         .set =
             [](Context& context, const Call& call) {
                 editedStep(context).shortChannels = static_cast<unsigned>(call.integer(0, {0, 255, 0}));
             },
         .query = [](Context& context, const Call&) { return std::to_string(editedStep(context).shortChannels); }},
        {.header = "PROGram:SEQuence:SHORt:TIME",
         .parameters = timeParameters,
         .queryParameters = limits,
         .example = "0.1S",
         .summary = "How many seconds the short lasts after the inputs went on, at most 60; 0 is off.",
         .set = setTime<&Step::shortSeconds>,
         .query = queryTime<&Step::shortSeconds>},
        {.header = "PROGram:SEQuence:DATA",
         .summary = "All of the step: memory, mode, on-time, short channels, off-time, P/F-time and short time, "
                    "separated by commas.",
         .query = queryStep},
        {.header = "PROGram:SEQuence:CLEar",
         .summary = "Makes the step one that is skipped, without a memory and without times.",
         .set = [](Context& context, const Call&) { editedStep(context) = {}; }},
    };
}

std::vector<Command> runCommands()
{
    return {
        {.header = "PROGram:SAVE",
         .summary = "Keeps all programs and the chain as they are now; a reset goes back to what was kept.",
         .set = [](Context& context, const Call&) { context.mainframe.programs().save(); }},
        {.header = "PROGram:CLEar",
         .summary = "Makes all programs and the chain what they were at first; what was kept stays.",
         .set = [](Context& context, const Call&) { context.mainframe.programs().programs = {}; }},
        {.header = "PROGram:RUN",
         .before = ":PROG:STAR P01;:PROG:FILE 1;:PROG:SEQ 1;:PROG:MEM 1;:PROG:SEQ:MODE AUTO;:PROG:ONT 1S;:LOAD ON",
         .summary = "Runs the chain of programs on the channels whose inputs are on, and switches these off and on as "
                    "the steps say. Answers 1 while a run is under way, else 0.",
         .set = run,
         .query = [](Context& context, const Call&) -> std::string {
             return context.mainframe.programRuns() ? "1" : "0";
         }},
        {.header = "PROGram:NEXT",
         .before = ":PROG:STAR P01;:PROG:FILE 1;:PROG:SEQ 1;:PROG:MEM 1;:PROG:SEQ:MODE MAN;:LOAD ON;:PROG:RUN",
         .summary = "Goes on from a manual step.",
         .set = goOn},
        {.header = "PROGram:STOP",
         .summary = "Ends the run and switches the inputs of its channels off.",
         .set = [](Context& context, const Call&) { context.mainframe.stopProgram(); }},
        {.header = "PROGram:STATe",
         .summary = "IDLE, or RUN, the program, the step and ON, WAIT (on, until PROGram:NEXT) or OFF, separated by "
                    "commas.",
         .query = queryState},
        {.header = "PROGram:RESult",
         .summary = "PASS, FAIL or NONE, the steps that were judged in the present or last run, and how many of them "
                    "failed, separated by commas.",
         .query = queryResult},
    };
}

} // namespace

CommandSection programCommands()
{
    std::vector<Command> commands = stepCommands();
    const std::vector<Command> others = runCommands();
    commands.insert(commands.end(), others.begin(), others.end());
    return {"Program", std::move(commands)};
}

} // namespace orb
