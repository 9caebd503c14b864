// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "curve_shape.h"

#include <optional>
#include <vector>

namespace orb {

/// A place at an edge of the area at which a curve leaves it. Pixels of the area.
struct CurveExit {
    enum Edge { Top, Bottom, Left, Right };
    Edge edge;
    double at; ///< along the edge, from the left or from the top
};

/// Where a curve leaves the area. At the upper and the lower edge one place stands for all that lie closer than a mark is
/// wide; at the left and the right there is one each, where the points go on beyond it. `points` are all x of the
/// curve, `scale` the pixels to one at 96 dpi.
std::vector<CurveExit> curveExits(const CurveShape& shape, const Extent& points, const CurveArea& area, double scale);

/// The pixel at which a curve stands in the pixel column `x`; nothing where it has a gap or lies outside of the area.
std::optional<double> curveHeight(const CurveShape& shape, const CurveArea& area, double x);

/// Where the marks of a curve stand: at every `period` pixels from `first` on, and in the middle of a curve that has
/// nothing at any of these.
std::vector<QPointF> markPlaces(const CurveShape& shape, const CurveArea& area, double first, double period);

} // namespace orb
