// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "control.h"

#include <QComboBox>

namespace orb {

/// A box with a list that drops down. Indexes count from 0; -1 is no selection.
class ComboBox : public Control<QComboBox> {
public:
    enum class Kind {
        DropDown,     ///< accepts typed text, and a text that equals an item selects it
        DropDownList, ///< accepts only what is in the list
    };

    /// An item was selected, by the operator or by an assignment.
    std::function<void()> onClick;
    /// The operator typed.
    std::function<void()> onChange;

    explicit ComboBox(Kind kind = Kind::DropDown, QWidget* parent = nullptr);

    int listCount() const { return count(); }
    int listIndex() const;
    /// Runs `onClick` inside the assignment when the selection changes. Throws `RuntimeFailure` 380 below -1 and from
    /// the count on.
    void setListIndex(int index);

    /// The text of an item. Throws 380 for an index that has none.
    QString list(int index) const;

    QString text() const { return currentText(); }
    /// Selects the item of that text, and runs `onClick` if it was not selected. A text without an item leaves no
    /// selection; a drop-down list refuses it with 380.
    void setText(const QString& text);

    void addItem(const QString& text);
    void addItems(const QStringList& texts);
    void removeItem(int index);
    /// The name for assistive technologies. It is the description too: on a Unix desktop Qt gives them the selected text
    /// in place of the name, and refers to a label beside the box, which not every box has.
    void setAccessibleName(const QString& name)
    {
        QComboBox::setAccessibleName(name);
        setAccessibleDescription(name);
    }

    /// Empties list and text; no handler runs.
    void clear();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void select(int index);
};

} // namespace orb
