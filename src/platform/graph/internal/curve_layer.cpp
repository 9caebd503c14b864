// SPDX-License-Identifier: GPL-3.0-or-later
#include "curve_layer.h"

#include "contrast.h"
#include "mark_painter.h"

#include <cmath>

namespace orb {

namespace {

constexpr double solidWidth = 2;
constexpr double dashedWidth = 1.5;
constexpr double edgeWidth = 0.6; // of an edge, at either side of its line
constexpr double markSlot = 13;   // pixels at 96 dpi; the marks of different curves stand in different slots

/// From an axis to device pixels, counted from the corner of the plot area at `origin`.
PixelScale pixelScale(const QCPAxis& axis, double origin, double scale)
{
    const double at = axis.range().lower;
    const double factor = (axis.coordToPixel(axis.range().upper) - axis.coordToPixel(at)) / axis.range().size();
    return {at, factor * scale, (axis.coordToPixel(at) - origin) * scale};
}

/// `above` over `below`, both premultiplied, where it covers that share of the pixel.
QRgb blended(QRgb above, QRgb below, double share)
{
    const int cover = static_cast<int>(std::lround(share * 255));
    const auto mix = [cover](int one, int other) { return (one * cover + other * (255 - cover) + 127) / 255; };
    return qRgba(mix(qRed(above), qRed(below)), mix(qGreen(above), qGreen(below)), mix(qBlue(above), qBlue(below)),
                 mix(qAlpha(above), qAlpha(below)));
}

void paintLines(QPainter& painter, const QVector<QLineF>& lines, const QColor& color, double width)
{
    painter.setRenderHint(QPainter::Antialiasing);
    // Single lines, since a path takes the longer the more it crosses itself. Square caps leave no notch between them.
    painter.setPen(QPen(color, width, Qt::SolidLine, Qt::SquareCap));
    painter.drawLines(lines);
}

CurveColors colorsOf(const GraphPlot::Drawing& plot)
{
    const QColor ground = plot.y.drawing().axis.axisRect()->backgroundBrush().color();
    return {plot.plan.color, edgeFor(plot.plan.color, ground), ground};
}

/// Calls `paint` with the color and the width of the plot's line, and before that with those of its edge.
template <typename Paint> void forEachStroke(const GraphPlot::Drawing& plot, Paint paint)
{
    const double width = plot.plan.dashed ? dashedWidth : solidWidth;
    const CurveColors colors = colorsOf(plot);
    if (colors.edge.isValid())
        paint(colors.edge, width + 2 * edgeWidth);
    paint(colors.line, width);
}

void paintCurve(QImage& canvas, const GraphPlot::Drawing& plot, const CurveShape& whole, const CurveArea& area,
                double scale)
{
    const CurveShape shape = plot.plan.dashed ? dashed(whole, area, scale) : whole;
    forEachStroke(plot, [&](const QColor& color, double width) {
        fillColumns(canvas, widened(shape.columns, width * scale), color);
        QPainter painter(&canvas);
        paintLines(painter, shape.lines, color, width * scale);
    });
}

} // namespace

void fillColumns(QImage& canvas, const Columns& columns, const QColor& color)
{
    auto* const pixels = reinterpret_cast<QRgb*>(canvas.bits());
    const qsizetype stride = canvas.bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb));
    for (std::size_t x = 0; x < columns.size(); ++x) {
        const double top = std::max(columns[x].lowest, 0.0);
        const double bottom = std::min(columns[x].highest, 1.0 * canvas.height());
        for (int y = static_cast<int>(top); y < bottom; ++y) {
            QRgb& pixel = pixels[y * stride + static_cast<qsizetype>(x)];
            const double share = std::min(bottom, y + 1.0) - std::max(top, 1.0 * y);
            pixel = share < 1 ? blended(color.rgb(), pixel, share) : color.rgb();
        }
    }
}

CurveLayer::CurveLayer(QCPAxis& x) : QCPLayerable(x.parentPlot(), QStringLiteral("main")), x_(x) {}

void CurveLayer::paintLegend(const GraphPlot::Drawing& plot, QPainter& painter, const QRectF& rect)
{
    const double middle = std::round(rect.height() / 2);
    const CurveArea area{{}, {}, static_cast<int>(rect.width()), 0};
    CurveShape shape{{}, {QLineF(1, middle, rect.width() - 1, middle)}};
    if (plot.plan.dashed)
        shape = dashed(shape, area, 1);
    painter.translate(rect.topLeft());
    forEachStroke(plot, [&](const QColor& color, double width) { paintLines(painter, shape.lines, color, width); });
    if (!plot.plan.mark.isEmpty())
        paintMark(painter, {std::round(rect.width() / 2), middle}, plot.plan.mark, colorsOf(plot), 1);
    painter.translate(-rect.topLeft());
}

void CurveLayer::draw(QCPPainter* painter)
{
    const QRect rect = clipRect();
    const double scale = painter->deviceTransform().m11();
    const QSize size((QSizeF(rect.size()) * scale).toSize());
    if (canvas_.size() != size)
        canvas_ = QImage(size, QImage::Format_ARGB32_Premultiplied);
    canvas_.setDevicePixelRatio(1); // while it is painted, a pixel is a pixel
    canvas_.fill(Qt::transparent);
    const PixelScale x = pixelScale(x_, rect.left(), scale);
    std::vector<Drawn> curves;
    for (std::size_t i = 0; i < plots.size(); ++i) {
        const GraphPlot::Drawing& plot = plots[i];
        if (!plot.visible)
            continue;
        const CurveArea area{x, pixelScale(plot.y.drawing().axis, rect.top(), scale), size.width(), size.height()};
        curves.push_back({plot, i, area, curveShape(plot.curve, area)});
        paintCurve(canvas_, plot, curves.back().shape, area, scale);
    }
    paintMarks(curves, scale);
    canvas_.setDevicePixelRatio(scale);
    painter->drawImage(rect.topLeft(), canvas_);
}

/// After all curves, so that none covers them.
void CurveLayer::paintMarks(const std::vector<Drawn>& curves, double scale)
{
    QPainter painter(&canvas_);
    ExitPainter exits(painter, canvas_.size(), scale);
    const double slot = markSlot * scale;
    for (const auto& [plot, index, area, shape] : curves) {
        const CurveColors colors = colorsOf(plot);
        const double first = slot * (static_cast<double>(index) + 0.5);
        if (!plot.plan.mark.isEmpty())
            for (const QPointF& at : markPlaces(shape, area, first, slot * static_cast<double>(plots.size())))
                paintMark(painter, at, plot.plan.mark, colors, scale);
        for (const CurveExit& exit : curveExits(shape, plot.curve.xExtent(), area, scale))
            exits.paint(exit, colors);
    }
}

} // namespace orb
