// SPDX-License-Identifier: GPL-3.0-or-later
#include "list_box.h"

#include <QKeyEvent>

namespace orb {

ListBox::ListBox(QWidget* parent) : Control<QListWidget>(parent)
{
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setUniformItemSizes(true);
}

void ListBox::demand(bool valid) const
{
    if (!valid)
        throw RuntimeFailure(failure::InvalidPropertyValue);
}

int ListBox::listIndex() const
{
    const auto rows = selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.constFirst().row();
}

void ListBox::select(int index)
{
    if (index < 0) {
        selectionModel()->clear();
        return;
    }
    setCurrentRow(index, QItemSelectionModel::ClearAndSelect);
}

void ListBox::setListIndex(int index)
{
    demand(index >= -1 && index < count());
    if (index == listIndex())
        return;
    select(index);
    if (onClick)
        onClick();
}

QString ListBox::list(int index) const
{
    demand(index >= 0 && index < count());
    return item(index)->text();
}

QString ListBox::selectedText() const
{
    const int index = listIndex();
    return index < 0 ? QString() : item(index)->text();
}

void ListBox::insertItem(const QString& text, int index)
{
    demand(index >= 0 && index <= count());
    QListWidget::insertItem(index, text);
}

void ListBox::removeItem(int index)
{
    demand(index >= 0 && index < count());
    const int selected = listIndex();
    delete takeItem(index);
    select(selected == index ? -1 : selected > index ? selected - 1 : selected);
}

void ListBox::clear()
{
    QListWidget::clear();
}

QStringList ListBox::items() const
{
    QStringList texts;
    for (int i = 0; i < count(); ++i)
        texts << item(i)->text();
    return texts;
}

void ListBox::setBackColor(const QColor& color)
{
    QPalette colors = palette();
    colors.setColor(QPalette::Base, color);
    setPalette(colors);
}

void ListBox::mouseReleaseEvent(QMouseEvent* event)
{
    QListWidget::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton && itemAt(event->pos()))
        enter(onClick);
}

void ListBox::mouseDoubleClickEvent(QMouseEvent* event)
{
    QListWidget::mouseDoubleClickEvent(event);
    enter(onDblClick);
}

void ListBox::keyPressEvent(QKeyEvent* event)
{
    const int before = listIndex();
    QListWidget::keyPressEvent(event);
    if (listIndex() != before)
        enter(onClick);
}

} // namespace orb
