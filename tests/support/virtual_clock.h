// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "timer.h"

#include <vector>

namespace orb {

/// A clock for tests: a sleep costs nothing, is written down and moves the time on; a yield moves it on by 1 ms and
/// lets happen what fell due: the operator's hand (`at`) and the timers' ticks, in the order of their time.
class VirtualClock final : public Clock {
public:
    /// Called once when more time passed than was allowed: a loop hangs, or the test should have said so. The run is
    /// ended after it.
    std::function<void()> onOverrun;
    /// Every sleep so far, in milliseconds.
    std::vector<int> sleeps;

    explicit VirtualClock(Run& run, const QDateTime& start = QDateTime({2024, 1, 31}, {10, 15, 0}));

    QDateTime now() const override { return start_.addMSecs(elapsed_); }
    qint64 elapsed() const override { return elapsed_; }
    void sleep(int ms) override;
    void yield() override;
    void reschedule(Timer& timer) override;
    void forget(Timer& timer) override;

    /// Runs `action` as the operator's doing when `ms` have passed since the start; heard at the next yield, or within
    /// `advance`.
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

    QDateTime start_;
    qint64 elapsed_ = 0;
    qint64 allowed_ = 3'600'000;
    std::vector<Due> timers_;
    std::vector<Action> actions_;
};

} // namespace orb
