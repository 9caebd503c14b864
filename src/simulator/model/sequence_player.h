// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "sequence_memory.h"

#include <cstdint>

namespace orb {

class LoadChannel;
class Mainframe;

/// Plays a sequence on one channel. The input must be on for it; the player never switches one on. Whatever switches
/// it off (a command, protection, a change of mode) ends the run.
class SequencePlayer {
public:
    /// Rounds of the loop that are played one by one when the time has moved on by more than that; those before them
    /// are only counted.
    static constexpr int maxRoundsAtOnce = 100;

    /// Whether that sequence can be played on that channel as it is: the input on, in CC, the loop with a first point
    /// not behind its last one, a time, and no current beyond the range in force.
    static bool canPlay(const SequenceMemory& sequence, const LoadChannel& channel);

    /// Begins with the first point of the loop. The sequence is copied: changes of it are for the next run.
    void start(const SequenceMemory& sequence, int channel, double seconds, Mainframe& mainframe);
    /// Ends the run as its last point would: the input goes off, or back to its set value.
    void stop(Mainframe& mainframe);
    /// Plays all changes up to a time, in seconds since the instrument was switched on, and moves the channels with
    /// them.
    void advanceTo(double seconds, Mainframe& mainframe);
    /// Lets the channel draw the current of that moment.
    void holdAt(double seconds, Mainframe& mainframe);

    bool runs(const Mainframe& mainframe) const;
    /// The channel, point and round (all from 1) of the present or last run.
    int channel() const { return channel_; }
    int point() const { return point_; }
    std::int64_t round() const { return round_; }

private:
    double currentAt(double seconds, const LoadChannel& channel) const;
    double endOfPoint() const { return began_ + sequence_.point(point_).seconds; }
    /// False behind the last point of the last round.
    bool goOn(const LoadChannel& channel);
    void skipRounds(double seconds);

    SequenceMemory sequence_;
    bool running_ = false;
    int channel_ = 1;
    int point_ = 1;
    std::int64_t round_ = 1;
    double began_ = 0;        // when the point began
    double beganCurrent_ = 0; // and the current at that moment
    double secondsOfRound_ = 0;
};

} // namespace orb
