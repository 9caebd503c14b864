// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "db_grid.h"

#include <QAbstractTableModel>

namespace orb {

/// The rows of a data control, as a view shows them: it knows how many there are and reads those that are shown. Null
/// is the empty text, numbers are aligned to the right. An edited cell is bold, and its tool tip has the text it had.
class GridModel final : public QAbstractTableModel {
public:
    using QAbstractTableModel::QAbstractTableModel;

    /// The role under which an edited cell is true.
    static constexpr int EditedRole = Qt::UserRole;

    /// The data control, null for none. In force with the next `bindColumns` and `update`.
    void setSource(DataControl* source) { source_ = source; }
    void setColumns(std::vector<GridColumn> columns);
    std::vector<GridColumn>& columns() { return columns_; }
    /// Finds the table's columns, which is done once for each table and not for each row that is added to it.
    void bindColumns();
    /// Takes over the rows that the data control holds now.
    void update();

    /// The text of a cell in the data control, empty for what is not there.
    QString text(std::int64_t row, int column) const;
    /// Why the last `setData` failed.
    const QString& refusal() const { return refusal_; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// Writes a text to the table at once. False where the table refuses it.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

private:
    void setRowCount(int rows);
    QString shownText(const QModelIndex& index) const;
    std::optional<QString> textBeforeEdit(const QModelIndex& index) const;

    DataControl* source_ = nullptr;
    std::vector<GridColumn> columns_;
    std::vector<QString> tableColumns_; ///< for which `fields_` is bound
    std::vector<int> fields_;           ///< the table's column of each of the grid's, -1 for none
    int rows_ = 0;
    QString refusal_;
};

} // namespace orb
