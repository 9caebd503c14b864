// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "timer.h"

#include <QElapsedTimer>
#include <QTimer>

#include <map>
#include <memory>

namespace orb {

/// The clock of the running program: the system's time, a thread that really sleeps, Qt's event queue.
class RealClock final : public Clock {
public:
    explicit RealClock(Run& run);

    QDateTime now() const override { return QDateTime::currentDateTime(); }
    qint64 elapsed() const override { return elapsed_.elapsed(); }
    void sleep(int ms) override;
    void yield() override;

    void reschedule(Timer& timer) override;
    void forget(Timer& timer) override { timers_.erase(&timer); }

private:
    void timeout(Timer& timer, QTimer& qtTimer);

    QElapsedTimer elapsed_;
    std::map<Timer*, std::unique_ptr<QTimer>> timers_;
};

} // namespace orb
