// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "instrument_calendar.h"
#include "instrument_panel.h"
#include "load_channel.h"
#include "program_player.h"
#include "sequence_player.h"
#include "simulator_configuration.h"

#include <array>
#include <vector>

namespace orb {

/// What controls the instrument: its front panel, the remote interface too, or the remote interface alone.
enum class ControlState { Local, Remote, RemoteWithLockout };

/// The result of judging the readings of a channel; off where they are not judged.
enum class Verdict { Off, Pass, Fail };

/// The instrument without its command language: the channels, the memories and their common time. A channel's number
/// must be from 1 to `channelCount()`, a memory's from 1 to `memoryCount`.
class Mainframe {
public:
    static constexpr int memoryCount = 120;

    /// Bits of `operation`.
    enum Operation : unsigned { WaitingForNext = 32, SequenceRunning = 256, ProgramRunning = 16384 };

    /// Throws `std::invalid_argument` for an invalid configuration.
    Mainframe(const SimulatorConfiguration& configuration, SimulatorClock clock);

    int channelCount() const { return static_cast<int>(channels_.size()); }
    const LoadChannel& channel(int number) const { return channels_[indexOfChannel(number)]; }
    /// The channel for a change, which makes its last reading obsolete.
    LoadChannel& change(int number);

    /// The channel that commands without a channel number mean.
    int selectedChannel() const { return selected_; }
    void selectChannel(int number) { selected_ = number; }
    /// The channel that the screen shows large.
    int displayedChannel() const { return displayed_; }
    void displayChannel(int number) { displayed_ = number; }

    ControlState controlState() const { return controlState_; }
    void setControlState(ControlState state) { controlState_ = state; }
    /// Whether remote commands are executed without drawing the screen for each.
    bool fastRemote() const { return fastRemote_; }
    void setFastRemote(bool fast) { fastRemote_ = fast; }

    InstrumentPanel& panel() { return panel_; }
    const InstrumentPanel& panel() const { return panel_; }
    InstrumentCalendar& calendar() { return calendar_; }

    /// Since the instrument was switched on.
    double seconds() const { return seconds_; }
    /// Moves all channels to the clock's time, with everything that a running sequence or program does until then.
    void advance();
    /// Moves all channels to `seconds` since the instrument was switched on.
    void moveTo(double seconds);
    /// The latest reading of a channel; a new one if that is older than the measurement interval or the channel has
    /// been changed since.
    Reading fetch(int number);
    /// A new reading of a channel.
    Reading measure(int number);

    /// The sequence that is edited, and the point (from 1) that the commands for a point mean.
    SequenceMemory& sequence() { return sequence_; }
    const SequenceMemory& sequence() const { return sequence_; }
    int editedPoint() const { return editedPoint_; }
    void editPoint(int number) { editedPoint_ = number; }
    /// Plays the sequence on the selected channel. False where `SequencePlayer::canPlay` is, and during another run.
    bool runSequence();
    /// Ends the run as its last point would.
    void stopSequence() { sequencePlayer_.stop(*this); }
    bool sequenceRuns() const { return sequencePlayer_.runs(*this); }
    const SequencePlayer& sequencePlayer() const { return sequencePlayer_; }

    /// The programs that are edited.
    ProgramStore& programs() { return programs_; }
    /// Runs the chain of programs. False where `ProgramPlayer::start` is, and during another run.
    bool runProgram();
    void stopProgram() { programPlayer_.stop(*this); }
    bool endManualStep() { return programPlayer_.endManualStep(seconds_, *this); }
    bool programRuns() const { return programPlayer_.phase() != ProgramPlayer::Phase::Idle; }
    const ProgramPlayer& programPlayer() const { return programPlayer_; }

    /// A new reading of a channel, judged by its windows.
    Verdict judge(int number);

    /// Switches an input as the operator does: a channel that is switched off leaves a running program.
    void switchInput(int number, bool on);
    void switchAllOff();
    /// Switches all inputs off, resets all settings, the keys and the screen, and selects channel 1 and point 1.
    /// Memories, the calendar and the sequence stay; the programs return to what was saved.
    void reset();
    /// Saves the settings of all channels in a memory.
    void saveMemory(int number);
    /// Ends a running program, then applies the memory.
    void recallMemory(int number);
    /// Switches all inputs off and applies the settings of a memory, an empty one those after a reset.
    void applyMemory(int number);
    void clearMemory(int number) { memoryAt(number).clear(); }
    bool isWritten(int number) const { return !memories_[static_cast<std::size_t>(number - 1)].empty(); }

    /// The conditions of all channels together, bits of `LoadChannel::Condition`.
    unsigned condition() const;
    /// What the instrument does now, bits of `Operation`.
    unsigned operation() const;

private:
    struct Measurement {
        Reading reading;
        double seconds = 0;
        bool obsolete = true;
    };
    using Memory = std::vector<LoadSettings>;

    Memory& memoryAt(int number) { return memories_[static_cast<std::size_t>(number - 1)]; }
    static std::size_t indexOfChannel(int number) { return static_cast<std::size_t>(number - 1); }

    SimulatorClock clock_;
    std::chrono::nanoseconds origin_;
    double interval_; // seconds
    double seconds_ = 0;
    std::vector<LoadChannel> channels_;
    std::vector<Measurement> measurements_;
    std::array<Memory, memoryCount> memories_;
    InstrumentPanel panel_;
    InstrumentCalendar calendar_;
    SequenceMemory sequence_;
    SequencePlayer sequencePlayer_;
    int editedPoint_ = 1;
    ProgramStore programs_;
    ProgramPlayer programPlayer_;
    int selected_ = 1;
    int displayed_ = 1;
    ControlState controlState_ = ControlState::Local;
    bool fastRemote_ = false;
};

} // namespace orb
