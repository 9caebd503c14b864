// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>

namespace orb {

/// The programs as the instrument keeps them: 12 of 10 steps, and the chain in which they run. Programs, steps and
/// memories are counted from 1. Times are in seconds, and one of 0 is off.
struct ProgramMemory {
    static constexpr int programCount = 12;
    static constexpr int stepCount = 10;
    static constexpr double maxSeconds = 60;
    /// The P/F-time alone may be longer.
    static constexpr double maxJudgeSeconds = 119.9;

    enum class RunMode { Skip, Auto, Manual };

    struct Step {
        /// The memory whose settings the step takes; 0 for none, which passes the step over.
        int memory = 0;
        RunMode mode = RunMode::Skip;
        double onSeconds = 0;
        double offSeconds = 0;
        /// When the readings are judged, after the inputs went on.
        double judgeSeconds = 0;
        /// How long the inputs of `shortChannels` are shorted at first; bit 0 is channel 1.
        double shortSeconds = 0;
        unsigned shortChannels = 0;

        /// Skipped steps and those without a memory or a time are passed over.
        bool takesTime() const;
    };

    /// All steps are skipped, each with the memory of its own number (1 to 120); every program ends the chain.
    ProgramMemory();

    Step& step(int program, int number) { return steps[indexOf(program, number)]; }
    const Step& step(int program, int number) const { return steps[indexOf(program, number)]; }
    /// The program that follows another one; 0 ends the chain.
    int& next(int program) { return followers[static_cast<std::size_t>(program - 1)]; }
    int next(int program) const { return followers[static_cast<std::size_t>(program - 1)]; }

    std::array<Step, static_cast<std::size_t>(programCount) * stepCount> steps{};
    std::array<int, programCount> followers{};
    /// The program at which the chain starts.
    int start = 1;

private:
    static std::size_t indexOf(int program, int number)
    {
        return static_cast<std::size_t>((program - 1) * stepCount + number - 1);
    }
};

/// The programs twice: as they are edited, asked for and run, and as they are kept over a reset.
class ProgramStore {
public:
    ProgramMemory programs;
    /// The program and the step that the commands for a step mean.
    int program = 1;
    int step = 1;

    ProgramMemory::Step& editedStep() { return programs.step(program, step); }
    /// Keeps the programs as they are now.
    void save() { kept_ = programs; }
    /// Goes back to what is kept, and to step 1 of program 1.
    void revert();

private:
    ProgramMemory kept_;
};

} // namespace orb
