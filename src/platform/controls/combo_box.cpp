// SPDX-License-Identifier: GPL-3.0-or-later
#include "combo_box.h"

#include "dark_outline.h"

#include <QLineEdit>
#include <QPainter>

namespace orb {

ComboBox::ComboBox(Kind kind, QWidget* parent) : Control<QComboBox>(parent)
{
    setEditable(kind == Kind::DropDown);
    setInsertPolicy(QComboBox::NoInsert);
    if (isEditable())
        setCompleter(nullptr); // what is typed stays as it is typed
    QObject::connect(this, &QComboBox::activated, this, [this] { enter(onClick); });
    QObject::connect(this, &QComboBox::editTextChanged, this, [this] { enter(onChange); });
}

int ComboBox::listIndex() const
{
    if (!isEditable() || (currentIndex() >= 0 && itemText(currentIndex()) == currentText()))
        return currentIndex();
    return findText(currentText(), Qt::MatchExactly | Qt::MatchCaseSensitive);
}

void ComboBox::select(int index)
{
    const QSignalBlocker quiet(this);
    setCurrentIndex(index);
    if (isEditable())
        setEditText(index < 0 ? QString() : itemText(index));
}

void ComboBox::setListIndex(int index)
{
    if (index < -1 || index >= count())
        throw RuntimeFailure(failure::InvalidPropertyValue);
    if (index == listIndex())
        return;
    select(index);
    if (onClick)
        onClick();
}

QString ComboBox::list(int index) const
{
    if (index < 0 || index >= count())
        throw RuntimeFailure(failure::InvalidPropertyValue);
    return itemText(index);
}

void ComboBox::setText(const QString& text)
{
    const int index = findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (index >= 0)
        return setListIndex(index);
    if (!isEditable())
        throw RuntimeFailure(failure::InvalidPropertyValue);
    const QSignalBlocker quiet(this);
    setCurrentIndex(-1);
    setEditText(text);
}

void ComboBox::addItem(const QString& text)
{
    addItems({text});
}

/// A first item does not select itself.
void ComboBox::addItems(const QStringList& texts)
{
    const QSignalBlocker quiet(this);
    const int index = listIndex();
    const QString typed = currentText();
    QComboBox::addItems(texts);
    if (index < 0) {
        setCurrentIndex(-1);
        if (isEditable())
            setEditText(typed);
    }
}

void ComboBox::removeItem(int index)
{
    if (index < 0 || index >= count())
        throw RuntimeFailure(failure::InvalidPropertyValue);
    const int selected = listIndex();
    const QSignalBlocker quiet(this);
    QComboBox::removeItem(index);
    if (selected == index)
        select(-1);
}

void ComboBox::clear()
{
    const QSignalBlocker quiet(this);
    QComboBox::clear();
    if (isEditable())
        clearEditText();
}

void ComboBox::paintEvent(QPaintEvent* event)
{
    QComboBox::paintEvent(event);
    const bool hasFocusInside = hasFocus() || (isEditable() && lineEdit()->hasFocus());
    if (!needsOutline(*this) || hasFocusInside)
        return;
    QPainter painter(this);
    drawDarkOutline(painter, rect(), *this);
}

} // namespace orb
