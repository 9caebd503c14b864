// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "plotting.h"

#include <cstdint>
#include <vector>

namespace orb {

/// The major ticks of an axis: at `origin` + k * `step` for each whole k.
struct AxisScale {
    double origin = 0;
    double step = 1;
    double at(std::int64_t k) const { return origin + static_cast<double>(k) * step; }
    /// The k of the ticks inside of `range`, at most 200 of them.
    std::vector<std::int64_t> ticks(const QCPRange& range) const;
};

/// The least round step that is not below `step`: 1, 2 or 5 times a power of ten, on a time axis what divides
/// minutes, hours and days evenly.
double roundStep(double step, bool time);

/// The scale to draw for the part `view` of an axis whose set range is `home`: the equal divisions of `home` as long as
/// the view is as wide, however it was shifted; a round step near to it where it is not.
AxisScale axisScale(const QCPRange& view, const QCPRange& home, int divisions, bool time);

/// Which labels can be drawn without touching: 1 for all, 2 for every second, 4 for every fourth and so on. `label` is
/// the length of the longest, `step` the distance of two ticks, both in pixels.
int labelStride(double label, double step);

/// `range` widened to whole steps of a round scale with about `divisions` parts; one without length gets some.
QCPRange roundRange(const QCPRange& range, int divisions, bool time);

} // namespace orb
