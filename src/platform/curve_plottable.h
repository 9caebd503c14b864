// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "curve_sketch.h"

#include "plotting.h"

namespace orb {

/// The widths of the lines, in pixels at 96 dpi.
constexpr double solidLineWidth = 2;
constexpr double dashedLineWidth = 1.5;

/// How a curve is drawn.
struct LineStyle {
    QColor colour;
    QColor edge; ///< under the line and a little wider; invalid for none
    bool dashed = false;
    double width() const { return dashed ? dashedLineWidth : solidLineWidth; }
};

/// Draws a curve to `painter`, whose unit is a device pixel and whose origin the corner of the area; `scale` is the
/// device pixels to one at 96 dpi.
void paintCurve(QPainter& painter, const Curve& curve, const SketchArea& area, const LineStyle& style, double scale);

/// The curve of a plot in the drawing.
class CurvePlottable : public QCPAbstractPlottable {
public:
    /// `curve` must outlive this, which belongs to the drawing that the axes stand in.
    CurvePlottable(QCPAxis& x, QCPAxis& y, const Curve& curve, const QColor& colour, bool dashed);

    const QColor& colour() const { return colour_; }
    void setColour(const QColor& colour) { colour_ = colour; }
    bool dashed() const { return dashed_; }
    /// The line as it is drawn on the plot area's present colour.
    LineStyle style() const;

    double selectTest(const QPointF& pos, bool onlySelectable, QVariant* details = nullptr) const override;
    QCPRange getKeyRange(bool& foundRange, QCP::SignDomain inSignDomain = QCP::sdBoth) const override;
    QCPRange getValueRange(bool& foundRange, QCP::SignDomain inSignDomain = QCP::sdBoth,
                           const QCPRange& inKeyRange = QCPRange()) const override;

protected:
    void draw(QCPPainter* painter) override;
    void drawLegendIcon(QCPPainter* painter, const QRectF& rect) const override;

private:
    const Curve& curve_;
    QColor colour_;
    bool dashed_;
};

} // namespace orb
