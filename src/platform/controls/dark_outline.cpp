// SPDX-License-Identifier: GPL-3.0-or-later
#include "dark_outline.h"

#include "dark_desktop.h"

#include <QPainter>
#include <QStyle>
#include <QWidget>

namespace orb {

bool needsOutline(const QWidget& widget)
{
    return isDark(widget.palette()) && widget.style()->name() == QLatin1String("fusion");
}

QColor outlineColor(const QWidget& widget)
{
    constexpr float ofText = 0.5F; // the rest is of the window
    const QColor text = widget.palette().color(QPalette::WindowText);
    const QColor window = widget.palette().color(QPalette::Window);
    const auto mixed = [](float one, float other) { return ofText * one + (1 - ofText) * other; };
    return QColor::fromRgbF(mixed(text.redF(), window.redF()), mixed(text.greenF(), window.greenF()),
                            mixed(text.blueF(), window.blueF()));
}

void drawDarkOutline(QPainter& painter, const QRect& rect, const QWidget& widget)
{
    constexpr double radius = 2;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(outlineColor(widget));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    painter.restore();
}

} // namespace orb
