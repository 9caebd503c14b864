// SPDX-License-Identifier: GPL-3.0-or-later
#include "curve_sketch.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace orb {

namespace {

/// Far enough from any screen that a line to there looks as one to infinity, near enough to reckon with.
constexpr double farAway = 1e12;
/// How far beyond the area lines are kept, in pixels: more than half of any pen.
constexpr double overhang = 16;

/// The indices of a run from `first` to before `end`.
struct Stretch {
    std::size_t first;
    std::size_t end;
};

/// Where a run's points stand, in pixels.
struct RunPixels {
    double start;
    double increment;
    double at(std::size_t index) const { return start + static_cast<double>(index) * increment; }
    /// The first index, of `count`, that does not stand before the pixel `x` in the run's direction.
    std::size_t firstFrom(double x, std::size_t count) const
    {
        const double place = std::ceil((x - start) / increment);
        return place > 0 ? static_cast<std::size_t>(std::min(place, static_cast<double>(count))) : 0;
    }
};

RunPixels runPixels(const Curve::Run& run, const PixelScale& x)
{
    return {x.offset + (run.start - x.origin) * x.factor, std::clamp(run.increment * x.factor, -farAway, farAway)};
}

/// The points of a run that matter to the area: those inside, and one more at either side.
Stretch visibleStretch(const Curve::Run& run, std::size_t end, const SketchArea& area)
{
    const RunPixels pixels = runPixels(run, area.x);
    const std::size_t count = end - run.first;
    if (pixels.increment == 0)
        return {run.first, end};
    const bool forward = pixels.increment > 0;
    const std::size_t first = pixels.firstFrom(forward ? 0 : area.width, count);
    const std::size_t behind = std::max(pixels.firstFrom(forward ? area.width : 0, count), first);
    return {run.first + (first > 0 ? first - 1 : 0), run.first + std::min(behind + 2, count)};
}

/// Calls `visit` with the number of each run and the stretch of it that matters. The ends of a run always do, since
/// the line to the next run starts there.
template <typename Visit> void forEachStretch(const Curve& curve, const SketchArea& area, Visit visit)
{
    for (std::size_t run = 0; run < curve.runs().size(); ++run) {
        const std::size_t first = curve.runs()[run].first;
        const std::size_t end = curve.endOfRun(run);
        const Stretch visible = visibleStretch(curve.runs()[run], end, area);
        if (visible.first > first)
            visit(run, Stretch{first, first + 1});
        visit(run, visible);
        if (visible.end < end)
            visit(run, Stretch{end - 1, end});
    }
}

/// Cuts the line from a to b to one side of an edge: where `distance`, which is linear, is not negative.
bool cutAt(SketchPoint& a, SketchPoint& b, double distanceA, double distanceB)
{
    if (distanceA < 0 && distanceB < 0)
        return false;
    const SketchPoint edge{a.x + (b.x - a.x) * (distanceA / (distanceA - distanceB)),
                           a.y + (b.y - a.y) * (distanceA / (distanceA - distanceB))};
    if (distanceA < 0)
        a = edge;
    else if (distanceB < 0)
        b = edge;
    return true;
}

/// Cuts the line from a to b to the area and its overhang; false if nothing is left.
bool cut(SketchPoint& a, SketchPoint& b, const SketchArea& area)
{
    return cutAt(a, b, a.x + overhang, b.x + overhang) &&
           cutAt(a, b, area.width + overhang - a.x, area.width + overhang - b.x) &&
           cutAt(a, b, a.y + overhang, b.y + overhang) &&
           cutAt(a, b, area.height + overhang - a.y, area.height + overhang - b.y);
}

bool same(const SketchPoint& a, const SketchPoint& b)
{
    return a.x == b.x && a.y == b.y;
}

/// Strings points together to lines, with a gap where a value is no number or a line leaves the area.
class LineMaker {
public:
    explicit LineMaker(const SketchArea& area) : area_(area) {}

    void add(double x, double value)
    {
        const SketchPoint point{x, area_.y.pixel(value)};
        if (std::isnan(point.y) || std::isnan(point.x))
            finish();
        else if (!std::exchange(open_, true))
            isolated_ = true;
        else
            join(point);
        last_ = point;
    }

    std::vector<SketchLine> take()
    {
        finish();
        return std::move(lines_);
    }

private:
    void join(const SketchPoint& point)
    {
        isolated_ = false;
        SketchPoint a = last_;
        SketchPoint b = point;
        if (!cut(a, b, area_))
            return;
        if (lines_.empty() || lines_.back().empty() || !same(lines_.back().back(), a))
            lines_.push_back({a});
        lines_.back().push_back(b);
    }
    void finish()
    {
        SketchPoint a = last_;
        SketchPoint b = last_;
        if (open_ && isolated_ && cut(a, b, area_))
            lines_.push_back({last_});
        open_ = false;
        isolated_ = false;
    }

    const SketchArea& area_;
    std::vector<SketchLine> lines_;
    SketchPoint last_;
    bool open_ = false;
    bool isolated_ = false;
};

/// Collects what is covered of each column.
class ColumnMaker {
public:
    explicit ColumnMaker(const SketchArea& area) : area_(area), columns_(static_cast<std::size_t>(area.width)) {}

