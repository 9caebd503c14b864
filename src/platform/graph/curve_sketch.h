// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "curve.h"

#include <vector>

namespace orb {

/// From the values of an axis to pixels.
struct PixelScale {
    double origin = 0; ///< the value at pixel `offset`
    double factor = 1; ///< pixels for each unit; negative where values grow upwards
    double offset = 0;
    /// Far off values are held at a distance that still can be reckoned with.
    double pixel(double value) const;
};

/// Where a curve is to be drawn: the device pixels of the plot area, from (0, 0).
struct SketchArea {
    PixelScale x;
    PixelScale y;
    int width = 0;
    int height = 0;
};

/// A place in the plot area, in pixels.
struct SketchPoint {
    double x = 0;
    double y = 0;
};

/// A line without a gap. One point alone is a dot.
using SketchLine = std::vector<SketchPoint>;

/// For each pixel column the extent, in pixels, of all that the curve covers in it; empty where it has a gap.
using SketchColumns = std::vector<Extent>;

/// True when so many points stand side by side that columns cost less than lines.
bool isDense(const Curve& curve, const SketchArea& area);

/// The curve as lines, cut to a little more than the area.
std::vector<SketchLine> sketchLines(const Curve& curve, const SketchArea& area);

/// The curve column by column, in a time that follows the columns and not the points.
SketchColumns sketchColumns(const Curve& curve, const SketchArea& area);

/// What a round pen of that width, in pixels, covers when it follows `columns`.
SketchColumns widened(const SketchColumns& columns, double width);

} // namespace orb
