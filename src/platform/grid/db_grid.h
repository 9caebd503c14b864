// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data_control.h"

#include <QTableView>

#include <set>

namespace orb {

class GridModel;

/// One column of a grid.
struct GridColumn {
    QString field;   ///< the table's column, without regard to case
    QString caption; ///< empty: the name of the field
    int widthTwips = 1200;
    bool editable = false;
    bool isNumber = false; ///< an edit takes nothing but a number
    /// At least as wide as its caption and the values in view need in the operator's font. It grows with them and does
    /// not shrink; a width that the operator sets stays.
    bool fitsValues = false;
};

/// Shows the rows of a data control and follows its current row, which is the selected one; a row that the operator goes
/// to becomes the current row. Ctrl+C copies it, with tabs between the fields.
///
/// F2, Enter, a double click or a typed character edit an editable cell. Enter writes to the table at once, and so does
/// going elsewhere; Escape gives up. Where the column or the table refuses the text it keeps the old value, and the
/// editor stays open and shows the reason. An edited cell is bold and has a mark in its corner, see
/// `DataControl::textBeforeEdit`.
class DBGrid final : public Control<QTableView>, private DataObserver {
public:
    explicit DBGrid(QWidget* parent = nullptr);
    ~DBGrid() override;

    /// The data control whose rows are shown. Either may be destroyed before the other.
    void setDataSource(DataControl& source);

    void setColumns(const std::vector<GridColumn>& columns);
    int columnCount() const;
    /// `column` counts from 0; these throw 9 outside of 0 ... `columnCount` - 1.
    const GridColumn& column(int column) const;
    void setCaption(int column, const QString& caption);
    void setWidthTwips(int column, int width);

    /// Lets the grid ask its layout for the width of all its columns.
    void setWideAsColumns(bool isWide) { isWideAsColumns_ = isWide; }
    QSize minimumSizeHint() const override;

    /// Shows what the data control holds now. As all changes of it do, this shows at the next turn of the event queue.
    void refresh() { syncLater(); }

    /// The text of a cell as of the data control's last refresh. `row` counts from 0. Empty for what is not there.
    QString cellText(std::int64_t row, int column) const;
    bool isEditing() const;

    void keyboardSearch(const QString&) override {}

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

private:
    void sourceChanged() override;
    void sourceMoved() override { syncLater(); }
    void sourceDestroyed() override;

    GridColumn& columnOrFail(int column) const;
    void setRowHeight();
    void fitColumns();
    void fitColumn(int column);
    void syncLater();
    void sync();
    void closeOutdatedEditor();
    void showCurrentRow();
    std::int64_t currentRow() const;
    void copyCurrentRow() const;

    GridModel* model_;
    DataControl* data_ = nullptr;
    bool syncPending_ = false;
    bool syncing_ = false;
    bool isWideAsColumns_ = false;
    bool fitting_ = false;      ///< a change of a width is not the operator's
    std::set<int> keptColumns_; ///< the operator has set their widths
};

} // namespace orb
