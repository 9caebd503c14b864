// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPalette>
#include <QRect>

class QAbstractScrollArea;
class QPainter;

namespace orb {

/// The outline of what has the keyboard focus, the same on all controls that the desktop's style gives none that is
/// seen well. A selection is filled, so that the two differ.
void drawFocusRing(QPainter& painter, const QRect& rect, const QPalette& palette);

/// Draws the outline along the edge of the view's visible part while the view has the focus. For the end of its
/// `paintEvent`; what the view scrolls has to be painted again as a whole.
void drawFocusRing(QAbstractScrollArea& view);

} // namespace orb
