// SPDX-License-Identifier: GPL-3.0-or-later
#include "cell_delegate.h"

#include "grid_model.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>

namespace orb {

CellEditor::CellEditor(QWidget* parent) : QLineEdit(parent)
{
    setFrame(false);
    setAccessibleName(QStringLiteral("Cell"));
}

void CellEditor::showReason(const QString& reason)
{
    QPalette refused = palette();
    refused.setColor(QPalette::Base, QColor(255, 221, 221));
    refused.setColor(QPalette::Text, Qt::black);
    setPalette(refused);
    setToolTip(reason);
    selectAll();
    // Later, since a change of the focus that is under way would hide it again.
    const QPoint beneath = mapToGlobal(rect().bottomLeft());
    QWidget* viewport = parentWidget();
    QMetaObject::invokeMethod(
        viewport, [=] { QToolTip::showText(beneath, reason, viewport); }, Qt::QueuedConnection);
}

CellDelegate::CellDelegate(QWidget* view) : QStyledItemDelegate(view), view_(view) {}

QWidget* CellDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex&) const
{
    return new CellEditor(parent);
}

void CellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    if (!index.data(GridModel::EditedRole).toBool())
        return;
    constexpr int side = 7;
    const QPoint corner = option.rect.topLeft();
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    painter->setPen(Qt::NoPen);
    painter->setBrush(option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Highlight));
    painter->drawPolygon(QPolygon({corner, corner + QPoint(side, 0), corner + QPoint(0, side)}));
}

/// Called again whenever the model changes: what was typed stays.
void CellDelegate::setEditorData(QWidget* widget, const QModelIndex& index) const
{
    auto& editor = *static_cast<CellEditor*>(widget);
    if (editor.isOpened)
        return;
    editor.isOpened = true;
    editor.before = index.data(Qt::EditRole).toString();
    editor.setText(editor.before);
}

/// An unchanged text is not written.
void CellDelegate::setModelData(QWidget* widget, QAbstractItemModel* model, const QModelIndex& index) const
{
    auto& editor = *static_cast<CellEditor*>(widget);
    editor.isRefused = editor.text() != editor.before && !model->setData(index, editor.text());
    if (editor.isRefused)
        editor.showReason(static_cast<const GridModel*>(model)->refusal());
}

bool CellDelegate::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QStyledItemDelegate::eventFilter(object, event);
    auto& editor = *static_cast<CellEditor*>(object);
    switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        leaveByKey(editor, *event, false);
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
        leaveByKey(editor, *event, true);
        return true;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return false; // they move the focus, as everywhere on the page
    default:
        return QStyledItemDelegate::eventFilter(object, event);
    }
}

void CellDelegate::leaveByKey(CellEditor& editor, QEvent& event, bool isArrow)
{
    Q_EMIT commitData(&editor);
    if (editor.isRefused)
        return;
    Q_EMIT closeEditor(&editor);
    if (isArrow)
        QCoreApplication::sendEvent(view_, &event);
}

} // namespace orb
