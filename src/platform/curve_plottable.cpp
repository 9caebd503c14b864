// SPDX-License-Identifier: GPL-3.0-or-later
#include "curve_plottable.h"

#include "contrast.h"

#include <algorithm>
#include <cmath>

namespace orb {

namespace {

/// Dashes follow the screen and not the length of the line, so that they stand still while a curve grows.
constexpr double dashLength = 7;
constexpr double dashPeriod = 11;
/// How far an edge stands out at either side of its line.
constexpr double edgeWidth = 1;

bool isInDash(double x, double scale)
{
    return std::fmod(x, dashPeriod * scale) < dashLength * scale;
}

QVector<QRectF> rectsOf(const SketchColumns& columns, const SketchArea& area)
{
    QVector<QRectF> rects;
    rects.reserve(static_cast<qsizetype>(columns.size()));
    for (std::size_t c = 0; c < columns.size(); ++c) {
        const double top = std::max(columns[c].lowest, -2.0);
        const double bottom = std::min(columns[c].highest, area.height + 2.0);
        if (top < bottom)
            rects.append({static_cast<double>(c), top, 1, bottom - top});
    }
    return rects;
}

/// Takes out what is flat between the dashes. Steep parts stay: a step that falls between two dashes is to be seen.
void cutDashes(SketchColumns& columns, double scale)
{
    for (std::size_t c = 0; c < columns.size(); ++c)
        if (!isInDash(static_cast<double>(c), scale) && columns[c].highest - columns[c].lowest < 4 * scale)
            columns[c] = {};
}

void paintColumns(QPainter& painter, SketchColumns columns, const SketchArea& area, const LineStyle& style,
                  double scale)
{
    if (style.dashed)
        cutDashes(columns, scale);
    painter.setPen(Qt::NoPen);
    if (style.edge.isValid()) {
        painter.setBrush(style.edge);
        painter.drawRects(rectsOf(widened(columns, (style.width() + 2 * edgeWidth) * scale), area));
    }
    painter.setBrush(style.colour);
    painter.drawRects(rectsOf(widened(columns, style.width() * scale), area));
}

/// The pieces of the line from a to b that lie in dashes.
void addDashes(std::vector<SketchLine>& pieces, const SketchPoint& a, const SketchPoint& b, double scale)
{
    const double width = b.x - a.x;
    if (std::abs(b.y - a.y) > 2 * std::abs(width)) {
        pieces.push_back({a, b});
        return;
    }
    const double left = std::min(a.x, b.x);
    const double right = std::max(a.x, b.x);
    const double period = dashPeriod * scale;
    const auto at = [&](double x) { return SketchPoint{x, a.y + (x - a.x) / width * (b.y - a.y)}; };
    for (double dash = std::floor(left / period) * period; dash < right; dash += period) {
        const double from = std::max(left, dash);
        const double to = std::min(right, dash + dashLength * scale);
        if (from < to)
            pieces.push_back({at(from), at(to)});
    }
}

std::vector<SketchLine> dashesOf(const std::vector<SketchLine>& lines, double scale)
{
    std::vector<SketchLine> pieces;
    for (const SketchLine& line : lines) {
        if (line.size() == 1)
            pieces.push_back(line);
        for (std::size_t i = 1; i < line.size(); ++i)
            addDashes(pieces, line[i - 1], line[i], scale);
    }
    return pieces;
}

void strokeLines(QPainter& painter, const std::vector<SketchLine>& lines, const QPen& pen)
{
    painter.setPen(pen);
    QPolygonF polyline;
    for (const SketchLine& line : lines) {
        polyline.clear();
        for (const SketchPoint& point : line)
            polyline.append({point.x, point.y});
        if (polyline.size() == 1)
            painter.drawPoint(polyline.first());
        else
            painter.drawPolyline(polyline);
    }
}

void paintLines(QPainter& painter, std::vector<SketchLine> lines, const LineStyle& style, double scale)
{
    if (style.dashed)
        lines = dashesOf(lines, scale);
    const Qt::PenCapStyle cap = style.dashed ? Qt::FlatCap : Qt::RoundCap;
    const auto pen = [&](const QColor& colour, double width) {
        return QPen(colour, width * scale, Qt::SolidLine, cap, Qt::RoundJoin);
    };
    painter.setBrush(Qt::NoBrush);
    if (style.edge.isValid())
        strokeLines(painter, lines, pen(style.edge, style.width() + 2 * edgeWidth));
    strokeLines(painter, lines, pen(style.colour, style.width()));
}

PixelScale pixelScale(const QCPAxis& axis, double origin, double scale)
{
    const double at = axis.range().lower;
    const double factor = (axis.coordToPixel(axis.range().upper) - axis.coordToPixel(at)) / axis.range().size();
    return {at, factor * scale, (axis.coordToPixel(at) - origin) * scale};
}

} // namespace

void paintCurve(QPainter& painter, const Curve& curve, const SketchArea& area, const LineStyle& style, double scale)
{
    painter.setRenderHint(QPainter::Antialiasing);
    if (isDense(curve, area))
        paintColumns(painter, sketchColumns(curve, area), area, style, scale);
    else
        paintLines(painter, sketchLines(curve, area), style, scale);
}

CurvePlottable::CurvePlottable(QCPAxis& x, QCPAxis& y, const Curve& curve, const QColor& colour, bool dashed)
    : QCPAbstractPlottable(&x, &y), curve_(curve), colour_(colour), dashed_(dashed)
{
    setSelectable(QCP::stNone);
}

LineStyle CurvePlottable::style() const
{
    return {colour_, edgeFor(colour_, keyAxis()->axisRect()->backgroundBrush().color()), dashed_};
}

double CurvePlottable::selectTest(const QPointF&, bool, QVariant*) const
{
    return -1;
}

QCPRange CurvePlottable::getKeyRange(bool& foundRange, QCP::SignDomain) const
{
    const Extent extent = curve_.xExtent();
    foundRange = !extent.isEmpty();
    return {extent.lowest, extent.highest};
}

QCPRange CurvePlottable::getValueRange(bool& foundRange, QCP::SignDomain, const QCPRange&) const
{
    const Extent extent = curve_.extent();
    foundRange = !extent.isEmpty();
    return {extent.lowest, extent.highest};
}

void CurvePlottable::draw(QCPPainter* painter)
{
    const QRect rect = keyAxis()->axisRect()->rect();
    if (curve_.empty() || rect.isEmpty())
        return;
    const double scale = painter->deviceTransform().m11();
    SketchArea area;
    area.x = pixelScale(*keyAxis(), rect.left(), scale);
    area.y = pixelScale(*valueAxis(), rect.top(), scale);
    area.width = static_cast<int>(std::ceil(rect.width() * scale));
    area.height = static_cast<int>(std::ceil(rect.height() * scale));
    painter->save();
    painter->translate(rect.topLeft());
    painter->scale(1 / scale, 1 / scale);
    paintCurve(*painter, curve_, area, style(), scale);
    painter->restore();
}

void CurvePlottable::drawLegendIcon(QCPPainter* painter, const QRectF& rect) const
{
    painter->setPen(QPen(colour_, style().width()));
    painter->drawLine(QLineF(rect.left(), rect.center().y(), rect.right(), rect.center().y()));
}

} // namespace orb
