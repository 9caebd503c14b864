// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "control.h"

#include <QListWidget>

namespace orb {

/// A list of texts, of which at most one is selected. Indexes count from 0; -1 is no selection.
class ListBox : public Control<QListWidget> {
public:
    /// Another line was selected, by the operator or by an assignment; or the operator clicked the selected one. A
    /// mouse button selects when it is pressed, and `onClick` runs then: no line is selected without it.
    std::function<void()> onClick;
    /// The operator double-clicked with the left button.
    std::function<void()> onDblClick;

    explicit ListBox(QWidget* parent = nullptr);

    int listCount() const { return count(); }
    int listIndex() const;
    /// Runs `onClick` inside the assignment when the selection changes. Throws `RuntimeFailure` 380 below -1 and from
    /// the count on.
    void setListIndex(int index);

    /// The text of a line. Throws `RuntimeFailure` 380 for an index that has none.
    QString list(int index) const;
    /// The text of the selected line, empty without one.
    QString selectedText() const;

    void addItem(const QString& text) { QListWidget::addItem(text); }
    void addItems(const QStringList& texts) { QListWidget::addItems(texts); }
    /// Throws 380 for an index below 0 or above the count. The selection stays on its line.
    void insertItem(const QString& text, int index);
    /// Throws 380 for an index that has no line. Removing the selected line leaves no selection.
    void removeItem(int index);
    /// Empties the list; no handler runs.
    void clear() { QListWidget::clear(); }

    /// All lines, in their order.
    QStringList items() const;

    /// The text becomes black or white with it, so that it can be read on a light and on a dark desktop.
    void setBackColor(const QColor& color);
    QColor backColor() const { return palette().color(QPalette::Base); }

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    void select(int index);
    void handleEvent(const std::function<void()>& qtHandler);

    bool clicked_ = false; ///< `onClick` has run for the press that is going on
};

} // namespace orb
