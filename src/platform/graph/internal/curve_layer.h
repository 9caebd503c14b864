// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "curve_shape.h"
#include "plot_drawing.h"
#include "plotting.h"

#include <deque>

namespace orb {

/// All curves of the drawing, the last one on top.
///
/// They are painted to one canvas at the resolution of the screen, the columns of `CurveShape` by hand: a repaint of a
/// day of 16 curves takes 0.4 times as long as with QCustomPlot's own graphs, and with the same columns drawn as lines by
/// QPainter 1.0 times as long, as a path 17 times. The lines of `CurveShape` are few, and QPainter draws them.
class CurveLayer final : public QCPLayerable {
public:
    /// Belongs to the drawing in which `x` is.
    explicit CurveLayer(QCPAxis& x);

    std::deque<GraphPlot::Drawing> plots;

    /// A short piece of the plot's line across `rect`.
    static void paintLegend(const GraphPlot::Drawing& plot, QPainter& painter, const QRectF& rect);

protected:
    void applyDefaultAntialiasingHint(QCPPainter* painter) const override { painter->setAntialiasing(false); }
    QRect clipRect() const override { return x_.axisRect()->rect(); }
    void draw(QCPPainter* painter) override;

private:
    /// A curve as it was painted.
    struct Drawn {
        const GraphPlot::Drawing& plot;
        std::size_t index; ///< of the plot
        CurveArea area;
        CurveShape shape;
    };
    void paintMarks(const std::vector<Drawn>& curves, double scale);

    QCPAxis& x_;
    QImage canvas_;
};

/// Fills columns of a premultiplied canvas, their ends as far as they cover a pixel.
void fillColumns(QImage& canvas, const Columns& columns, const QColor& color);

} // namespace orb
