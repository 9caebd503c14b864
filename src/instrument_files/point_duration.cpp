// SPDX-License-Identifier: GPL-3.0-or-later
#include "point_duration.h"

#include "sequence_values.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <utility>

namespace orb {

namespace {

constexpr int firstTimeBase = 5;
constexpr int lastTimeBase = 11;
constexpr double timeTolerance = 5e-7; // half of the finest time base

/// By how many milliseconds an editor, which computes with single precision, shows another duration.
std::int64_t errorOf(std::int64_t count, double base, double seconds)
{
    const double shown = static_cast<double>(static_cast<float>(count)) * static_cast<double>(static_cast<float>(base));
    return std::abs(std::llround(shown * 1000) - std::llround(seconds * 1000));
}

} // namespace

PointDuration pointDuration(double seconds)
{
    PointDuration best;
    std::pair leastError{std::numeric_limits<std::int64_t>::max(), true};
    for (int code = lastTimeBase; code >= firstTimeBase; --code) {
        const double base = *timeBaseSeconds(code);
        const std::int64_t count = std::llround(seconds / base);
        if (count > std::numeric_limits<qint32>::max())
            break;
        const bool isRounded = std::abs(static_cast<double>(count) * base - seconds) > timeTolerance;
        const std::pair error{errorOf(count, base, seconds), isRounded};
        if (error < leastError) {
            best = {code, static_cast<qint32>(count)};
            leastError = error;
        }
    }
    return best;
}

} // namespace orb
