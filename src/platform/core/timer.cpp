// SPDX-License-Identifier: GPL-3.0-or-later
#include "timer.h"

namespace orb {

void Timer::setEnabled(bool enabled)
{
    if (enabled == enabled_)
        return;
    enabled_ = enabled;
    clock_.reschedule(*this);
}

void Timer::setInterval(int ms)
{
    if (ms < 0)
        throw RuntimeFailure(failure::InvalidPropertyValue);
    interval_ = ms;
    clock_.reschedule(*this);
}

void Timer::tick()
{
    if (onTick)
        clock_.run().enter(onTick);
}

} // namespace orb
