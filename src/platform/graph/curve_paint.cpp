// SPDX-License-Identifier: GPL-3.0-or-later
#include "curve_paint.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace orb {

namespace {

/// Dashes follow the screen and not the length of the line, so that they stand still while a curve grows.
constexpr double dashLength = 7;
constexpr double dashPeriod = 11;
/// What falls or rises by this much at once is drawn between two dashes as well, in pixels at 96 dpi: a step there is
/// to be seen.
constexpr double steep = 4;
/// How far an edge stands out at either side of its line.
constexpr double edgeWidth = 0.6;

/// `color` over `under`, both opaque or `under` transparent, as far as `cover` of 255 says.
QRgb covered(QRgb under, QRgb color, int cover)
{
    const auto blend = [cover](int above, int below) { return (above * cover + below * (255 - cover) + 127) / 255; };
    return qRgba(blend(qRed(color), qRed(under)), blend(qGreen(color), qGreen(under)),
                 blend(qBlue(color), qBlue(under)), blend(255, qAlpha(under)));
}

/// One column of a canvas.
class Column {
public:
    Column(QImage& canvas, int x)
        : first_(reinterpret_cast<QRgb*>(canvas.bits()) + x),
          stride_(canvas.bytesPerLine() / 4),
          height_(canvas.height())
    {}

    void fill(double top, double bottom, QRgb color)
    {
        top = std::max(top, 0.0);
        bottom = std::min(bottom, static_cast<double>(height_));
        if (!(top < bottom))
            return;
        const int firstWhole = static_cast<int>(std::ceil(top));
        const int endWhole = static_cast<int>(std::floor(bottom));
        if (firstWhole > endWhole) {
            cover(endWhole, bottom - top, color);
            return;
        }
        cover(firstWhole - 1, firstWhole - top, color);
        for (int y = firstWhole; y < endWhole; ++y)
            first_[y * stride_] = color;
        cover(endWhole, bottom - endWhole, color);
    }

private:
    void cover(int y, double part, QRgb color)
    {
        const auto share = static_cast<int>(std::lround(part * 255));
        if (share > 0)
            first_[y * stride_] = covered(first_[y * stride_], color, share);
    }

    QRgb* first_;
    qsizetype stride_;
    int height_;
};

bool isInDash(double x, double scale)
{
    return std::fmod(x, dashPeriod * scale) < dashLength * scale;
}

void cutDashes(SketchColumns& columns, double scale)
{
    for (std::size_t c = 0; c < columns.size(); ++c)
        if (!isInDash(static_cast<double>(c), scale) && columns[c].highest - columns[c].lowest < steep * scale)
            columns[c] = {};
}

void paintColumns(QImage& canvas, SketchColumns columns, const LineStyle& style, double scale)
{
    if (style.dashed)
        cutDashes(columns, scale);
    if (style.edge.isValid())
        fillColumns(canvas, widened(columns, (style.width() + 2 * edgeWidth) * scale), style.edge);
    fillColumns(canvas, widened(columns, style.width() * scale), style.color);
}

/// The pieces of the line from a to b that lie in dashes; all of it where it is steep.
void addDashes(std::vector<SketchLine>& pieces, const SketchPoint& a, const SketchPoint& b, double scale)
{
    const double width = b.x - a.x;
    if (std::abs(b.y - a.y) > std::max(steep * scale, 2 * std::abs(width))) {
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

void paintLines(QImage& canvas, std::vector<SketchLine> lines, const LineStyle& style, double scale)
{
    if (style.dashed)
        lines = dashesOf(lines, scale);
    const Qt::PenCapStyle cap = style.dashed ? Qt::FlatCap : Qt::RoundCap;
    const auto pen = [&](const QColor& color, double width) {
        return QPen(color, width * scale, Qt::SolidLine, cap, Qt::RoundJoin);
    };
    QPainter painter(&canvas);
    painter.setRenderHint(QPainter::Antialiasing);
    if (style.edge.isValid())
        strokeLines(painter, lines, pen(style.edge, style.width() + 2 * edgeWidth));
    strokeLines(painter, lines, pen(style.color, style.width()));
}

} // namespace

void fillColumns(QImage& canvas, const SketchColumns& columns, const QColor& color)
{
    const int count = std::min(canvas.width(), static_cast<int>(columns.size()));
    for (int x = 0; x < count; ++x)
        Column(canvas, x).fill(columns[static_cast<std::size_t>(x)].lowest,
                               columns[static_cast<std::size_t>(x)].highest, color.rgb());
}

void paintCurve(QImage& canvas, const Curve& curve, const SketchArea& area, const LineStyle& style, double scale)
{
    if (isDense(curve, area))
        paintColumns(canvas, sketchColumns(curve, area), style, scale);
    else
        paintLines(canvas, sketchLines(curve, area), style, scale);
}

} // namespace orb
