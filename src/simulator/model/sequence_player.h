// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "sequence_memory.h"

#include <cstdint>

namespace orb {

class LoadChannel;
class Mainframe;

/// Plays a sequence on one channel, whose input must be on; the player never switches one on. Anything that switches it
/// off (a command, protection, a change of mode) ends the run.
class SequencePlayer {
public:
    /// When more rounds of the loop than that are due at once, those before them are counted and not played.
    static constexpr int maxRoundsAtOnce = 100;

    /// Whether the channel can play the sequence: the input is on, in CC, and the loop has a first point not after its
    /// last one, a time, and no current above the range in force.
    static bool canPlay(const SequenceMemory& sequence, const LoadChannel& channel);

    /// Begins with the first point of the loop. The sequence is copied: changes of it apply to the next run.
    void start(const SequenceMemory& sequence, int channel, double seconds, Mainframe& mainframe);
    /// Ends the run as its last point does: the input goes off, or returns to its set value.
    void stop(Mainframe& mainframe);
    /// Plays all points up to a time, in seconds since the instrument was switched on, and moves the channels with them.
    void advanceTo(double seconds, Mainframe& mainframe);
    /// Sets the channel to the current of that time.
    void holdAt(double seconds, Mainframe& mainframe);

    bool runs(const Mainframe& mainframe) const;
    /// The channel, point and round (all from 1) of the present or last run.
    int channel() const { return channel_; }
    int point() const { return point_; }
    std::int64_t round() const { return round_; }

private:
    double currentAt(double seconds, const LoadChannel& channel) const;
    double endOfPoint() const { return began_ + sequence_.point(point_).seconds; }
    /// Enters the next point. False after the last point of the last round.
    bool enterNextPoint(const LoadChannel& channel);
    void skipRounds(double seconds);

    SequenceMemory sequence_;
    int channel_ = 1;
    int point_ = 1;
    std::int64_t round_ = 1;
    double began_ = 0;        // when the point began
    double beganCurrent_ = 0; // and the current at that moment
    double secondsOfRound_ = 0;
};

} // namespace orb
