// SPDX-License-Identifier: GPL-3.0-or-later
#include "curve.h"

#include <algorithm>
#include <cmath>

namespace orb {

namespace {

/// The index in [first, end) whose x in `run` is nearest to `x`.
std::size_t nearestInRun(const Curve::Run& run, std::size_t end, double x)
{
    const double last = static_cast<double>(end - 1 - run.first);
    const double place = std::round((x - run.start) / run.increment);
    if (!(place > 0)) // also where the increment is 0 and there is no place to tell
        return run.first;
    return run.first + static_cast<std::size_t>(std::min(place, last));
}

} // namespace

void Curve::clear()
{
    *this = Curve();
}

void Curve::append(double value, double increment)
{
    if (empty())
        runs_.push_back({0, 0, increment});
    else if (runs_.back().first + 1 == size_)
        runs_.back().increment = increment; // the run's only point has not needed it yet
    else if (runs_.back().increment != increment)
        runs_.push_back({size_, runs_.back().x(size_ - 1) + increment, increment});
    const std::size_t place = (size_ - adopted_.size()) % chunkSize;
    if (place == 0)
        chunks_.push_back(std::make_unique_for_overwrite<double[]>(chunkSize));
    chunks_.back()[place] = value;
    summarize(value);
    ++size_;
}

void Curve::assign(std::vector<double> values, double start, double increment)
{
    clear();
    adopted_ = std::move(values);
    size_ = adopted_.size();
    if (!adopted_.empty())
        runs_.push_back({0, start, increment});
    buildSummary();
}

void Curve::summarize(double value)
{
    std::size_t block = size_;
    for (std::size_t level = 0;; ++level) {
        block /= fanOut;
        if (level == summary_.size())
            summary_.emplace_back(level == 0 ? 0 : 1, level == 0 ? Extent() : summary_[level - 1].front());
        if (block == summary_[level].size())
            summary_[level].emplace_back();
        summary_[level][block].add(value);
        if (block == 0)
            return;
    }
}

void Curve::buildSummary()
{
    summary_.clear();
    for (std::size_t count = size_; count > 0 && (summary_.empty() || count > 1);) {
        std::vector<Extent> level((count + fanOut - 1) / fanOut);
        for (std::size_t i = 0; i < count; ++i) {
            if (summary_.empty())
                level[i / fanOut].add(adopted_[i]);
            else
                level[i / fanOut].add(summary_.back()[i]);
        }
        count = level.size();
        summary_.push_back(std::move(level));
    }
}

Extent Curve::extent(std::size_t first, std::size_t end) const
{
    end = std::min(end, size_);
    const std::size_t firstBlock = (first + fanOut - 1) / fanOut;
    const std::size_t endBlock = end / fanOut;
    if (firstBlock >= endBlock)
        return bruteExtent(first, end);
    Extent result = bruteExtent(first, firstBlock * fanOut);
    result.add(summaryExtent(0, firstBlock, endBlock));
    result.add(bruteExtent(endBlock * fanOut, end));
    return result;
}

Extent Curve::bruteExtent(std::size_t first, std::size_t end) const
{
    Extent result;
    while (first < end) {
        std::span<const double> values = valuesFrom(first);
        values = values.first(std::min(values.size(), end - first));
        for (const double value : values)
            result.add(value);
        first += values.size();
    }
    return result;
}

std::span<const double> Curve::valuesFrom(std::size_t index) const
{
    if (index < adopted_.size())
        return std::span(adopted_).subspan(index);
    const std::size_t behind = index - adopted_.size();
    const std::size_t place = behind % chunkSize;
    return {&chunks_[behind / chunkSize][place], std::min(chunkSize - place, size_ - index)};
}

Extent Curve::summaryExtent(std::size_t level, std::size_t first, std::size_t end) const
{
    Extent result;
    const std::vector<Extent>& blocks = summary_[level];
    const std::size_t firstAbove = (first + fanOut - 1) / fanOut;
    const std::size_t endAbove = end / fanOut;
    if (level + 1 < summary_.size() && firstAbove < endAbove) {
        result.add(summaryExtent(level + 1, firstAbove, endAbove));
        for (std::size_t i = endAbove * fanOut; i < end; ++i)
            result.add(blocks[i]);
        end = firstAbove * fanOut;
    }
    for (std::size_t i = first; i < end; ++i)
        result.add(blocks[i]);
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

const Curve::Run& Curve::runOf(std::size_t index) const
{
    const auto next = std::upper_bound(runs_.begin(), runs_.end(), index,
                                       [](std::size_t i, const Run& run) { return i < run.first; });
    return *std::prev(next);
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
    for (std::size_t away = 0; away < size_; ++away) {
        if (away <= index && std::isfinite(y(index - away)))
            return index - away;
        if (index + away < size_ && std::isfinite(y(index + away)))
            return index + away;
    }
    return std::nullopt;
}

std::size_t Curve::memory() const
{
    std::size_t bytes = adopted_.capacity() * sizeof(double) + chunks_.size() * chunkSize * sizeof(double);
    bytes += chunks_.capacity() * sizeof(chunks_.front()) + runs_.capacity() * sizeof(Run);
    for (const std::vector<Extent>& level : summary_)
        bytes += level.capacity() * sizeof(Extent);
    return bytes;
}

} // namespace orb
