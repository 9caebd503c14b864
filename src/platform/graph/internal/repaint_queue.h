// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>
#include <QTimer>

#include <functional>

namespace orb {

/// Collects the requests for a repaint and paints from the event queue, at most 25 times a second. The last state is
/// always painted in the end.
class RepaintQueue {
public:
    /// The least time between two repaints, in milliseconds: 25 a second.
    static constexpr qint64 interval = 40;

    /// The time until the next repaint may begin when the last one began `sinceLast` ago, in milliseconds.
    static int delay(qint64 sinceLast) { return static_cast<int>(std::max<qint64>(0, interval - sinceLast)); }

    /// `repaint` paints everything (true) or only what lies over the curves (false).
    explicit RepaintQueue(std::function<void(bool everything)> repaint);

    void ask() { ask(true); }
    void askOverlay() { ask(false); }
    /// While asleep nothing is painted; what was requested meanwhile is painted when it wakes.
    void setAsleep(bool asleep);
    /// Paints everything at once. Does nothing while asleep.
    void paintNow();

private:
    void ask(bool everything);
    void start();
    void paint();

    std::function<void(bool)> repaint_;
    QElapsedTimer sinceLast_;
    QTimer timer_;
    bool asleep_ = true;
    bool everything_ = false;
};

} // namespace orb
