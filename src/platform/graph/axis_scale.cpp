// SPDX-License-Identifier: GPL-3.0-or-later
#include "axis_scale.h"

#include "axis_format.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace orb {

namespace {

constexpr std::int64_t mostTicks = 200;
constexpr double roundings = 1e-9; // relative; what sums of doubles may be off

double decimalStep(double step)
{
    const double power = std::pow(10.0, std::floor(std::log10(step)));
    for (const double factor : {1.0, 2.0, 5.0})
        if (factor * power >= step * (1 - roundings))
            return factor * power;
    return 10 * power;
}

double timeStep(double days)
{
    static constexpr double seconds[] = {1,   2,   5,    10,   15,   30,    60,    120,   300,
                                         600, 900, 1800, 3600, 7200, 10800, 21600, 43200, 86400};
    const double wanted = days * secondsPerDay;
    if (wanted > secondsPerDay)
        return decimalStep(days);
    if (wanted <= 0.5)
        return decimalStep(wanted) / secondsPerDay;
    return *std::lower_bound(std::begin(seconds), std::end(seconds), wanted * (1 - roundings)) / secondsPerDay;
}

} // namespace

std::vector<std::int64_t> AxisScale::ticks(const AxisRange& range) const
{
    std::vector<std::int64_t> result;
    const double first = std::ceil((range.minimum - origin) / step - roundings);
    const double last = std::floor((range.maximum - origin) / step + roundings);
    if (!(std::abs(first) < 1e15) || !(std::abs(last) < 1e15))
        return result;
    const auto end = std::min(static_cast<std::int64_t>(last), static_cast<std::int64_t>(first) + mostTicks - 1);
    for (auto k = static_cast<std::int64_t>(first); k <= end; ++k)
        result.push_back(k);
    return result;
}

double roundStep(double step, bool time)
{
    return time ? timeStep(step) : decimalStep(step);
}

AxisScale axisScale(const AxisRange& view, const AxisRange& home, int divisions, bool time)
{
    if (std::abs(view.span() - home.span()) <= home.span() * roundings)
        return {home.minimum, home.span() / divisions};
    return {0, roundStep(view.span() / divisions, time)};
}

int labelStride(double label, double step)
{
    int stride = 1;
    while (label > step * stride && stride < mostTicks)
        stride *= 2;
    return stride;
}

AxisRange roundRange(const AxisRange& range, int divisions, bool time)
{
    AxisRange wide = range;
    if (!(wide.span() > std::max(std::abs(wide.minimum), std::abs(wide.maximum)) * roundings))
        wide.maximum = wide.minimum + std::max(time ? 1 / secondsPerDay : 1, std::abs(wide.minimum) * 1e-3);
    const double step = roundStep(wide.span() / divisions, time);
    return {std::floor(wide.minimum / step + roundings) * step, std::ceil(wide.maximum / step - roundings) * step};
}

} // namespace orb
