// SPDX-License-Identifier: GPL-3.0-or-later
#include "noise.h"

namespace orb {

double Noise::next()
{
    double sum = -6;
    for (int i = 0; i < 12; ++i)
        sum += static_cast<double>(engine_() >> 11) * 0x1.0p-53;
    return sum;
}

} // namespace orb
