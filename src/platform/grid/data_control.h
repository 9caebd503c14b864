// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "control.h"
#include "table_recordset.h"
#include "workspace.h"

#include <map>
#include <optional>

class QLabel;
class QToolButton;

namespace orb {

/// Is notified of the changes of a data control: a grid that shows it.
class DataObserver {
public:
    virtual ~DataObserver() = default;
    /// There is another snapshot of the table, or another value in a cell of it.
    virtual void sourceChanged() = 0;
    /// The current row is another one.
    virtual void sourceMoved() = 0;
    virtual void sourceDestroyed() = 0;
};

/// A table of a database with a current row, for a grid to show. It is a snapshot of the table as of the last refresh:
/// rows that are appended later show after the next one. See `TableRecordset` for what it costs.
///
/// As a widget it shows its caption between four buttons that move the current row.
class DataControl final : public Control<QWidget> {
public:
    /// `workspace` must outlive the data control.
    explicit DataControl(Workspace& workspace, QWidget* parent = nullptr);
    ~DataControl() override;

    /// The kind of the database, a text that is kept and not used.
    const QString& connectText() const { return connectText_; }
    void setConnectText(const QString& text) { connectText_ = text; }
    QString caption() const;
    void setCaption(const QString& caption);

    /// The path of the database file. In force with the next refresh.
    const QString& databaseName() const { return databaseName_; }
    void setDatabaseName(const QString& path) { databaseName_ = path; }
    /// The name of a table. In force with the next refresh.
    const QString& recordSource() const { return recordSource_; }
    void setRecordSource(const QString& table) { recordSource_ = table; }

    /// Takes a new snapshot of the table; the current row is then its first one. Throws what `Workspace::openDatabase`
    /// and `Database::openRecordset` throw, 3024 without a database name and 3075 without a record source. A refresh
    /// that fails leaves the snapshot as it was.
    void refresh();

    /// The rows of the snapshot. One object for the life of the data control. Throws 91 before the first refresh.
    TableRecordset& recordset();
    bool hasRecordset() const { return !columns().empty(); }

    /// Rows of the snapshot, 0 before the first refresh and once the database is closed.
    std::int64_t rowCount() const;
    /// The columns of the table, none before the first refresh.
    const std::vector<QString>& columns() const { return recordset_.columns(); }
    /// The column of that name, without regard to case; -1 where the table has none.
    int columnOf(const QString& field) const;
    /// As those of `TableRecordset`; the observers are notified.
    FieldValue valueAt(std::int64_t row, int column) const { return recordset_.valueAt(row, column); }
    void setValueAt(std::int64_t row, int column, const QString& text);
    /// The text that a cell had before `setValueAt` gave it another one, none where it has that text. A refresh keeps the
    /// edits, unless the table is empty or another one.
    std::optional<QString> textBeforeEdit(std::int64_t row, int column) const;
    std::int64_t rowsRead() const { return recordset_.rowsRead(); }

    /// An observer must remove itself before it is destroyed.
    void addObserver(DataObserver& observer);
    void removeObserver(DataObserver& observer);

private:
    QToolButton* makeButton(const QString& name, Qt::ArrowType arrow, std::function<std::int64_t()> target);
    std::int64_t place() const;
    void notify(void (DataObserver::*notification)());

    Workspace& workspace_;
    QString connectText_;
    QString databaseName_;
    QString recordSource_;
    QLabel* label_;
    TableRecordset recordset_;
    std::vector<DataObserver*> observers_;
    QString editedTable_;                                   ///< the database and the table that `edits_` are of
    std::map<std::pair<std::int64_t, int>, QString> edits_; ///< the first text of edited cells, by row id and column
};

} // namespace orb
