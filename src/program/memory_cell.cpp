// SPDX-License-Identifier: GPL-3.0-or-later
#include "memory_cell.h"

#include "dark_desktop.h"
#include "focus_ring.h"
#include "run_modes.h"

#include <QKeyEvent>
#include <QPainter>

namespace orb {

namespace {
constexpr int margin = 3;
constexpr double markScale = 0.62; // of the text
constexpr QRgb editedRing = 0xffffc107;
} // namespace

MemoryCell::MemoryCell(QWidget* parent) : Control<QWidget>(parent)
{
    setFocusPolicy(Qt::ClickFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void MemoryCell::setText(const QString& text)
{
    text_ = text;
    setAccessibleDescription(text);
    update();
}

void MemoryCell::setBackColor(const QColor& color)
{
    backColor_ = color;
    update();
}

void MemoryCell::setForeColor(const QColor& color)
{
    foreColor_ = color;
    update();
}

void MemoryCell::setFontSize(int points)
{
    if (points == fontSize())
        return;
    QFont sized = font();
    sized.setPointSize(points);
    setFont(sized);
}

void MemoryCell::setAlignment(Qt::Alignment alignment)
{
    alignment_ = alignment;
    update();
}

void MemoryCell::setEdited(bool edited)
{
    isEdited_ = edited;
    update();
}

QString MemoryCell::mark() const
{
    for (const RunMode& mode : runModes())
        if (mode.color == backColor_)
            return mode.mark();
    return {};
}

QSize MemoryCell::sizeHint() const
{
    return {46, 20};
}

QSize MemoryCell::minimumSizeHint() const
{
    return {38, 16};
}

/// A white cell has the ground of the desktop's fields, which may be dark.
QColor MemoryCell::ground() const
{
    return backColor_ == Qt::white ? palette().color(QPalette::Base) : backColor_;
}

/// A step whose run mode is unknown leaves white text on white.
QColor MemoryCell::readableColor() const
{
    return backColor_ == Qt::white ? palette().color(QPalette::Text) : foreColor_;
}

void MemoryCell::drawTexts(QPainter& painter) const
{
    const QRect inner = rect().adjusted(margin, 0, -margin, 0);
    painter.setPen(readableColor());
    painter.drawText(inner, static_cast<int>(alignment_ | Qt::AlignVCenter), text_);
    QFont small = font();
    small.setPointSizeF(small.pointSizeF() * markScale);
    painter.setFont(small);
    painter.drawText(inner, Qt::AlignLeft | Qt::AlignVCenter, mark());
}

/// The black line sets the ring off from a white cell and from a light window.
void MemoryCell::drawBorder(QPainter& painter) const
{
    const QColor usual = palette().color(isDark(palette()) ? QPalette::Light : QPalette::Mid);
    painter.setPen(isEdited_ ? QColor(Qt::black) : usual);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    if (!isEdited_)
        return;
    painter.setPen(QPen(QColor(editedRing), 2, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.drawRect(rect().adjusted(2, 2, -2, -2));
}

void MemoryCell::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), ground());
    drawBorder(painter);
    drawTexts(painter);
    if (!hasFocus())
        return;
    painter.setPen(Qt::white); // between the outline and a dark cell
    painter.drawRect(rect().adjusted(2, 2, -3, -3));
    drawFocusRing(painter, rect(), palette());
}

void MemoryCell::mousePressEvent(QMouseEvent*)
{
    enter(onMouseDown);
}

void MemoryCell::keyPressEvent(QKeyEvent* event)
{
    const auto arrow = [this](int rows, int columns) { enter([this, rows, columns] { onArrow(rows, columns); }); };
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        return enter(onMouseDown);
    case Qt::Key_Up:
        return arrow(-1, 0);
    case Qt::Key_Down:
        return arrow(1, 0);
    case Qt::Key_Left:
        return arrow(0, -1);
    case Qt::Key_Right:
        return arrow(0, 1);
    default:
        QWidget::keyPressEvent(event);
    }
}

} // namespace orb
