// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractItemView>
#include <QStyledItemDelegate>

namespace orb {

/// Draws lines that are longer than their list is wide on as many lines as they take.
class WrappingDelegate final : public QStyledItemDelegate {
public:
    /// `list` owns the delegate.
    explicit WrappingDelegate(QAbstractItemView& list) : QStyledItemDelegate(&list), list_(list) {}

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        QStyleOptionViewItem fitted = option;
        fitted.rect = list_.viewport()->rect();                            // without a width nothing is wrapped
        return {1, QStyledItemDelegate::sizeHint(fitted, index).height()}; // the list gives each line its whole width
    }

private:
    const QAbstractItemView& list_;
};

} // namespace orb
