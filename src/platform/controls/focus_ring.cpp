// SPDX-License-Identifier: GPL-3.0-or-later
#include "focus_ring.h"

#include <QAbstractScrollArea>
#include <QPainter>

namespace orb {

void drawFocusRing(QPainter& painter, const QRect& rect, const QPalette& palette)
{
    constexpr int width = 2;
    painter.save();
    painter.setPen(QPen(palette.color(QPalette::Highlight), width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect.adjusted(1, 1, -1, -1));
    painter.restore();
}

void drawFocusRing(QAbstractScrollArea& view)
{
    if (!view.hasFocus())
        return;
    QPainter painter(view.viewport());
    drawFocusRing(painter, view.viewport()->rect(), view.palette());
}

} // namespace orb
