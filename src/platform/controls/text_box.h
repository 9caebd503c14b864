// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "control.h"

#include <QLineEdit>

namespace orb {

/// One line of text.
class TextBox : public Control<QLineEdit> {
public:
    /// The text has changed, by the operator or by an assignment.
    std::function<void()> onChange;
    /// The operator pressed a key that gives the character with this code; 13 is Enter. The box gets the key after it.
    std::function<void(int code)> onKeyPress;
    /// What this selects stays selected, also when the focus came by a click into the box.
    std::function<void()> onGotFocus;
    /// A mouse button was pressed in the box.
    std::function<void()> onMouseDown;

    explicit TextBox(const QString& text = {}, QWidget* parent = nullptr);

    /// Runs `onChange` inside the assignment when the text changes.
    void setText(const QString& text);

    void setForeColor(const QColor& color) { setColor(QPalette::Text, color); }
    void setBackColor(const QColor& color) { setColor(QPalette::Base, color); }
    QColor foreColor() const { return palette().color(QPalette::Text); }
    QColor backColor() const { return palette().color(QPalette::Base); }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    bool keepsSelection_ = false; ///< from a click that gave the focus to its release
};

} // namespace orb
