// SPDX-License-Identifier: GPL-3.0-or-later
#include "curve_layer.h"

#include "contrast.h"

#include <cmath>

namespace orb {

namespace {

/// From an axis to device pixels, counted from the corner of the plot area at `origin`.
PixelScale pixelScale(const QCPAxis& axis, double origin, double scale)
{
    const double at = axis.range().lower;
    const double factor = (axis.coordToPixel(axis.range().upper) - axis.coordToPixel(at)) / axis.range().size();
    return {at, factor * scale, (axis.coordToPixel(at) - origin) * scale};
}

} // namespace

CurveLayer::CurveLayer(QCPAxis& x) : QCPLayerable(x.parentPlot(), QStringLiteral("main")), x_(x) {}

DrawnCurve& CurveLayer::add(const Curve& data, QCPAxis& valueAxis, const QColor& color, bool dashed)
{
    curves_.push_back(std::make_unique<DrawnCurve>(DrawnCurve{&data, &valueAxis, color, dashed}));
    return *curves_.back();
}

LineStyle CurveLayer::style(const DrawnCurve& curve) const
{
    return {curve.color, edgeFor(curve.color, x_.axisRect()->backgroundBrush().color()), curve.dashed};
}

void CurveLayer::draw(QCPPainter* painter)
{
    const QRect rect = x_.axisRect()->rect();
    if (rect.isEmpty())
        return;
    const double scale = painter->deviceTransform().m11();
    clearCanvas(
        {static_cast<int>(std::ceil(rect.width() * scale)), static_cast<int>(std::ceil(rect.height() * scale))});
    canvas_.setDevicePixelRatio(1); // while it is painted, a pixel is a pixel
    const PixelScale x = pixelScale(x_, rect.left(), scale);
    for (const auto& curve : curves_) {
        const PixelScale y = pixelScale(*curve->valueAxis, rect.top(), scale);
        if (curve->visible && !curve->data->empty())
            paintCurve(canvas_, *curve->data, {x, y, canvas_.width(), canvas_.height()}, style(*curve), scale);
    }
    canvas_.setDevicePixelRatio(scale);
    painter->drawImage(rect.topLeft(), canvas_);
}

void CurveLayer::clearCanvas(const QSize& size)
{
    if (canvas_.size() != size)
        canvas_ = QImage(size, QImage::Format_ARGB32_Premultiplied);
    canvas_.fill(Qt::transparent);
}

} // namespace orb
