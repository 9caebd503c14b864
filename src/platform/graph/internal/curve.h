// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>
#include <optional>
#include <vector>

namespace orb {

/// The lowest and highest of some values; `isEmpty` for none. What is no number does not count.
struct Extent {
    double lowest = std::numeric_limits<double>::infinity();
    double highest = -std::numeric_limits<double>::infinity();

    bool isEmpty() const { return !(lowest <= highest); }
    void add(double value)
    {
        if (value < lowest)
            lowest = value;
        if (value > highest)
            highest = value;
    }
    void add(const Extent& other)
    {
        lowest = std::min(lowest, other.lowest);
        highest = std::max(highest, other.highest);
    }
    bool operator==(const Extent&) const = default;
};

/// The points of one curve: values, and an x for each that follows from a start and an increment. Knows no widgets.
///
/// The extent of a stretch of values is found block by block, so that a repaint reads a fraction of a long curve.
class Curve {
public:
    /// How many values one block has. The extent of whole blocks is found without reading their values.
    static constexpr std::size_t blockSize = 64;

    /// Points with the same increment: the points from `first` up to the next run's, the k-th of them at
    /// `start` + k * `increment`.
    struct Run {
        std::size_t first;
        double start;
        double increment;
        double x(std::size_t index) const { return start + static_cast<double>(index - first) * increment; }
    };

    /// Adds one point at `increment` from the last; the first point of all is at x 0.
    void append(double value, double increment);
    /// Replaces all points: `values` from `start` on, `increment` apart.
    void assign(std::vector<double> values, double start, double increment);

    std::size_t size() const { return values_.size(); }
    const std::vector<double>& values() const { return values_; }
    double y(std::size_t index) const { return values_[index]; }
    double x(std::size_t index) const;

    /// In the order of their points; none without points.
    const std::vector<Run>& runs() const { return runs_; }
    /// The index after the last point of the run with that number.
    std::size_t endOfRun(std::size_t run) const { return run + 1 < runs_.size() ? runs_[run + 1].first : size(); }

    /// Of the values from index `first` to before index `end`.
    Extent extent(std::size_t first, std::size_t end) const;
    Extent extent() const { return extent(0, size()); }
    /// Of the values of the points whose x is in `xRange`, its ends included.
    Extent extentWithin(const Extent& xRange) const;
    /// Of all x.
    Extent xExtent() const;

    /// The index of the point nearest to `x` among those with a finite value; nothing if there is none.
    std::optional<std::size_t> nearest(double x) const;

private:
    std::optional<std::size_t> nearestFinite(std::size_t index) const;

    std::vector<double> values_;
    std::vector<Extent> blocks_; // one for each `blockSize` values
    std::vector<Run> runs_;
};

} // namespace orb
