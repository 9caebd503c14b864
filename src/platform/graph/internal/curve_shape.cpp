// SPDX-License-Identifier: GPL-3.0-or-later
#include "curve_shape.h"

#include <algorithm>
#include <cmath>

namespace orb {

namespace {

/// A line to a point this far away can't be distinguished from one to infinity.
constexpr double farAway = 1e12;

/// Blocks in a column from which on only whole ones are read.
constexpr std::size_t manyBlocks = 10;

/// In pixels at 96 dpi.
constexpr double dashLength = 7;
constexpr double dashPeriod = 11;
constexpr double cap = 1; // by which the pen lengthens a line at either end
constexpr double steep = 4;

class ShapeMaker {
public:
    ShapeMaker(const Curve& curve, const CurveArea& area) : curve_(curve), area_(area) {}

    CurveShape make()
    {
        shape_.columns.resize(static_cast<std::size_t>(area_.width));
        for (std::size_t i = 0; i < curve_.runs().size(); ++i) {
            const Curve::Run& run = curve_.runs()[i];
            if (i > 0)
                addLine(place(curve_.runs()[i - 1], run.first - 1), place(run, run.first));
            addRun(run, curve_.endOfRun(i));
        }
        return std::move(shape_);
    }

private:
    double pixelX(const Curve::Run& run, std::size_t index) const { return area_.x.pixel(run.x(index)); }
    QPointF place(const Curve::Run& run, std::size_t index) const
    {
        return {pixelX(run, index), area_.y.pixel(curve_.y(index))};
    }

    void addLine(const QPointF& from, const QPointF& to)
    {
        if (!std::isnan(from.y()) && !std::isnan(to.y()))
            shape_.lines.append({from, to});
    }

    /// The index of the run's first point at or beyond the pixel `x`, in the direction in which the run goes.
    std::size_t indexFrom(const Curve::Run& run, std::size_t end, double x) const
    {
        const double start = area_.x.pixel(run.start);
        const double place = std::ceil((x - start) / increment(run));
        return place > 0 ? run.first + static_cast<std::size_t>(std::min(place, static_cast<double>(end - run.first)))
                         : run.first;
    }
    double increment(const Curve::Run& run) const
    {
        return std::clamp(run.increment * area_.x.factor, -farAway, farAway);
    }

    /// The points in view and one more at either side.
    void addRun(const Curve::Run& run, std::size_t end)
    {
        std::size_t first = run.first;
        if (increment(run) != 0) {
            const bool forward = increment(run) > 0;
            first = indexFrom(run, end, forward ? 0 : area_.width);
            end = std::min(end, std::max(first, indexFrom(run, end, forward ? area_.width : 0)) + 1);
            first = std::max(first, run.first + 1) - 1;
        }
        if (std::abs(increment(run)) < 1)
            addColumns(run, first, end);
        else
            addEach(run, first, end);
    }

    void addEach(const Curve::Run& run, std::size_t first, std::size_t end)
    {
        for (std::size_t i = first; i < end; ++i) {
            if (i > first)
                addLine(place(run, i - 1), place(run, i));
            if (isAlone(i))
                addLine(place(run, i), place(run, i));
        }
    }

    bool isAlone(std::size_t index) const
    {
        const bool before = index > 0 && !std::isnan(curve_.y(index - 1));
        const bool after = index + 1 < curve_.size() && !std::isnan(curve_.y(index + 1));
        return !before && !after;
    }

    void addColumns(const Curve::Run& run, std::size_t first, std::size_t end)
    {
        for (std::size_t i = first; i < end;) {
            const double column = std::floor(pixelX(run, i));
            std::size_t next = end;
            if (increment(run) != 0)
                next = std::max(indexFrom(run, end, increment(run) > 0 ? column + 1 : column), i + 1);
            if (next - i >= manyBlocks * Curve::blockSize) // ends with a block, less than a tenth of a pixel later
                next = std::min((next / Curve::blockSize + 1) * Curve::blockSize, end);
            if (column >= 0 && column < area_.width)
                addValues(static_cast<std::size_t>(column), run, i, next);
            i = next;
        }
    }

    void addValues(std::size_t column, const Curve::Run& run, std::size_t first, std::size_t end)
    {
        Extent values = curve_.extent(first, end);
        if (values.isEmpty())
            return;
        if (first > run.first)
            values.add(curve_.y(first - 1)); // joins the column to the one before
        shape_.columns[column].add(area_.y.pixel(values.lowest));
        shape_.columns[column].add(area_.y.pixel(values.highest));
    }

    const Curve& curve_;
    const CurveArea& area_;
    CurveShape shape_;
};

void addDashes(QVector<QLineF>& pieces, const QLineF& line, const CurveArea& area, double scale)
{
    const double from = std::min(line.x1(), line.x2());
    const double to = std::max(line.x1(), line.x2());
    if (std::abs(line.dy()) > std::max(steep * scale, 2 * (to - from)) || from == to) {
        pieces.append(line);
        return;
    }
    const double period = dashPeriod * scale;
    const auto at = [&](double x) { return line.pointAt((x - line.x1()) / line.dx()); };
    for (double dash = std::max(0.0, std::floor(from / period)) * period; dash < std::min(to, 1.0 * area.width);
         dash += period) {
        const double begin = std::max(from, dash + cap * scale);
        const double end = std::min(to, dash + (dashLength - cap) * scale);
        if (begin < end)
            pieces.append({at(begin), at(end)});
    }
}

} // namespace

double PixelScale::pixel(double value) const
{
    return std::clamp(offset + (value - origin) * factor, -farAway, farAway);
}

CurveShape curveShape(const Curve& curve, const CurveArea& area)
{
    return ShapeMaker(curve, area).make();
}

CurveShape dashed(const CurveShape& shape, const CurveArea& area, double scale)
{
    CurveShape pieces{shape.columns, {}};
    for (std::size_t c = 0; c < pieces.columns.size(); ++c) {
        Extent& column = pieces.columns[c];
        const bool isInDash = std::fmod(static_cast<double>(c), dashPeriod * scale) < dashLength * scale;
        if (!isInDash && column.highest - column.lowest < steep * scale)
            column = {};
    }
    for (const QLineF& line : shape.lines)
        addDashes(pieces.lines, line, area, scale);
    return pieces;
}

Columns widened(const Columns& columns, double width)
{
    const int reach = static_cast<int>(width / 2);
    const int count = static_cast<int>(columns.size());
    Columns result(columns.size());
    for (int c = 0; c < count; ++c) {
        for (int other = std::max(0, c - reach); other <= std::min(count - 1, c + reach); ++other) {
            const Extent& from = columns[static_cast<std::size_t>(other)];
            const double rim = std::sqrt(width * width / 4 - (other - c) * (other - c));
            if (!from.isEmpty())
                result[static_cast<std::size_t>(c)].add({from.lowest - rim, from.highest + rim});
        }
    }
    return result;
}

} // namespace orb
