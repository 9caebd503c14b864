// SPDX-License-Identifier: GPL-3.0-or-later
#include "text_box.h"

#include "dark_outline.h"

#include <QKeyEvent>
#include <QPainter>

namespace orb {

TextBox::TextBox(const QString& text, QWidget* parent) : Control<QLineEdit>(text, parent)
{
    QObject::connect(this, &QLineEdit::textChanged, this, [this] { enter(onChange); });
}

void TextBox::setText(const QString& text)
{
    if (text == QLineEdit::text())
        return;
    {
        const QSignalBlocker quiet(this);
        QLineEdit::setText(text);
    }
    if (onChange)
        onChange();
}

void TextBox::keyPressEvent(QKeyEvent* event)
{
    if (onKeyPress && !event->text().isEmpty())
        enter([this, code = static_cast<int>(event->text().front().unicode())] { onKeyPress(code); });
    QLineEdit::keyPressEvent(event);
}

void TextBox::focusInEvent(QFocusEvent* event)
{
    QLineEdit::focusInEvent(event);
    enter(onGotFocus);
    keepsSelection_ = event->reason() == Qt::MouseFocusReason && hasSelectedText();
}

/// Qt gives the focus before it delivers the press, which would place the caret and end the selection.
void TextBox::mousePressEvent(QMouseEvent* event)
{
    keepsSelection_ = keepsSelection_ && event->button() == Qt::LeftButton;
    if (!keepsSelection_)
        QLineEdit::mousePressEvent(event);
    enter(onMouseDown);
}

void TextBox::mouseMoveEvent(QMouseEvent* event)
{
    if (!keepsSelection_)
        QLineEdit::mouseMoveEvent(event);
}

void TextBox::mouseReleaseEvent(QMouseEvent* event)
{
    if (!keepsSelection_)
        QLineEdit::mouseReleaseEvent(event);
    keepsSelection_ = false;
}

void TextBox::paintEvent(QPaintEvent* event)
{
    QLineEdit::paintEvent(event);
    if (!needsOutline(*this) || hasFocus() || !hasFrame())
        return;
    QPainter painter(this);
    drawDarkOutline(painter, rect(), *this);
}

} // namespace orb