    /// One point, joined to the last.
    void add(double x, double value)
    {
        const SketchPoint point{x, area_.y.pixel(value)};
        if (std::isnan(point.y)) {
            open_ = false;
            return;
        }
        if (std::exchange(open_, true))
            line(last_, point);
        else
            cover(point.x, point.y);
        last_ = point;
    }

    /// Many points in one column that lead from `first` to `last` and have `values` between them.
    void add(const Curve::Point& first, const Extent& values, const Curve::Point& last)
    {
        add(first.x, first.y);
        if (!values.isEmpty()) {
            cover(first.x, area_.y.pixel(values.lowest));
            cover(first.x, area_.y.pixel(values.highest));
        }
        open_ = !std::isnan(last.y);
        last_ = {last.x, area_.y.pixel(last.y)};
    }

    SketchColumns take() { return std::move(columns_); }

private:
    void cover(double x, double y)
    {
        if (x >= 0 && x < area_.width)
            columns_[static_cast<std::size_t>(x)].add(y);
    }

    void line(SketchPoint a, SketchPoint b)
    {
        if (a.x > b.x)
            std::swap(a, b);
        cover(a.x, a.y);
        cover(b.x, b.y);
        const double slope = b.x > a.x ? (b.y - a.y) / (b.x - a.x) : 0;
        const double first = std::floor(std::max(a.x, 0.0)) + 1;
        const double last = std::floor(std::min(b.x, static_cast<double>(area_.width)));
        for (double edge = std::max(first, 1.0); edge <= last; ++edge) // at each edge it leaves one for the next
            coverEdge(edge, a.y + (edge - a.x) * slope);
        if (a.x < 0 && b.x >= 0)
            cover(0, a.y - a.x * slope);
    }

    void coverEdge(double edge, double y)
    {
        cover(edge - 1, y);
        cover(edge, y);
    }

    const SketchArea& area_;
    SketchColumns columns_;
    SketchPoint last_;
    bool open_ = false;
};

/// The points of a run that stand closer than pixels, summed up for each column.
void addDense(ColumnMaker& maker, const Curve& curve, const Curve::Run& run, const Stretch& stretch,
              const SketchArea& area)
{
    const RunPixels pixels = runPixels(run, area.x);
    for (std::size_t i = stretch.first; i < stretch.end;) {
        const double x = pixels.at(i - run.first);
        const double edge = pixels.increment > 0 ? std::floor(x) + 1 : std::floor(x);
        std::size_t next = stretch.end;
        if (pixels.increment != 0)
            next = run.first + pixels.firstFrom(edge, next - run.first);
        next = std::clamp(next, i + 1, stretch.end);
        maker.add({x, curve.y(i)}, curve.extent(i, next), {pixels.at(next - 1 - run.first), curve.y(next - 1)});
        i = next;
    }
}

void addEach(ColumnMaker& maker, const Curve& curve, const Curve::Run& run, const Stretch& stretch,
             const SketchArea& area)
{
    for (std::size_t i = stretch.first; i < stretch.end; ++i)
        maker.add(area.x.pixel(run.x(i)), curve.y(i));
}

/// How far from the middle of a pen of radius `r` its rim is, `away` columns from the middle.
double rim(double r, int away)
{
    return std::sqrt(std::max(0.0, r * r - away * away));
}

} // namespace

double PixelScale::pixel(double value) const
{
    return std::clamp(offset + (value - origin) * factor, -farAway, farAway);
}

bool isDense(const Curve& curve, const SketchArea& area)
{
    std::size_t points = 0;
    forEachStretch(curve, area, [&](std::size_t, const Stretch& s) { points += s.end - s.first; });
    return static_cast<double>(points) > area.width / 2.0;
}

std::vector<SketchLine> sketchLines(const Curve& curve, const SketchArea& area)
{
    LineMaker maker(area);
    forEachStretch(curve, area, [&](std::size_t run, const Stretch& stretch) {
        for (std::size_t i = stretch.first; i < stretch.end; ++i)
            maker.add(area.x.pixel(curve.runs()[run].x(i)), curve.y(i));
    });
    return maker.take();
}

SketchColumns sketchColumns(const Curve& curve, const SketchArea& area)
{
    ColumnMaker maker(area);
    forEachStretch(curve, area, [&](std::size_t number, const Stretch& stretch) {
        const Curve::Run& run = curve.runs()[number];
        if (std::abs(run.increment * area.x.factor) < 1)
            addDense(maker, curve, run, stretch, area);
        else
            addEach(maker, curve, run, stretch, area);
    });
    return maker.take();
}

SketchColumns widened(const SketchColumns& columns, double width)
{
    const double r = width / 2;
    const int reach = static_cast<int>(std::floor(r));
    const int count = static_cast<int>(columns.size());
    SketchColumns result(columns.size());
    for (int c = 0; c < count; ++c) {
        Extent& covered = result[static_cast<std::size_t>(c)];
        for (int other = std::max(0, c - reach); other <= std::min(count - 1, c + reach); ++other) {
            const Extent& from = columns[static_cast<std::size_t>(other)];
            const double more = rim(r, std::abs(other - c));
            if (!from.isEmpty())
                covered.add({from.lowest - more, from.highest + more});
        }
    }
    return result;
}

} // namespace orb
