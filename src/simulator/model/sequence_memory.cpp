// SPDX-License-Identifier: GPL-3.0-or-later
#include "sequence_memory.h"

#include <algorithm>

namespace orb {

double SequenceMemory::secondsOfRound() const
{
    double seconds = 0;
    for (int number = loopStart; number <= endPoint; ++number)
        seconds += point(number).seconds;
    return seconds;
}

double SequenceMemory::peakCurrent() const
{
    double peak = 0;
    for (int number = loopStart; number <= endPoint; ++number)
        peak = std::max(peak, point(number).current);
    return peak;
}

} // namespace orb
