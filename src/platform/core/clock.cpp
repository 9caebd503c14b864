// SPDX-License-Identifier: GPL-3.0-or-later
#include "clock.h"

namespace orb {

float Clock::secondsSinceMidnight() const
{
    return static_cast<float>(now().time().msecsSinceStartOfDay() / 1000.0);
}

} // namespace orb
