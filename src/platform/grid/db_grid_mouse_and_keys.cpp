// SPDX-License-Identifier: GPL-3.0-or-later
// The grid under the operator's hand: keys, mouse, and the editing of a cell.
#include "db_grid.h"

#include "cell_editor.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QToolTip>

#include <algorithm>

namespace orb {

void DBGrid::moveTo(std::int64_t row, int column)
{
    if (rowCount() == 0 || columnCount() == 0)
        return;
    currentColumn_ = std::clamp(column, 0, columnCount() - 1);
    data_->reposition(std::clamp<std::int64_t>(row, 0, rowCount() - 1));
    sync();
    bringColumnIntoView();
}

/// False for a key that moves nothing. `whole` is Ctrl: the ends of the table and not those of the row.
bool DBGrid::moveByKey(int key, bool whole)
{
    const std::int64_t row = currentRow() >= 0 ? currentRow() : firstVisibleRow();
    const int lastColumn = columnCount() - 1;
    switch (key) {
    case Qt::Key_Up:
        moveTo(row - 1, currentColumn_);
        return true;
    case Qt::Key_Down:
        moveTo(row + 1, currentColumn_);
        return true;
    case Qt::Key_PageUp:
        moveTo(row - visibleRows(), currentColumn_);
        return true;
    case Qt::Key_PageDown:
        moveTo(row + visibleRows(), currentColumn_);
        return true;
    case Qt::Key_Left:
        moveTo(row, currentColumn_ - 1);
        return true;
    case Qt::Key_Right:
        moveTo(row, currentColumn_ + 1);
        return true;
    case Qt::Key_Home:
        moveTo(whole ? 0 : row, 0);
        return true;
    case Qt::Key_End:
        moveTo(whole ? rowCount() - 1 : row, lastColumn);
        return true;
    default:
        return false;
    }
}

void DBGrid::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy)) {
        enter([this] { copyCurrentRow(); });
        return;
    }
    bool done = true;
    enter([&] {
        const bool isText = !event->text().isEmpty() && event->text().front().isPrint() &&
                            !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
        if (event->key() == Qt::Key_F2 || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
            beginEdit({});
        else if (isText)
            beginEdit(event->text());
        else
            done = moveByKey(event->key(), event->modifiers() & Qt::ControlModifier);
    });
    if (!done)
        Control<QAbstractScrollArea>::keyPressEvent(event);
}

void DBGrid::mousePressEvent(QMouseEvent* event)
{
    const std::int64_t row = rowAt(event->pos().y());
    const int column = header_->logicalIndexAt(event->pos());
    if (event->button() == Qt::LeftButton && row < rowCount() && column >= 0)
        enter([this, row, column] { moveTo(row, column); });
}

void DBGrid::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && rowAt(event->pos().y()) == currentRow())
        enter([this] { beginEdit({}); });
}

void DBGrid::copyCurrentRow() const
{
    if (currentRow() < 0)
        return;
    QStringList cells;
    for (int column = 0; column < columnCount(); ++column)
        cells << cellText(currentRow(), column);
    QGuiApplication::clipboard()->setText(cells.join(QLatin1Char('\t')));
}

bool DBGrid::isEditing() const
{
    return editor_->isOpen();
}

/// Opens the editor on the current cell, with `typed` in the place of its text unless that is empty.
void DBGrid::beginEdit(const QString& typed)
{
    const std::int64_t row = currentRow();
    if (row < 0 || columnCount() == 0 || fields_[static_cast<std::size_t>(currentColumn_)] < 0 ||
        !column(currentColumn_).editable)
        return;
    sync();
    bringColumnIntoView();
    editor_->setGeometry(cellRect(row, currentColumn_));
    editor_->open(row, currentColumn_, cellText(row, currentColumn_), typed);
}

/// False where the table refused the text. An unchanged text is not written.
bool DBGrid::commitEdit()
{
    if (!editor_->isOpen() || !data_)
        return true;
    const std::int64_t row = editor_->row();
    const int field = fields_[static_cast<std::size_t>(editor_->column())];
    const bool isChanged = editor_->text() != editor_->before();
    try {
        if (isChanged)
            data_->setValueAt(row, field, editor_->text());
    } catch (const RuntimeFailure& failure) {
        editor_->showReason(failure.description());
        if (onEditRefused)
            onEditRefused(failure);
        return false;
    }
    editor_->close();
    syncLater();
    if (isChanged && onEdited)
        onEdited();
    return true;
}

/// `key` is what the operator left the editor by, 0 where the focus went elsewhere: a refused text is then given up.
void DBGrid::leaveEditor(int key)
{
    const bool isDone = commitEdit();
    if (key == 0 && !isDone) {
        const QPoint beneath = editor_->mapToGlobal(editor_->rect().bottomLeft());
        editor_->close();
        QToolTip::showText(beneath, editor_->toolTip(), viewport());
    }
    if (key == 0 || !isDone)
        return;
    setFocus();
    if (key == Qt::Key_Up || key == Qt::Key_Down)
        moveByKey(key, false);
}

} // namespace orb
