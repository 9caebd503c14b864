// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "curve_marks.h"

#include <QColor>
#include <QSizeF>

#include <array>

class QPainter;

namespace orb {

/// The colors of a curve and of what it is drawn on.
struct CurveColors {
    QColor line;
    QColor edge; ///< invalid where the line needs none
    QColor ground;
};

/// Paints the mark of a curve, a character in a small disc, around `at`.
void paintMark(QPainter& painter, const QPointF& at, const QString& mark, const CurveColors& colors, double scale);

/// Paints triangles at the edges of an area, pointing to where curves leave it. At the upper and the lower edge those of
/// several curves that leave at the same place stand side by side.
class ExitPainter {
public:
    /// `painter` paints on the area in its pixels, `scale` of which make one at 96 dpi.
    ExitPainter(QPainter& painter, const QSizeF& area, double scale) : painter_(painter), area_(area), scale_(scale) {}

    void paint(const CurveExit& exit, const CurveColors& colors);

private:
    double freePlace(CurveExit::Edge edge, double at);

    QPainter& painter_;
    QSizeF area_;
    double scale_;
    std::array<std::vector<double>, 2> taken_; ///< the places at the upper and at the lower edge
};

} // namespace orb
