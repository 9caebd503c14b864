// SPDX-License-Identifier: GPL-3.0-or-later
#include "bezel.h"

#include "contrast.h"

namespace orb {

Bezel::Bezel(QCPAxisRect& area) : QCPLayerable(area.parentPlot(), QStringLiteral("background")), area_(area) {}

void Bezel::draw(QCPPainter* painter)
{
    const QRectF rim = QRectF(mParentPlot->viewport()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(mixed(ground, Qt::black, 0.45), 1));
    painter->drawRect(rim);
    painter->setPen(QPen(mixed(ground, Qt::white, 0.75), 1));
    painter->drawRect(rim.adjusted(1, 1, -1, -1));
    if (focusLine.isValid()) {
        painter->setPen(QPen(focusLine, 2));
        painter->drawRect(rim.adjusted(3, 3, -3, -3));
    }
    painter->setPen(QPen(mixed(ground, Qt::black, 0.45), 3));
    painter->drawRect(QRectF(area_.rect()).adjusted(-2, -2, 2, 2));
}

} // namespace orb
