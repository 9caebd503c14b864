// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "recordset.h"

#include <functional>
#include <memory>
#include <vector>

namespace orb {

class Database;
class TableSnapshot;

/// The rows of a table as of the last refresh, with a current row that can be moved freely: a move costs the same
/// wherever it goes. A refresh after some appended rows reads only those; rows are read as they are used, and few are
/// kept in memory.
class TableRecordset final : public Recordset {
public:
    /// `moved` is called after every move.
    explicit TableRecordset(std::function<void()> moved);
    ~TableRecordset() override;

    /// Takes a new snapshot of the table; the current row is then its first one. Throws what `Database::openRecordset`
    /// throws. A refresh that fails leaves the snapshot as it was.
    void refresh(const Database& database, const QString& table);
    /// False before the first refresh, and once the database is closed.
    bool isOpen() const;
    /// The columns of the table, none before the first refresh.
    const std::vector<QString>& columns() const;

    bool isEof() const override;
    /// To the first or last row. Does nothing where there are no rows.
    void moveFirst();
    void moveLast();
    void moveNext() override;
    std::int64_t recordCount() const;

    /// The current row, counted from 0; -1 where there is none.
    std::int64_t position() const;
    /// Throws 3021 outside of 0 ... `recordCount` - 1.
    void setPosition(std::int64_t position);

    /// To the first row that meets `criterion`, a condition such as "SeqNo=70" in the dialect of the statements. Where
    /// no row does, the current row stays.
    void findFirst(const QString& criterion);

    int fieldCount() const override;
    QString fieldName(int column) const override;
    FieldValue value(int column) const override;

    /// The value in row `row`, counted from 0; Null where the row has been deleted since the refresh. Valid until another
    /// row is read. Throws 3021 and 3265 outside of the snapshot.
    FieldValue valueAt(std::int64_t row, int column) const;
    /// Writes `text` to the table at once, Null where it is empty. A column of numbers takes it as a number. Throws what
    /// `Database::execute` throws, and 3021 where the row was deleted or has another value by now.
    void setValueAt(std::int64_t row, int column, const QString& text);

    /// The id of row `row`, which no other row of the table has while it is there. Throws 3021 outside of the snapshot.
    std::int64_t rowId(std::int64_t row) const;

    /// Rows that were read, scanned or counted in the file since the start: what the work has cost.
    std::int64_t rowsRead() const;

private:
    void requireOpen() const;
    void requireCell(std::int64_t row, int column) const;
    void moveTo(std::int64_t position);

    std::unique_ptr<TableSnapshot> snapshot_;
    std::function<void()> moved_;
    std::int64_t position_ = 0;
};

} // namespace orb
