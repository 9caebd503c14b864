// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data_control.h"

#include <QAbstractScrollArea>

class QHeaderView;
class QLineEdit;
class QStandardItemModel;

namespace orb {

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
/// F2, Enter, a double click or a typed character begin to edit an editable cell; Enter writes it to the table, Escape
/// gives it up. What the table refuses leaves the old value in the table and the editor open, with the reason shown
/// beneath; `onEditRefused` tells it as well.
class DBGrid final : public Control<QAbstractScrollArea>, private DataObserver {
public:
    /// The table refused what was typed.
    std::function<void(const RuntimeFailure&)> onEditRefused;
    /// What was typed stands in the table.
    std::function<void()> onEdited;

    explicit DBGrid(QWidget* parent = nullptr);
    ~DBGrid() override;

    /// The data control whose rows are shown. Either may go before the other.
    void setDataSource(DataControl& data);

    /// The columns by design. Without them the grid shows every column of the table.
    void setColumns(std::vector<GridColumn> columns);
    int columnCount() const { return static_cast<int>(columns_.size()); }
    /// `column` counts from 0; throws 9 outside of 0 ... `columnCount` - 1.
    const GridColumn& column(int column) const;
    void setCaption(int column, const QString& caption);
    void setWidthTwips(int column, int width);
    void setEditable(int column, bool editable);

    /// Shows what the data control holds now.
    void refresh();

    /// The text that the cell shows. `row` counts from 0. Empty for what is not there.
    QString cellText(std::int64_t row, int column) const;
    /// The row at the top of the view.
    std::int64_t firstVisibleRow();
    /// The whole rows that the view has room for.
    int visibleRows() const;
    int currentColumn() const { return currentColumn_; }
    void setCurrentColumn(int column);

private:
    QStandardItemModel* captions_;
    QHeaderView* header_;
    QLineEdit* editor_;
    DataControl* data_ = nullptr;
    std::vector<GridColumn> columns_;
    int currentColumn_ = 0;
};

} // namespace orb
