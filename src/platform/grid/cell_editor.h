// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLineEdit>

#include <functional>

namespace orb {

/// The editor of one cell of a grid. It tells how the operator leaves it, and does no more than that.
class CellEditor final : public QLineEdit {
public:
    /// Enter, an arrow up or down, or the focus went elsewhere. `key` is 0 for the last.
    std::function<void(int key)> onCommit;
    std::function<void()> onCancel;

    explicit CellEditor(QWidget* parent);

    /// Opens on a cell. `typed` takes the place of `text` where it is not empty.
    void open(std::int64_t row, int column, const QString& text, const QString& typed);
    void close();
    bool isOpen() const { return row_ >= 0; }
    std::int64_t row() const { return row_; }
    int column() const { return column_; }
    /// The text that the cell had when the editor opened.
    const QString& before() const { return before_; }

    /// Shows beneath the editor why its text was refused.
    void showReason(const QString& reason);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    std::int64_t row_ = -1;
    int column_ = 0;
    QString before_;
};

} // namespace orb
