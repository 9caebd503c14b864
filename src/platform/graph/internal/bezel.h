// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "plotting.h"

namespace orb {

/// The bezel around the graph and its plot area.
class Bezel final : public QCPLayerable {
public:
    /// Belongs to the drawing in which `area` is.
    explicit Bezel(QCPAxisRect& area);

    /// The color of the surface around the plot area.
    QColor ground;
    /// The color of a line inside the rim while the graph has the keyboard focus; otherwise invalid.
    QColor focusLine;

protected:
    void applyDefaultAntialiasingHint(QCPPainter* painter) const override { painter->setAntialiasing(true); }
    QRect clipRect() const override { return mParentPlot->viewport(); }
    void draw(QCPPainter* painter) override;

private:
    QCPAxisRect& area_;
};

} // namespace orb
