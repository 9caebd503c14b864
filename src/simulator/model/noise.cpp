// SPDX-License-Identifier: GPL-3.0-or-later
#include "noise.h"

namespace orb {

std::uint64_t Noise::bits()
{
    // SplitMix64: a counter in steps of the golden ratio, stirred.
    state_ += 0x9E3779B97F4A7C15U;
    std::uint64_t mixed = state_;
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9U;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBU;
    return mixed ^ (mixed >> 31);
}

double Noise::uniform()
{
    return static_cast<double>(bits() >> 11) * 0x1.0p-53;
}

double Noise::normal()
{
    double sum = -6;
    for (int i = 0; i < 12; ++i)
        sum += uniform();
    return sum;
}

} // namespace orb
