// SPDX-License-Identifier: GPL-3.0-or-later
#include "list_box.h"

#include "dark_desktop.h"
#include "focus_ring.h"

#include <QKeyEvent>

#include <algorithm>

namespace orb {

namespace {

void requireValid(bool valid)
{
    if (!valid)
        throw RuntimeFailure(failure::InvalidPropertyValue);
}

} // namespace

ListBox::ListBox(QWidget* parent) : Control<QListWidget>(parent)
{
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setUniformItemSizes(true);
}

int ListBox::listIndex() const
{
    const auto rows = selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.constFirst().row();
}

void ListBox::select(int index)
{
    if (index < 0)
        selectionModel()->clear();
    else
        setCurrentRow(index, QItemSelectionModel::ClearAndSelect);
}

void ListBox::setListIndex(int index)
{
    requireValid(index >= -1 && index < count());
    if (index == listIndex())
        return;
    select(index);
    if (onClick)
        onClick();
}

QString ListBox::list(int index) const
{
    requireValid(index >= 0 && index < count());
    return item(index)->text();
}

QString ListBox::selectedText() const
{
    const int index = listIndex();
    return index < 0 ? QString() : item(index)->text();
}

void ListBox::insertItem(const QString& text, int index)
{
    requireValid(index >= 0 && index <= count());
    QListWidget::insertItem(index, text);
}

void ListBox::removeItem(int index)
{
    requireValid(index >= 0 && index < count());
    const int selected = listIndex();
    delete takeItem(index);
    select(selected == index ? -1 : selected > index ? selected - 1 : selected);
}

void ListBox::setBackColor(const QColor& color)
{
    setColor(QPalette::Base, color);
    setColor(QPalette::Text, textColorOn(color));
}

QStringList ListBox::items() const
{
    QStringList texts;
    for (int i = 0; i < count(); ++i)
        texts << item(i)->text();
    return texts;
}

/// Lets Qt handle an event, and runs `onClick` if that selected another line.
void ListBox::handleEvent(const std::function<void()>& qtHandler)
{
    const int before = listIndex();
    qtHandler();
    if (listIndex() == before)
        return;
    clicked_ = true;
    enter(onClick);
}

/// A press below the last line leaves the selection, which Qt would end.
void ListBox::mousePressEvent(QMouseEvent* event)
{
    clicked_ = false;
    if (itemAt(event->pos()))
        handleEvent([&] { QListWidget::mousePressEvent(event); });
}

void ListBox::mouseMoveEvent(QMouseEvent* event)
{
    handleEvent([&] { QListWidget::mouseMoveEvent(event); });
}

void ListBox::mouseReleaseEvent(QMouseEvent* event)
{
    handleEvent([&] { QListWidget::mouseReleaseEvent(event); });
    if (!clicked_ && event->button() == Qt::LeftButton && itemAt(event->pos()))
        enter(onClick);
}

void ListBox::mouseDoubleClickEvent(QMouseEvent* event)
{
    QListWidget::mouseDoubleClickEvent(event);
    clicked_ = true; // its release is no further click
    if (event->button() == Qt::LeftButton)
        enter(onDblClick);
}

/// Without a selection an arrow key selects the line at which the focus stands, which Qt would leave for the next one.
void ListBox::keyPressEvent(QKeyEvent* event)
{
    const bool isArrow = event->key() == Qt::Key_Down || event->key() == Qt::Key_Up;
    handleEvent([&] {
        if (isArrow && listIndex() < 0 && count() > 0)
            select(std::max(currentRow(), 0));
        else
            QListWidget::keyPressEvent(event);
    });
}

void ListBox::paintEvent(QPaintEvent* event)
{
    QListWidget::paintEvent(event);
    drawFocusRing(*this);
}

void ListBox::scrollContentsBy(int dx, int dy)
{
    QListWidget::scrollContentsBy(dx, dy);
    viewport()->update();
}

} // namespace orb
