// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "prepared_statement.h"
#include "row_index.h"

#include <array>
#include <deque>
#include <string>
#include <vector>

namespace orb {

/// The rows of a table as of the last `take`: how many there are, and their ids. The rows themselves stay in the file and
/// are read a page at a time.
class TableSnapshot {
public:
    /// Takes a snapshot of `table`. Where nothing but new rows at the end came to the same table since the last one,
    /// only they are read. A failure leaves the snapshot as it was.
    void take(const std::shared_ptr<Connection>& connection, const QString& table);

    /// False before the first `take`, and once the database is closed.
    bool isOpen() const { return view_ && view_->connection->isOpen(); }
    std::int64_t rowCount() const { return view_ ? view_->index.count() : 0; }
    const std::vector<QString>& columns() const;
    /// The id of a row of the snapshot.
    std::int64_t idOf(std::int64_t row) const { return view_->index.idOf(row); }

    /// The values of a row, one for each column, valid until another row is read; null where the row has been deleted.
    const FieldValue* cells(std::int64_t row);
    /// The first row that meets a condition of the dialect, -1 where none does.
    std::int64_t find(const QString& criterion);
    /// Writes to the table, Null for an empty text. Throws 3021 where the row has been deleted, or has another value by
    /// now.
    void change(std::int64_t row, int column, const QString& text);

    /// Rows that were read, scanned or counted in the file since the start.
    std::int64_t rowsRead() const { return rowsRead_; }

private:
    /// One table of one database, with its statements.
    struct View {
        View(const std::shared_ptr<Connection>& open, const QString& tableName);

        std::shared_ptr<Connection> connection;
        QString table;
        std::string quoted;
        PreparedStatement version; ///< another number after each commit of another program
        PreparedStatement lastId;
        PreparedStatement ids;  ///< those after one
        PreparedStatement rows; ///< from one id to another
        std::vector<QString> columns;
        bool hasKey;
        std::int64_t versionSeen = -1;
        std::int64_t changesSeen = 0; ///< the count of changes of this program
        RowIndex index;
    };

    /// Consecutive rows, copied.
    struct Page {
        std::int64_t block = -1;
        std::vector<FieldValue> cells;
        std::vector<bool> isThere;
        std::deque<std::string> texts; ///< those of the cells, which stay where they are as more come
    };

    void update(View& view);
    bool appendNewIds(View& view, RowIndex& index, std::int64_t changes);
    RowIndex readAllIds(View& view);
    void walkIds(View& view, RowIndex& index, std::int64_t after);
    void readPage(Page& page, std::int64_t block);

    std::unique_ptr<View> view_;
    std::array<Page, 8> pages_; ///< that of a block is at the block's number modulo 8
    std::int64_t rowsRead_ = 0;
};

} // namespace orb
