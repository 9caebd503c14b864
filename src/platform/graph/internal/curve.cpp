// SPDX-License-Identifier: GPL-3.0-or-later
#include "curve.h"

#include <cmath>

namespace orb {

namespace {

template <typename Part> Extent extentOf(const std::vector<Part>& parts, std::size_t first, std::size_t end)
{
    Extent result;
    for (std::size_t i = first; i < end; ++i)
        result.add(parts[i]);
    return result;
}

/// The index of the run, which ends before `end`, whose x is nearest to `x`.
std::size_t nearestInRun(const Curve::Run& run, std::size_t end, double x)
{
    const double last = static_cast<double>(end - 1 - run.first);
    const double place = std::round((x - run.start) / run.increment);
    if (!(place > 0)) // also where the increment is 0 and the quotient is no number
        return run.first;
    return run.first + static_cast<std::size_t>(std::min(place, last));
}

/// The steps from the start of a run to `x`; towards infinity where its points don't move.
double stepsTo(const Curve::Run& run, double x)
{
    const double away = x - run.start;
    return away == 0 ? 0 : away / run.increment;
}

} // namespace

void Curve::append(double value, double increment)
{
    const std::size_t index = size();
    if (index == 0)
        runs_.push_back({0, 0, increment});
    else if (runs_.back().first + 1 == index)
        runs_.back().increment = increment; // the run's only point has not needed it yet
    else if (runs_.back().increment != increment)
        runs_.push_back({index, runs_.back().x(index - 1) + increment, increment});
    values_.push_back(value);
    blocks_.resize(index / blockSize + 1);
    blocks_.back().add(value);
}

void Curve::assign(std::vector<double> values, double start, double increment)
{
    values_ = std::move(values);
    runs_.clear();
    if (!values_.empty())
        runs_.push_back({0, start, increment});
    blocks_.clear();
    for (std::size_t first = 0; first < size(); first += blockSize)
        blocks_.push_back(extentOf(values_, first, std::min(first + blockSize, size())));
}

double Curve::x(std::size_t index) const
{
    const auto next = std::upper_bound(runs_.begin(), runs_.end(), index,
                                       [](std::size_t i, const Run& run) { return i < run.first; });
    return std::prev(next)->x(index);
}

Extent Curve::extent(std::size_t first, std::size_t end) const
{
    const std::size_t firstBlock = (first + blockSize - 1) / blockSize;
    const std::size_t endBlock = end / blockSize;
    if (firstBlock >= endBlock)
        return extentOf(values_, first, end);
    Extent result = extentOf(blocks_, firstBlock, endBlock);
    result.add(extentOf(values_, first, firstBlock * blockSize));
    result.add(extentOf(values_, endBlock * blockSize, end));
    return result;
}

Extent Curve::extentWithin(const Extent& xRange) const
{
    constexpr double rounding = 1e-6; // of an increment
    Extent result;
    for (std::size_t number = 0; number < runs_.size(); ++number) {
        const Run& run = runs_[number];
        const auto count = static_cast<double>(endOfRun(number) - run.first);
        Extent steps;
        steps.add(stepsTo(run, xRange.lowest));
        steps.add(stepsTo(run, xRange.highest));
        const double first = std::clamp(std::ceil(steps.lowest - rounding), 0.0, count);
        const double end = std::clamp(std::floor(steps.highest + rounding) + 1, 0.0, count);
        if (first < end)
            result.add(extent(run.first + static_cast<std::size_t>(first), run.first + static_cast<std::size_t>(end)));
    }
    return result;
}

Extent Curve::xExtent() const
{
    Extent result;
    for (std::size_t run = 0; run < runs_.size(); ++run) {
        result.add(runs_[run].start);
        result.add(runs_[run].x(endOfRun(run) - 1));
    }
    return result;
}

std::optional<std::size_t> Curve::nearest(double x) const
{
    std::optional<std::size_t> best;
    double bestDistance = std::numeric_limits<double>::infinity();
    for (std::size_t run = 0; run < runs_.size(); ++run) {
        const std::size_t index = nearestInRun(runs_[run], endOfRun(run), x);
        const double distance = std::abs(runs_[run].x(index) - x);
        if (distance < bestDistance) {
            best = index;
            bestDistance = distance;
        }
    }
    return best ? nearestFinite(*best) : best;
}

std::optional<std::size_t> Curve::nearestFinite(std::size_t index) const
{
    for (std::size_t away = 0; away < size(); ++away) {
        if (away <= index && std::isfinite(y(index - away)))
            return index - away;
        if (index + away < size() && std::isfinite(y(index + away)))
            return index + away;
    }
    return std::nullopt;
}

} // namespace orb
