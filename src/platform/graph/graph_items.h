// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "plotting.h"

namespace orb {

/// The layer above the curves, which is painted alone when only a cursor or the zoom rectangle moves.
inline const QString overlayLayer = QStringLiteral("overlay");

/// The cross of a cursor.
class CursorLines : public QCPLayerable {
public:
    CursorLines(QCPAxis& x, QCPAxis& y);

    QColor color;
    /// In the units of the axes.
    QPointF place;
    void setValueAxis(QCPAxis& y) { y_ = &y; }

protected:
    void applyDefaultAntialiasingHint(QCPPainter* painter) const override { painter->setAntialiasing(false); }
    QRect clipRect() const override { return x_.axisRect()->rect(); }
    void draw(QCPPainter* painter) override;

private:
    QCPAxis& x_;
    QCPAxis* y_;
};

/// The rectangle that the operator draws to zoom.
class ZoomRectangle : public QCPLayerable {
public:
    explicit ZoomRectangle(QCPAxisRect& area);

    QRectF rectangle;

protected:
    void applyDefaultAntialiasingHint(QCPPainter* painter) const override { painter->setAntialiasing(false); }
    QRect clipRect() const override { return area_.rect(); }
    void draw(QCPPainter* painter) override;

private:
    QCPAxisRect& area_;
};

/// The bezel around the graph.
class Bezel : public QCPLayerable {
public:
    explicit Bezel(QCPAxisRect& area);

    /// Of the surface that it stands on.
    QColor ground;

protected:
    void applyDefaultAntialiasingHint(QCPPainter* painter) const override { painter->setAntialiasing(true); }
    QRect clipRect() const override { return mParentPlot->viewport(); }
    void draw(QCPPainter* painter) override;

private:
    QCPAxisRect& area_;
};

} // namespace orb
