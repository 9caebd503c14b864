// SPDX-License-Identifier: GPL-3.0-or-later
#include "virtual_clock.h"

#include <algorithm>

namespace orb {

VirtualClock::VirtualClock(Run& run, Journal* journal) : Clock(run), journal_(journal)
{
    if (journal_)
        journal_->elapsed = [this] { return elapsed_; };
}

void VirtualClock::write(const QString& line)
{
    if (journal_)
        journal_->write(line);
}

void VirtualClock::pass(qint64 ms)
{
    elapsed_ += ms;
    if (elapsed_ <= allowed_)
        return;
    allowed_ = elapsed_ + allowed_; // notified once
    if (onOverrun)
        onOverrun();
    run().end();
}

void VirtualClock::sleep(int ms)
{
    sleeps.push_back(ms);
    write(QStringLiteral("sleep %1").arg(ms));
    pass(std::max(ms, 0));
}

void VirtualClock::yield()
{
    run().beginYield();
    write(QStringLiteral("yield"));
    pass(1);
    while (runNextDue(elapsed_)) {
    }
    run().endYield();
}

void VirtualClock::advance(qint64 ms)
{
    const qint64 until = elapsed_ + ms;
    while (!run().isOver() && runNextDue(until)) {
    }
    elapsed_ = std::max(elapsed_, until);
}

void VirtualClock::at(qint64 ms, std::function<void()> action)
{
    actions_.push_back({ms, std::move(action)});
}

void VirtualClock::reschedule(Timer& timer)
{
    if (journal_)
        journal_->update();
    std::erase_if(timers_, [&](const Due& due) { return due.timer == &timer; });
    if (timer.isTicking())
        timers_.push_back({elapsed_ + timer.interval(), &timer});
}

void VirtualClock::forget(Timer& timer)
{
    if (journal_)
        journal_->unwatch(&timer);
    std::erase_if(timers_, [&](const Due& due) { return due.timer == &timer; });
}

/// Runs the first thing that is due until then, actions before ticks of the same moment.
bool VirtualClock::runNextDue(qint64 until)
{
    const auto earlier = [](const auto& a, const auto& b) { return a.at < b.at; };
    const auto action = std::min_element(actions_.begin(), actions_.end(), earlier);
    const auto timer = std::min_element(timers_.begin(), timers_.end(), earlier);
    const bool isAction = action != actions_.end() && (timer == timers_.end() || action->at <= timer->at);
    if (isAction && action->at <= until) {
        elapsed_ = std::max(elapsed_, action->at);
        const auto run = std::move(action->run);
        actions_.erase(action);
        run();
        return true;
    }
    if (isAction || timer == timers_.end() || timer->at > until)
        return false;
    elapsed_ = std::max(elapsed_, timer->at);
    timer->at = elapsed_ + timer->timer->interval();
    ++ticks;
    timer->timer->tick();
    return true;
}

} // namespace orb
