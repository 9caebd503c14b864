// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "curve_sketch.h"

#include <QColor>
#include <QImage>

namespace orb {

/// How a curve is drawn.
struct LineStyle {
    QColor color;
    QColor edge; ///< under the line and a little wider; invalid for none
    bool dashed = false;
    /// In pixels at 96 dpi.
    double width() const { return dashed ? 1.5 : 2; }
};

/// Paints the curve over what is on `canvas`, premultiplied and as large as `area`. `scale` is how many of its pixels
/// make one at 96 dpi.
void paintCurve(QImage& canvas, const Curve& curve, const SketchArea& area, const LineStyle& style, double scale);

/// Paints opaque columns, their ends as far as they cover a pixel.
void fillColumns(QImage& canvas, const SketchColumns& columns, const QColor& color);

} // namespace orb
