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

std::vector<std::int64_t> AxisScale::ticks(const QCPRange& range) const
{
    std::vector<std::int64_t> result;
    const double first = std::ceil((range.lower - origin) / step - roundings);
    const double last = std::floor((range.upper - origin) / step + roundings);
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

AxisScale axisScale(const QCPRange& view, const QCPRange& home, int divisions, bool time)
{
    if (std::abs(view.size() - home.size()) <= home.size() * roundings)
        return {home.lower, home.size() / divisions};
    return {0, roundStep(view.size() / divisions, time)};
}

int labelStride(double label, double step)
{
    int stride = 1;
    while (label > step * stride && stride < mostTicks)
        stride *= 2;
    return stride;
}

QCPRange roundRange(const QCPRange& range, int divisions, bool time)
{
    QCPRange wide = range;
    if (!(wide.size() > std::max(std::abs(wide.lower), std::abs(wide.upper)) * roundings))
        wide.upper = wide.lower + std::max(time ? 1 / secondsPerDay : 1, std::abs(wide.lower) * 1e-3);
    const double step = roundStep(wide.size() / divisions, time);
    return {std::floor(wide.lower / step + roundings) * step, std::ceil(wide.upper / step - roundings) * step};
}

} // namespace orb
