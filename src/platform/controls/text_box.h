// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "control.h"

#include <QLineEdit>

namespace orb {

/// One line of text.
class TextBox : public Control<QLineEdit> {
public:
    /// The text is another one now, by the operator or by an assignment.
    std::function<void()> onChange;
    /// The operator pressed a key that gives the character with this code; 13 is Enter. The box takes the key after it.
    std::function<void(int code)> onKeyPress;
    std::function<void()> onGotFocus;
    /// A mouse button went down in the box.
    std::function<void()> onMouseDown;

    explicit TextBox(const QString& text = {}, QWidget* parent = nullptr);

    /// Runs `onChange` inside the assignment when the text changes.
    void setText(const QString& text);

    void setForeColor(const QColor& color);
    void setBackColor(const QColor& color);
    QColor foreColor() const { return palette().color(QPalette::Text); }
    QColor backColor() const { return palette().color(QPalette::Base); }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
};

} // namespace orb
