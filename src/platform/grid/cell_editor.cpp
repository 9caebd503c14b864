// SPDX-License-Identifier: GPL-3.0-or-later
#include "cell_editor.h"

#include <QKeyEvent>
#include <QToolTip>

namespace orb {

CellEditor::CellEditor(QWidget* parent) : QLineEdit(parent)
{
    setFrame(false);
    setAccessibleName(QStringLiteral("Cell"));
    hide();
}

void CellEditor::open(std::int64_t row, int column, const QString& text, const QString& typed)
{
    row_ = row;
    column_ = column;
    before_ = text;
    setPalette(QPalette());
    setToolTip(QString());
    setText(typed.isEmpty() ? text : typed);
    if (typed.isEmpty())
        selectAll();
    show();
    setFocus();
}

void CellEditor::close()
{
    row_ = -1; // first: hiding takes the focus away, which is no commit
    hide();
}

void CellEditor::showReason(const QString& reason)
{
    QPalette refused = palette();
    refused.setColor(QPalette::Base, QColor(255, 221, 221));
    refused.setColor(QPalette::Text, Qt::black);
    setPalette(refused);
    setToolTip(reason);
    QToolTip::showText(mapToGlobal(rect().bottomLeft()), reason, this);
    selectAll();
}

void CellEditor::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Escape:
        onCancel();
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Up:
    case Qt::Key_Down:
        onCommit(event->key());
        break;
    default:
        QLineEdit::keyPressEvent(event);
    }
}

void CellEditor::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    if (isOpen() && event->reason() != Qt::PopupFocusReason) // its own menu
        onCommit(0);
}

} // namespace orb
