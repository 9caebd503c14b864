// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "graph_cursor.h"
#include "plotting.h"

namespace orb {

class GraphAxis;
class RepaintQueue;

/// The layer above the curves, which is painted alone when only a cursor or the zoom rectangle moves.
inline const QString overlayLayer = QStringLiteral("overlay");

/// A cursor in the drawing: a line across and a line up.
class GraphCursor::Drawing final : public QCPLayerable {
public:
    /// Belongs to the drawing in which the axes are. `queue` must outlive it. `value` is the value axis while the
    /// cursor is on no plot.
    Drawing(const QString& cursorName, GraphAxis& time, GraphAxis& value, RepaintQueue& queue);

    const QString name;
    GraphAxis& x;
    RepaintQueue& repaints;
    const GraphPlot* plot = nullptr;
    QColor color = Qt::white;
    /// In the units of the axes.
    double xPosition = 0;
    double yPosition = 0;

    /// The value axis of its plot.
    GraphAxis& valueAxis() const;
    void place(double toX, double toY);
    /// Moves to the sample of its plot nearest to `toX`; to `toX` and `toY` themselves where it has no plot or no sample.
    /// Returns false if it was there already.
    bool snapTo(double toX, double toY);

protected:
    void applyDefaultAntialiasingHint(QCPPainter* painter) const override { painter->setAntialiasing(false); }
    QRect clipRect() const override;
    void draw(QCPPainter* painter) override;

private:
    GraphAxis& y_;
};

} // namespace orb
