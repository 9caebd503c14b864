// SPDX-License-Identifier: GPL-3.0-or-later
#include "real_clock.h"

#include <QCoreApplication>
#include <QThread>

namespace orb {

namespace {
constexpr int retryMs = 15; // how soon a tick that met a handler at work tries again
constexpr int longestYieldMs = 50;
} // namespace

RealClock::RealClock(Run& run) : Clock(run)
{
    elapsed_.start();
}

void RealClock::sleep(int ms)
{
    if (ms > 0)
        QThread::msleep(static_cast<unsigned long>(ms));
}

void RealClock::yield()
{
    run().beginYield();
    QCoreApplication::processEvents(QEventLoop::AllEvents, longestYieldMs);
    run().endYield();
}

void RealClock::reschedule(Timer& timer)
{
    auto& qtTimer = timers_[&timer];
    if (!qtTimer) {
        qtTimer = std::make_unique<QTimer>();
        qtTimer->setSingleShot(true);
        QTimer& owned = *qtTimer;
        QObject::connect(&owned, &QTimer::timeout, &owned, [this, &timer, &owned] { timeout(timer, owned); });
    }
    if (timer.isTicking())
        qtTimer->start(timer.interval());
    else
        qtTimer->stop();
}

void RealClock::timeout(Timer& timer, QTimer& qtTimer)
{
    if (run().isBusy()) {
        qtTimer.start(retryMs);
        return;
    }
    qtTimer.start(timer.interval()); // before the tick, which may switch the timer off
    timer.tick();
}

} // namespace orb
