// SPDX-License-Identifier: GPL-3.0-or-later
#include "repaint_queue.h"

#include <utility>

namespace orb {

RepaintQueue::RepaintQueue(std::function<void(bool everything)> repaint) : repaint_(std::move(repaint))
{
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { paint(); });
}

void RepaintQueue::setAsleep(bool asleep)
{
    asleep_ = asleep;
    if (asleep)
        timer_.stop();
    else
        start();
}

void RepaintQueue::paintNow()
{
    if (asleep_)
        return;
    timer_.stop();
    everything_ = true;
    paint();
}

void RepaintQueue::ask(bool everything)
{
    everything_ = everything_ || everything;
    if (!asleep_)
        start();
}

void RepaintQueue::start()
{
    if (!timer_.isActive())
        timer_.start(sinceLast_.isValid() ? delay(sinceLast_.elapsed()) : 0);
}

void RepaintQueue::paint()
{
    sinceLast_.start();
    repaint_(std::exchange(everything_, false));
}

} // namespace orb
