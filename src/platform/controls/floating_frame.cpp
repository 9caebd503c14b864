// SPDX-License-Identifier: GPL-3.0-or-later
#include "floating_frame.h"

#include <QMouseEvent>
#include <QPainter>

namespace orb {

namespace {
constexpr int captionLeft = 10;
constexpr int captionTop = 4;
constexpr int cornerRadius = 4;
const QColor border(0x5a, 0x64, 0x72);
} // namespace

FloatingFrame::FloatingFrame(const QString& caption, QWidget* parent) : Frame(caption, parent)
{
    setAutoFillBackground(true);
}

void FloatingFrame::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(border, 2));
    painter.drawRoundedRect(rect().adjusted(1, 1, -1, -1), cornerRadius, cornerRadius);
    QFont bold = font();
    bold.setBold(true);
    painter.setFont(bold);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(captionLeft, captionTop + painter.fontMetrics().ascent(), caption());
}

void FloatingFrame::mousePressEvent(QMouseEvent* event)
{
    event->accept();
}

} // namespace orb
