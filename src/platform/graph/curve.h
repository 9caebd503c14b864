// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>
#include <memory>
#include <optional>
#include <span>
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

/// The points of one curve: values, and an x for each that is implied by a start and an increment. Knows no widgets.
///
/// A value costs its 8 bytes and 3 percent more, without ever moving the others. The extent of any stretch is found in
/// a time that hardly depends on its length.
class Curve {
public:
    struct Point {
        double x;
        double y;
        bool operator==(const Point&) const = default;
    };

    /// Points with the same increment: the points from `first` on up to the next run's, the k-th of them at
    /// `start` + k * `increment`.
    struct Run {
        std::size_t first;
        double start;
        double increment;
        /// The values from `index` on that stand side by side in memory: one at least.
        std::span<const double> valuesFrom(std::size_t index) const;
        double x(std::size_t index) const { return start + static_cast<double>(index - first) * increment; }
    };

    void clear();
    /// One point more, `increment` behind the last; the first point of all stands at x 0.
    void append(double value, double increment);
    /// All new: `values` from `start` on, `increment` apart.
    void assign(std::vector<double> values, double start, double increment);

    std::size_t size() const { return size_; }
    bool empty() const { return size_ == 0; }
    double y(std::size_t index) const
    {
        if (index < adopted_.size())
            return adopted_[index];
        index -= adopted_.size();
        return chunks_[index / chunkSize][index % chunkSize];
    }
    /// The values from `index` on that stand side by side in memory: one at least.
    std::span<const double> valuesFrom(std::size_t index) const;
    double x(std::size_t index) const { return runOf(index).x(index); }
    Point point(std::size_t index) const { return {x(index), y(index)}; }

    /// In the order of their points; none without points.
    const std::vector<Run>& runs() const { return runs_; }
    /// Behind the last point of the run with that number.
    std::size_t endOfRun(std::size_t run) const { return run + 1 < runs_.size() ? runs_[run + 1].first : size_; }

    /// Of the values from index `first` to before index `end`.
    Extent extent(std::size_t first, std::size_t end) const;
    Extent extent() const { return extent(0, size_); }
    /// Of all x.
    Extent xExtent() const;

    /// The index of the point nearest to `x` among those with a finite value; nothing if there is none.
    std::optional<std::size_t> nearest(double x) const;

    /// The memory that the points take, in bytes.
    std::size_t memory() const;

private:
    static constexpr std::size_t chunkSize = 1024;
    static constexpr std::size_t fanOut = 64;

    const Run& runOf(std::size_t index) const;
    void summarize(double value);
    void buildSummary();
    Extent bruteExtent(std::size_t first, std::size_t end) const;
    Extent summaryExtent(std::size_t level, std::size_t first, std::size_t end) const;
    std::optional<std::size_t> nearestFinite(std::size_t index) const;

    std::vector<double> adopted_;                   // what `assign` took over
    std::vector<std::unique_ptr<double[]>> chunks_; // what was appended behind it
    std::vector<Run> runs_;
    std::vector<std::vector<Extent>> summary_; // level k: one for each 64^(k+1) values
    std::size_t size_ = 0;
};

} // namespace orb
