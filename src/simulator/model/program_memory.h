// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "prog_file_record.h"

#include <array>
#include <cstddef>

namespace orb {

/// The programs: 12 of 10 steps each, and the chain in which they run. Programs, steps and memories are counted from 1.
/// Times are in seconds; a time of 0 is off.
struct ProgramMemory {
    static constexpr int programCount = 12;
    static constexpr int stepCount = 10;
    static constexpr double maxSeconds = 60;
    /// The P/F-time alone may be longer.
    static constexpr double maxJudgeSeconds = 119.9;

    enum class RunMode { Skip, Auto, Manual };

    struct Step {
        /// The memory that the step recalls; a step with memory 0 is skipped.
        int memory = 0;
        RunMode mode = RunMode::Skip;
        double onSeconds = 0;
        double offSeconds = 0;
        /// When the readings are judged, after the inputs went on.
        double judgeSeconds = 0;
        /// How long the inputs of `shortChannels` (bit 0 is channel 1) are shorted at the beginning.
        double shortSeconds = 0;
        unsigned shortChannels = 0;

        /// False for a step that is skipped: by its mode, without a memory, or without a time.
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

/// The programs as they are edited and run, and as they were saved.
class ProgramStore {
public:
    ProgramMemory programs;
    /// The program and the step that are edited.
    int program = 1;
    int step = 1;

    ProgramStore();

    ProgramMemory::Step& editedStep() { return programs.step(program, step); }
    void save();
    /// Returns to what was saved, and to step 1 of program 1.
    void revert();

    /// The edited programs as a file, see `programFile`.
    ProgFileRecord file() const;
    /// Replaces the programs, edited and saved, and all other bytes of the file. False where the instrument can't hold
    /// them; nothing has changed then.
    bool takeFile(const ProgFileRecord& file);

private:
    ProgramMemory saved_;
    ProgFileRecord rest_; // the bytes of the file that hold no programs
};

} // namespace orb
