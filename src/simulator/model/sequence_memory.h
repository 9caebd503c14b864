// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "load_module.h"

#include <array>

namespace orb {

/// A sequence: points of the current that are played one after the other. A loop from one of them to another is
/// repeated. It belongs to no channel and takes the currents of every module.
struct SequenceMemory {
    static constexpr int pointCount = 120;
    /// The limits of a point in amperes, seconds, and amperes per microsecond: those of the largest module.
    static constexpr double maxCurrent = 120;
    static constexpr double maxSeconds = 100'000;
    static constexpr double maxSlewRate = 5;
    static constexpr int maxRepeatCount = 32767;
    static constexpr int minEndValue = -32768;
    static constexpr int maxEndValue = 32767;

    struct Point {
        double current = 0;
        /// A point of 0 s is skipped.
        double seconds = 0;
        /// A rate that the module does not have is played as its nearest one.
        double rise = maxSlewRate;
        double fall = maxSlewRate;
    };

    std::array<Point, pointCount> points{};
    /// The range of the voltage meter while the sequence plays.
    LoadRange voltageRange = LoadRange::High;
    /// 0 where the input goes off after the last point; with any other number it stays on.
    int endValue = 0;
    /// How often the loop is played; 0 for ever.
    int repeatCount = 1;
    /// The first and the last point of the loop, counted from 1. A sequence whose first point is after the last can't be
    /// played.
    int loopStart = 1;
    int endPoint = 1;

    const Point& point(int number) const { return points[static_cast<std::size_t>(number - 1)]; }
    Point& point(int number) { return points[static_cast<std::size_t>(number - 1)]; }
    /// The duration of one round of the loop; 0 where the loop has no point.
    double secondsOfRound() const;
    /// The largest current of the loop.
    double peakCurrent() const;
};

} // namespace orb
