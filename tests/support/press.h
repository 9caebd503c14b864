// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "check_box.h"
#include "combo_box.h"
#include "list_box.h"
#include "picture_button.h"

namespace orb {

/// True when the operator could reach the control: it and all its containers up to the form are shown and enabled.
bool isReachable(const QWidget& control);

/// The operator presses a button or a box. Ignored while the control can't be reached.
template <typename Button> void press(Button& button)
{
    if (isReachable(button))
        button.click();
}

/// The operator presses a key while that control has the focus, in the active window. Shortcuts see it first.
void hitKey(QWidget& focused, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

/// Makes the window the active one and gives the control the focus.
void giveFocus(QWidget& control);

/// The operator double-clicks a line of a list.
void doubleClick(ListBox& list, int line);

/// The operator picks an item of a drop-down list.
void pick(ComboBox& combo, const QString& item);

/// The operator clicks a line of a list.
void pick(ListBox& list, const QString& line);

} // namespace orb
