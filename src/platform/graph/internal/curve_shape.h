// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "curve.h"

#include <QLineF>
#include <QVector>

namespace orb {

/// From the values of an axis to pixels.
struct PixelScale {
    double origin = 0; ///< the value at pixel `offset`
    double factor = 1; ///< pixels for each unit; negative where values grow upwards
    double offset = 0;
    /// A value far out of view gives a pixel far out of view, with which can still be calculated.
    double pixel(double value) const;
};

/// Where a curve is drawn: pixels of the screen, from (0, 0).
struct CurveArea {
    PixelScale x;
    PixelScale y;
    int width = 0;
    int height = 0;
};

/// For each column of pixels the extent, in pixels, of what is covered in it.
using Columns = std::vector<Extent>;

/// What there is to draw of a curve.
struct CurveShape {
    /// Where points are closer than pixels: for each column of pixels from the lowest to the highest value in it, which
    /// is all that the pixels can show. The time to find it follows the columns and not the points.
    Columns columns;
    /// Elsewhere: the lines from point to point. A point between two gaps is a line without length.
    QVector<QLineF> lines;
};

CurveShape curveShape(const Curve& curve, const CurveArea& area);

/// The parts of a shape that lie in dashes, where `scale` pixels make one at 96 dpi. The dashes begin at pixel 0 and not
/// at the curve's first point, so that they stay where they are while the curve grows. What is steep stays whole: a step between
/// two dashes must be seen.
CurveShape dashed(const CurveShape& shape, const CurveArea& area, double scale);

/// What a round pen of that width, in pixels, covers when it follows `columns`.
Columns widened(const Columns& columns, double width);

} // namespace orb
