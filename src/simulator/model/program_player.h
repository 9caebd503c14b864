// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "program_memory.h"

#include <limits>

namespace orb {

class Mainframe;

/// Runs the programs of a chain. Only the channels whose inputs are on at its start take part: the run switches them
/// off and on again as its steps say, and no other input on. A channel leaves the run when its input is switched off
/// by anything else, and the run ends when none is left.
class ProgramPlayer {
public:
    enum class Phase { Idle, On, Off };

    /// Of judged steps since the run began, and of those among them where a reading was beyond a limit or protection
    /// tripped.
    struct Result {
        int judged = 0;
        int failed = 0;
    };

    /// Begins with the start of the chain. False, and nothing done, where no input is on or no step of the chain takes
    /// time. The programs are copied: changes of them are for the next run.
    bool start(const ProgramMemory& programs, double seconds, Mainframe& mainframe);
    /// Ends the run; the inputs of all channels that take part go off.
    void stop(Mainframe& mainframe);
    /// Ends the on-time of a manual step. False where there is none.
    bool goOnFromManualStep(double seconds, Mainframe& mainframe);
    /// The channel takes no part any more.
    void leave(int channel, Mainframe& mainframe);
    /// Does all that falls due up to a time, in seconds since the instrument was switched on, and moves the channels
    /// with it. Behind a thousand changes at once the rest of them is put off to that time.
    void advanceTo(double seconds, Mainframe& mainframe);

    Phase phase() const { return phase_; }
    /// The on-time lasts until somebody goes on.
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
    void dropWhatWentOff(Mainframe& mainframe);
    bool takesPart(int channel) const { return (channels_ >> (channel - 1) & 1U) != 0; }

    ProgramMemory programs_;
    Phase phase_ = Phase::Idle;
    int program_ = 1;
    int step_ = 1;
    unsigned channels_ = 0; // that take part; bit 0 is channel 1
    double phaseEnds_ = never;
    double shortEnds_ = never;
    double judgedAt_ = never;
    bool stepFailed_ = false;
    Result result_;
};

} // namespace orb
