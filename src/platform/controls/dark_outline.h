// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QRect>

class QPainter;
class QWidget;

namespace orb {

/// True where the style of `widget` draws outlines darker than the window, and the desktop is dark, so that nobody sees
/// where a box or a field is. Such a control then draws its outline itself, at the end of its `paintEvent`.
bool needsOutline(const QWidget& widget);
/// A gray that stands out from the window, less so while `widget` is disabled.
QColor outlineColor(const QWidget& widget);

/// The outline of a field or a box along the edge of `rect`.
void drawDarkOutline(QPainter& painter, const QRect& rect, const QWidget& widget);

} // namespace orb
