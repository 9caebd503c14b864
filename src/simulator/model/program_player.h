// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "program_memory.h"

#include <limits>

namespace orb {

class Mainframe;

/// Runs the programs of a chain on the channels whose inputs are on at the start: the steps switch these inputs off and
/// on, and no others. A channel leaves the run when anything else switches its input off. The run ends when no channel
/// is left.
class ProgramPlayer {
public:
    enum class Phase { Idle, On, Off };

    /// The number of judged steps since the run began, and of those in which a reading was outside of its limits or
    /// protection tripped.
    struct Result {
        int judged = 0;
        int failed = 0;
    };

    /// Begins at the start of the chain. Returns false and does nothing where no input is on or no step of the chain
    /// takes time. The programs are copied: changes of them apply to the next run.
    bool start(const ProgramMemory& programs, double seconds, Mainframe& mainframe);
    /// Ends the run and switches the inputs of its channels off.
    void stop(Mainframe& mainframe);
    /// Ends the on-time of a manual step. False where there is none.
    bool endManualStep(double seconds, Mainframe& mainframe);
    /// Takes the channel out of the run.
    void leave(int channel, Mainframe& mainframe);
    /// Executes all changes up to a time, in seconds since the instrument was switched on, and moves the channels with
    /// them. After a thousand changes at once the others are postponed to that time.
    void advanceTo(double seconds, Mainframe& mainframe);

    Phase phase() const { return phase_; }
    /// Whether a manual step waits for `endManualStep`.
    bool waits() const;
    int program() const { return program_; }
    int step() const { return step_; }
    const Result& result() const { return result_; }

private:
    static constexpr double never = std::numeric_limits<double>::infinity();

    const ProgramMemory::Step& current() const { return programs_.step(program_, step_); }
    double nextChange() const;
    void change(Mainframe& mainframe);
    bool findStep();
    void enterStep(double seconds, Mainframe& mainframe);
    void switchOn(double seconds, Mainframe& mainframe);
    void endOnTime(double seconds, Mainframe& mainframe);
    void endStep(double seconds, Mainframe& mainframe);
    void switchOff(Mainframe& mainframe);
    void endShort(Mainframe& mainframe);
    void judge(Mainframe& mainframe);
    void dropChannelsThatWentOff(Mainframe& mainframe);
    /// Calls `function` with the number of each channel of the run.
    template <typename Function> void forEachChannel(Function function) const
    {
        for (int number = 1; channels_ >> (number - 1) != 0; ++number) {
            if ((channels_ >> (number - 1) & 1U) != 0)
                function(number);
        }
    }

    ProgramMemory programs_;
    Phase phase_ = Phase::Idle;
    int program_ = 1;
    int step_ = 1;
    unsigned channels_ = 0; // of the run; bit 0 is channel 1
    double phaseEnds_ = never;
    double shortEnds_ = never;
    double judgedAt_ = never;
    bool stepFailed_ = false;
    Result result_;
};

} // namespace orb
