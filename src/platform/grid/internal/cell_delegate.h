// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLineEdit>
#include <QStyledItemDelegate>

namespace orb {

/// The editor of one cell of a grid.
class CellEditor final : public QLineEdit {
public:
    explicit CellEditor(QWidget* parent);

    /// Shows beneath the editor why its text was refused.
    void showReason(const QString& reason);

    QString before;         ///< the text of the cell when the editor opened
    bool isOpened = false;  ///< it has its first text
    bool isRefused = false; ///< the table has refused its text
};

/// Edits the cells of a `GridModel`. Enter and the arrows up and down write the text, and where the table refuses it the
/// editor stays open; going elsewhere writes it or gives it up; Escape gives it up.
class CellDelegate final : public QStyledItemDelegate {
public:
    /// `view` is the view that it edits the cells of.
    explicit CellDelegate(QWidget* view);

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    /// Marks an edited cell in its corner.
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void leaveByKey(CellEditor& editor, QEvent& event, bool isArrow);

    QWidget* view_;
};

} // namespace orb
