// SPDX-License-Identifier: GPL-3.0-or-later
#include "repaint_queue.h"

#include <algorithm>
#include <utility>

namespace orb {

std::optional<qint64> RepaintPace::ask(qint64 now)
{
    if (std::exchange(waiting_, true))
        return std::nullopt;
    return last_ ? std::max<qint64>(0, *last_ + interval - now) : 0;
}

void RepaintPace::begin(qint64 now)
{
    waiting_ = false;
    last_ = now;
}

RepaintQueue::RepaintQueue(std::function<void(bool everything)> repaint) : repaint_(std::move(repaint))
{
    clock_.start();
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { paint(); });
}

void RepaintQueue::setAsleep(bool asleep)
{
    asleep_ = asleep;
    if (wanted_)
        start();
}

void RepaintQueue::paintNow()
{
    everything_ = true;
    timer_.stop();
    paint();
}

void RepaintQueue::ask(bool everything)
{
    wanted_ = true;
    everything_ = everything_ || everything;
    start();
}

void RepaintQueue::start()
{
    if (asleep_)
        return;
    if (const auto wait = pace_.ask(clock_.elapsed()))
        timer_.start(static_cast<int>(*wait));
}

void RepaintQueue::paint()
{
    pace_.begin(clock_.elapsed());
    if (asleep_)
        return;
    wanted_ = false;
    repaint_(std::exchange(everything_, false));
}

} // namespace orb
