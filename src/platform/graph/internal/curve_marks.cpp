// SPDX-License-Identifier: GPL-3.0-or-later
#include "curve_marks.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace orb {

namespace {

constexpr double cutWidth = 1; // pixels at 96 dpi by which a line has to be outside to be seen as cut off
constexpr double apart = 24;   // pixels at 96 dpi from the end of one stretch outside to the next with a mark

/// Collects the stretches in which a curve is beyond the upper or the lower edge.
class ExitFinder {
public:
    ExitFinder(const CurveArea& area, double scale)
        : area_(area), top_(-cutWidth * scale), bottom_(area.height + cutWidth * scale), apart_(apart * scale)
    {}

    void addColumn(double x, const Extent& column)
    {
        if (column.lowest < top_)
            add(CurveExit::Top, x, x + 1);
        if (column.highest > bottom_)
            add(CurveExit::Bottom, x, x + 1);
    }

    void addLine(const QLineF& line)
    {
        addBeyond(CurveExit::Top, line, top_ - line.y1(), top_ - line.y2());
        addBeyond(CurveExit::Bottom, line, line.y1() - bottom_, line.y2() - bottom_);
    }

    std::vector<CurveExit> exits;

private:
    /// `begin` and `end` are how far the ends of the line are beyond the edge.
    void addBeyond(CurveExit::Edge edge, const QLineF& line, double begin, double end)
    {
        if (!(begin > 0) && !(end > 0))
            return;
        const double crossing = line.x1() + line.dx() * begin / (begin - end);
        const double from = begin > 0 ? line.x1() : crossing;
        const double to = end > 0 ? line.x2() : crossing;
        if (std::max(from, to) >= 0 && std::min(from, to) <= area_.width)
            add(edge, std::max(std::min(from, to), 0.0), std::max(from, to));
    }

    void add(CurveExit::Edge edge, double from, double to)
    {
        double& last = lastEnd_.at(edge);
        if (from > last + apart_)
            exits.push_back({edge, from});
        last = std::max(last, to);
    }

    const CurveArea& area_;
    double top_;
    double bottom_;
    double apart_;
    std::array<double, 2> lastEnd_{-1e12, -1e12};
};

/// The pixel columns in which there is something of the curve.
Extent drawnPart(const CurveShape& shape, const CurveArea& area)
{
    Extent drawn;
    for (std::size_t c = 0; c < shape.columns.size(); ++c)
        if (!shape.columns[c].isEmpty())
            drawn.add(static_cast<double>(c));
    for (const QLineF& line : shape.lines) {
        drawn.add(std::clamp(line.x1(), 0.0, area.width - 1.0));
        drawn.add(std::clamp(line.x2(), 0.0, area.width - 1.0));
    }
    return drawn;
}

} // namespace

std::vector<CurveExit> curveExits(const CurveShape& shape, const Extent& points, const CurveArea& area, double scale)
{
    ExitFinder finder(area, scale);
    for (std::size_t c = 0; c < shape.columns.size(); ++c)
        finder.addColumn(static_cast<double>(c), shape.columns[c]);
    for (const QLineF& line : shape.lines)
        finder.addLine(line);
    const double end = area.width;
    if (area.x.pixel(points.lowest) < -cutWidth * scale)
        if (const auto y = curveHeight(shape, area, 0))
            finder.exits.push_back({CurveExit::Left, *y});
    if (area.x.pixel(points.highest) > end + cutWidth * scale)
        if (const auto y = curveHeight(shape, area, end - 1))
            finder.exits.push_back({CurveExit::Right, *y});
    return std::move(finder.exits);
}

std::optional<double> curveHeight(const CurveShape& shape, const CurveArea& area, double x)
{
    if (!(x >= 0) || !(x < area.width))
        return std::nullopt;
    std::optional<double> height;
    const Extent& column = shape.columns[static_cast<std::size_t>(x)];
    if (!column.isEmpty())
        height = (column.lowest + column.highest) / 2;
    for (const QLineF& line : shape.lines)
        if (!height && x >= std::min(line.x1(), line.x2()) && x <= std::max(line.x1(), line.x2()))
            height = line.dx() == 0 ? line.y1() : line.pointAt((x - line.x1()) / line.dx()).y();
    return height && *height >= 0 && *height <= area.height ? height : std::nullopt;
}

std::vector<QPointF> markPlaces(const CurveShape& shape, const CurveArea& area, double first, double period)
{
    std::vector<QPointF> places;
    for (double x = first; x < area.width; x += period)
        if (const auto y = curveHeight(shape, area, x))
            places.emplace_back(x, *y);
    const Extent drawn = drawnPart(shape, area);
    if (!places.empty() || drawn.isEmpty())
        return places;
    const double middle = std::floor((drawn.lowest + drawn.highest) / 2);
    if (const auto y = curveHeight(shape, area, middle))
        places.emplace_back(middle, *y);
    return places;
}

} // namespace orb
