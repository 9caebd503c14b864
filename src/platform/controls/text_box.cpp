// SPDX-License-Identifier: GPL-3.0-or-later
#include "text_box.h"

#include <QKeyEvent>

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

void TextBox::setForeColor(const QColor& color)
{
    QPalette colors = palette();
    colors.setColor(QPalette::Text, color);
    setPalette(colors);
}

void TextBox::setBackColor(const QColor& color)
{
    QPalette colors = palette();
    colors.setColor(QPalette::Base, color);
    setPalette(colors);
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
}

void TextBox::mousePressEvent(QMouseEvent* event)
{
    QLineEdit::mousePressEvent(event);
    enter(onMouseDown);
}

} // namespace orb
