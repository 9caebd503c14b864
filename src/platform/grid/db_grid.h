// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data_control.h"

#include <QAbstractScrollArea>

class QHeaderView;
class QPainter;
class QStandardItemModel;

namespace orb {

class CellEditor;

/// One column of a grid as it is designed.
struct GridColumn {
    QString field;   ///< the table's column, without regard to case
    QString caption; ///< empty: the name of the field
    int widthTwips = 1200;
    bool editable = false;
};

/// Shows the rows of a data control, of which it reads only those in view, and follows its current row. Null shows as
/// an empty cell, numbers stand to the right. Arrows, Page, Home and End keys (with Ctrl: the whole table) and the
/// mouse move the current cell, Ctrl+C copies the current row, fields parted by tabs.
///
/// F2, Enter, a double click or a typed character begin to edit an editable cell. Enter writes to the table at once, and
/// so does going elsewhere; Escape gives up. Where the table refuses what was typed it keeps the old value, and the
/// editor stays open with the reason beneath it.
class DBGrid final : public Control<QAbstractScrollArea>, private DataObserver {
public:
    /// The table refused what was typed. Without it the reason is only shown.
    std::function<void(const RuntimeFailure&)> onEditRefused;
    /// What was typed stands in the table.
    std::function<void()> onEdited;

    explicit DBGrid(QWidget* parent = nullptr);
    ~DBGrid() override;

    /// The data control whose rows are shown. Either may go before the other.
    void setDataSource(DataControl& source);

    /// The columns by design. Without them the grid shows every column of the table.
    void setColumns(std::vector<GridColumn> columns);
    int columnCount() const { return static_cast<int>(columns_.size()); }
    /// `column` counts from 0; these throw 9 outside of 0 ... `columnCount` - 1.
    const GridColumn& column(int column) const;
    void setCaption(int column, const QString& caption);
    void setWidthTwips(int column, int width);
    void setEditable(int column, bool editable);

    /// Shows what the data control holds now, the current row in view.
    void refresh();

    /// The text that a cell shows. `row` counts from 0. Empty for what is not there.
    QString cellText(std::int64_t row, int column) const;
    /// The row at the top of the view.
    std::int64_t firstVisibleRow();
    /// The whole rows that the view has room for, at least one.
    int visibleRows() const;
    /// The place of a cell in the viewport.
    QRect cellRect(std::int64_t row, int column) const;
    /// The column of the current cell, in the data control's current row.
    int currentColumn() const { return currentColumn_; }

    bool isEditing() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void dataChanged() override;
    void currentRowMoved() override;
    void dataGone() override;

    std::size_t demandColumn(int column) const;
    void showColumns();
    void bindColumns();
    void syncLater();
    void sync();
    void createLayout();
    void updateScrollBars();
    void bringIntoView(std::int64_t row);
    void bringColumnIntoView();

    std::int64_t rowCount() const { return data_ ? data_->rowCount() : 0; }
    std::int64_t currentRow() const;
    std::int64_t rowAt(int y) const;
    int rowHeight() const;
    int headerHeight() const;

    void paintRows(QPainter& painter) const;
    void paintCell(QPainter& painter, std::int64_t row, int column) const;

    bool moveByKey(int key, bool whole);
    void moveTo(std::int64_t row, int column);
    void copyCurrentRow() const;
    void beginEdit(const QString& typed);
    bool commitEdit();
    void leaveEditor(int key);

    QStandardItemModel* captions_;
    QHeaderView* header_;
    CellEditor* editor_;
    DataControl* data_ = nullptr;
    std::vector<GridColumn> columns_;
    std::vector<int> fields_; ///< the table's column behind each of the grid's, -1 for none
    bool designed_ = false;
    bool syncPending_ = false;
    int currentColumn_ = 0;
};

} // namespace orb
