// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "run.h"

#include <QDateTime>

namespace orb {

class Timer;

/// The only source of time: all waiting, ticking and reading of the time is done through it.
class Clock {
public:
    explicit Clock(Run& run) : run_(run) {}
    virtual ~Clock() = default;
    Clock(const Clock&) = delete;
    Clock& operator=(const Clock&) = delete;

    /// The local date and time.
    virtual QDateTime now() const = 0;
    /// Milliseconds that only ever grow, from an origin of the clock's own.
    virtual qint64 elapsed() const = 0;
    /// Blocks the thread for `ms` milliseconds and lets no event run. 0 and less return at once.
    virtual void sleep(int ms) = 0;
    /// Lets the event queue run once. Does not return when the run is over, or the main form was closed meanwhile.
    virtual void yield() = 0;

    /// Seconds since local midnight, in single precision and with it some 8 ms of grain by the end of a day.
    float secondsSinceMidnight() const;

    /// The run that a tick enters and a yield may end.
    Run& run() const { return run_; }

    /// Called by the timers: `timer` was switched on or off, or its interval changed.
    virtual void reschedule(Timer& timer) = 0;
    virtual void forget(Timer& timer) = 0;

private:
    Run& run_;
};

} // namespace orb
