// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connection.h"
#include "row_cache.h"
#include "row_index.h"

namespace orb {

/// What a data control knows of its table since the last refresh: how many rows it has and where they are found. The
/// rows themselves stay in the file and are read a page at a time.
class TablePicture {
public:
    /// Takes a picture of `table`. Where nothing but new rows came to the same table since the last one,
    /// only they are looked at. A failure leaves the picture as it was.
    void take(std::shared_ptr<Connection> connection, const QString& table);

    bool isTaken() const { return view_ != nullptr; }
    /// False once the database was closed.
    bool isOpen() const { return view_ && view_->connection->isOpen(); }

    std::int64_t rowCount() const { return view_ ? view_->index.count() : 0; }
    const std::vector<QString>& columns() const { return view_->columns; }
    int columnCount() const { return static_cast<int>(view_->columns.size()); }

    /// The page with a row, which must be one of the picture. Where rows were deleted since the picture was taken, the
    /// page has fewer rows than it should.
    const RowPage& page(std::int64_t row)
    {
        const RowPage& recent = cache_.recent();
        const bool isIn = recent.block() == row / RowIndex::blockRows && rowInPage(row) < recent.rowCount();
        return isIn ? recent : findPage(row);
    }
    static int rowInPage(std::int64_t row) { return static_cast<int>(row % RowIndex::blockRows); }
    /// The first row of the picture that meets a condition of the dialect, -1 where none does.
    std::int64_t find(const QString& criterion);
    /// Writes to the table, Null for an empty text. Throws 3021 where the row is no longer there, or its value is
    /// another one by now.
    void change(std::int64_t row, int column, const QString& text);

    /// Rows that were read, scanned or counted in the file since the start.
    std::int64_t rowsRead() const { return rowsRead_; }

private:
    /// One table of one database, with its statements.
    struct View {
        View(std::shared_ptr<Connection> open, const QString& tableName);

        std::shared_ptr<Connection> connection;
        QString table;
        std::string quoted;
        PreparedStatement bounds; ///< the least and the greatest id
        PreparedStatement ids;    ///< the ids behind one
        PreparedStatement rows;   ///< the rows behind one id and up to another
        std::vector<QString> columns;
        std::uint64_t disturbances = 0;
        RowIndex index;
    };

    std::int64_t rowsOf(View& view);
    bool isRun(View& view, std::int64_t rows);
    void grow(View& view);
    void walk(View& view, RowIndex& index, std::int64_t from);
    const RowPage& findPage(std::int64_t row);
    const RowPage& readPage(std::int64_t block);

    std::unique_ptr<View> view_;
    RowCache cache_;
    std::int64_t rowsRead_ = 0;
};

} // namespace orb
