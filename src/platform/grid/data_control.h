// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "control.h"
#include "table_picture.h"
#include "table_recordset.h"
#include "workspace.h"

class QLabel;
class QToolButton;

namespace orb {

/// What is told when a data control changes: a grid that shows it.
class DataObserver {
public:
    virtual ~DataObserver() = default;
    /// There is another picture of the table, or another value in a cell of it.
    virtual void dataChanged() = 0;
    /// The current row is another one.
    virtual void currentRowMoved() = 0;
    /// The data control is about to go.
    virtual void dataGone() = 0;
};

/// A table of a database with a current row, for a grid to show. It is a picture of the table as of the last refresh:
/// rows appended later don't show until the next one. A refresh after some appended rows costs what those rows cost,
/// however many there are before them; rows are read as they are looked at, and few are kept.
///
/// As a widget it shows its caption between four buttons that move the current row.
class DataControl final : public Control<QWidget> {
public:
    /// The current row was moved by the buttons or by a grid.
    std::function<void()> onReposition;

    /// `workspace` must outlive the data control.
    explicit DataControl(Workspace& workspace, QWidget* parent = nullptr);
    ~DataControl() override;

    /// The kind of the database, a text that is kept and not looked at.
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

    /// Takes a new picture of the table; the current row is then its first one. Throws what `Workspace::openDatabase`
    /// and `Database::openRecordset` throw, 3024 without a database name and 3075 without a record source. A refresh
    /// that fails leaves the picture as it was.
    void refresh();

    /// The rows of the picture. One object for the life of the data control. Throws 91 before the first refresh.
    TableRecordset& recordset();
    bool hasRecordset() const { return picture_.isTaken(); }

    /// Rows of the picture, 0 before the first refresh.
    std::int64_t rowCount() const { return picture_.rowCount(); }
    /// The column of that name, without regard to case; -1 where the table has none.
    int columnOf(const QString& field) const;
    /// The value in row `row`, counted from 0; Null where the row is no longer there. Valid until another row is read.
    /// Throws 3021 and 3265 outside of the picture.
    FieldValue valueAt(std::int64_t row, int column);
    /// Writes `text` to the table at once, Null where it is empty. A column of numbers takes it as a number. Throws
    /// what `Database::execute` throws, 3021 where the row is no longer there, or its value is another one by now.
    void setValueAt(std::int64_t row, int column, const QString& text);
    /// Makes `row` the current one on behalf of the operator, and tells it by `onReposition`.
    void reposition(std::int64_t row);

    /// The columns of the table, none before the first refresh.
    std::vector<QString> columns() const { return hasRecordset() ? picture_.columns() : std::vector<QString>(); }

    /// Rows that were read, scanned or counted in the file since the start: what the work has cost.
    std::int64_t rowsRead() const { return picture_.rowsRead(); }

    /// An observer must take itself out before it goes.
    void addObserver(DataObserver& observer);
    void removeObserver(DataObserver& observer);

private:
    QToolButton* makeButton(const QString& name, Qt::ArrowType arrow, std::function<std::int64_t()> target);
    std::int64_t place() const;
    void demandCell(std::int64_t row, int column) const;
    void tellMoved();
    void tellChanged();

    Workspace& workspace_;
    QString connectText_;
    QString databaseName_;
    QString recordSource_;
    QLabel* label_;
    TablePicture picture_;
    TableRecordset recordset_;
    std::vector<DataObserver*> observers_;
};

} // namespace orb
