// SPDX-License-Identifier: GPL-3.0-or-later
#include "curve_layer.h"

#include "contrast.h"

#include <cmath>

namespace orb {

namespace {

constexpr double solidWidth = 2;
constexpr double dashedWidth = 1.5;
constexpr double edgeWidth = 0.6; // of an edge, at either side of its line

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

/// Calls `paint` with the color and the width of the plot's line, and before that with those of its edge.
template <typename Paint> void forEachStroke(const GraphPlot::Drawing& plot, Paint paint)
{
    const double width = plot.plan.dashed ? dashedWidth : solidWidth;
    const QColor ground = plot.y.drawing().axis.axisRect()->backgroundBrush().color();
    const QColor edge = edgeFor(plot.plan.color, ground);
    if (edge.isValid())
        paint(edge, width + 2 * edgeWidth);
    paint(plot.plan.color, width);
}

void paintCurve(QImage& canvas, const GraphPlot::Drawing& plot, const CurveArea& area, double scale)
{
    CurveShape shape = curveShape(plot.curve, area);
    if (plot.plan.dashed)
        shape = dashed(shape, area, scale);
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
    for (const GraphPlot::Drawing& plot : plots)
        if (plot.visible)
            paintCurve(canvas_, plot,
                       {x, pixelScale(plot.y.drawing().axis, rect.top(), scale), size.width(), size.height()}, scale);
    canvas_.setDevicePixelRatio(scale);
    painter->drawImage(rect.topLeft(), canvas_);
}

} // namespace orb
