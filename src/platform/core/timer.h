// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "clock.h"

namespace orb {

/// Calls `onTick` every `interval` milliseconds while it is enabled. A tick waits while a handler is at work that does
/// not yield, and ticks that were missed meanwhile come as one.
class Timer {
public:
    std::function<void()> onTick;

    /// Starts disabled, with interval 0. `clock` must outlive the timer.
    explicit Timer(Clock& clock) : clock_(clock) {}
    ~Timer() { clock_.forget(*this); }
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

    bool enabled() const { return enabled_; }
    /// Switching on begins a whole interval; switching on what is on changes nothing.
    void setEnabled(bool enabled);

    /// In milliseconds. A timer with interval 0 never ticks.
    int interval() const { return interval_; }
    /// Begins the interval anew. Refuses a value below 0 with failure 380.
    void setInterval(int ms);

    /// True when the clock has to tick it.
    bool isTicking() const { return enabled_ && interval_ > 0; }
    /// Called by the clock when the interval is over: runs `onTick` as an event of the desktop.
    void tick();

private:
    Clock& clock_;
    bool enabled_ = false;
    int interval_ = 0;
};

} // namespace orb
