// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "curve_paint.h"
#include "plotting.h"

#include <memory>
#include <vector>

namespace orb {

/// A curve as it stands in the drawing.
struct DrawnCurve {
    const Curve* data;
    QCPAxis* valueAxis;
    QColor color;
    bool dashed = false;
    bool visible = true;
};

/// All curves of the drawing, the last one on top. They are painted to one canvas at the resolution of the screen, so
/// that the cost is that of the pixels they cover.
class CurveLayer : public QCPLayerable {
public:
    /// Belongs to the drawing that `x` stands in.
    explicit CurveLayer(QCPAxis& x);

    /// `data` and `valueAxis` must outlive the drawing's last repaint. What is returned stays where it is.
    DrawnCurve& add(const Curve& data, QCPAxis& valueAxis, const QColor& color, bool dashed);

    /// How a curve is drawn on the plot area's present color.
    LineStyle style(const DrawnCurve& curve) const;

protected:
    void applyDefaultAntialiasingHint(QCPPainter* painter) const override { painter->setAntialiasing(false); }
    QRect clipRect() const override { return x_.axisRect()->rect(); }
    void draw(QCPPainter* painter) override;

private:
    void clearCanvas(const QSize& size);

    QCPAxis& x_;
    std::vector<std::unique_ptr<DrawnCurve>> curves_;
    QImage canvas_;
};

} // namespace orb
