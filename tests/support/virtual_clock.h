// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "journal.h"
#include "timer.h"

#include <vector>

namespace orb {

/// A clock for tests: a sleep takes no real time and moves the virtual time on; a yield moves it on by 1 ms and runs
/// what fell due: user input (`at`) and the timers' ticks, in the order of their time.
class VirtualClock final : public Clock {
public:
    /// Called once when more time passed than was allowed: a loop hangs, or the test should have said so. The run is
    /// ended after it.
    std::function<void()> onOverrun;
    /// Every sleep so far, in milliseconds.
    std::vector<int> sleeps;
    /// Every tick of a timer so far.
    int ticks = 0;

    /// Writes sleeps, yields and the watched timers into `journal`, which must outlive the clock.
    explicit VirtualClock(Run& run, Journal* journal = nullptr);

    QDateTime now() const override { return start_.addMSecs(elapsed_); }
    qint64 elapsed() const override { return elapsed_; }
    void sleep(int ms) override;
    void yield() override;
    void reschedule(Timer& timer) override;
    void forget(Timer& timer) override;

    /// Runs `action` as user input when `ms` have passed since the start, at the next yield or within `advance`.
    void at(qint64 ms, std::function<void()> action);
    /// Lets `ms` milliseconds pass with the event queue idle: ticks and actions happen each at its time.
    void advance(qint64 ms);
    /// Allows `ms` milliseconds in all; one hour without it.
    void allow(qint64 ms) { allowed_ = ms; }
    /// Moves the wall clock without letting time pass, as when a test begins at another moment.
    void setNow(const QDateTime& now) { start_ = now.addMSecs(-elapsed_); }

private:
    struct Due {
        qint64 at;
        Timer* timer;
    };
    struct Action {
        qint64 at;
        std::function<void()> run;
    };

    void pass(qint64 ms);
    bool runNextDue(qint64 until);
    void write(const QString& line);

    Journal* journal_;
    QDateTime start_{{2024, 1, 31}, {10, 15, 0}};
    qint64 elapsed_ = 0;
    qint64 allowed_ = 3'600'000;
    std::vector<Due> timers_;
    std::vector<Action> actions_;
};

} // namespace orb
