// SPDX-License-Identifier: GPL-3.0-or-later
#include "sequence_memory.h"

#include <gtest/gtest.h>

namespace orb {
namespace {

/// A loop from point 2 to point 3; the points beside it have the largest currents and times.
SequenceMemory loopOfTwo()
{
    SequenceMemory sequence;
    sequence.point(1) = {.current = 9, .seconds = 100};
    sequence.point(2) = {.current = 0.2, .seconds = 0.5};
    sequence.point(3) = {.current = 0.1, .seconds = 0.25};
    sequence.point(4) = {.current = 9, .seconds = 100};
    sequence.loopStart = 2;
    sequence.endPoint = 3;
    return sequence;
}

TEST(SequenceMemoryTest, TheDurationOfARoundIsThatOfTheLoop)
{
    EXPECT_EQ(loopOfTwo().secondsOfRound(), 0.75);
}

TEST(SequenceMemoryTest, ThePeakIsTheLargestCurrentOfTheLoop)
{
    EXPECT_EQ(loopOfTwo().peakCurrent(), 0.2);
}

TEST(SequenceMemoryTest, ALoopThatEndsBeforeItsStartHasNoDurationAndNoCurrent)
{
    SequenceMemory sequence = loopOfTwo();
    sequence.endPoint = 1;
    EXPECT_EQ(sequence.secondsOfRound(), 0);
    EXPECT_EQ(sequence.peakCurrent(), 0);
}

} // namespace
} // namespace orb
