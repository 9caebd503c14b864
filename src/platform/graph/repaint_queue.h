// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>
#include <QTimer>

#include <functional>
#include <optional>

namespace orb {

/// When the next repaint is due, so that however many are asked for, two are never closer than `interval`.
class RepaintPace {
public:
    /// Milliseconds between two repaints: 25 a second.
    static constexpr qint64 interval = 40;

    /// Someone asks at time `now`: the milliseconds to wait, or nothing if a repaint is on its way already.
    std::optional<qint64> ask(qint64 now);
    /// The repaint that was on its way takes place at time `now`.
    void begin(qint64 now);
    bool isWaiting() const { return waiting_; }

private:
    bool waiting_ = false;
    std::optional<qint64> last_;
};

/// Collects the wishes for a repaint and grants them from the event queue, at most 25 a second. The last state is
/// always painted in the end.
class RepaintQueue {
public:
    /// `repaint` is told whether everything changed (true) or only what lies over the curves (false).
    explicit RepaintQueue(std::function<void(bool everything)> repaint);

    void ask() { ask(true); }
    void askOverlay() { ask(false); }
    /// While asleep nothing is painted; the wishes are kept and granted after it.
    void setAsleep(bool asleep);
    /// Grants all wishes at once, and one for everything with them. Does nothing while asleep.
    void paintNow();

private:
    void ask(bool everything);
    void start();
    void paint();

    std::function<void(bool)> repaint_;
    RepaintPace pace_;
    QElapsedTimer clock_;
    QTimer timer_;
    bool asleep_ = true;
    bool wanted_ = false;
    bool everything_ = false;
};

} // namespace orb
