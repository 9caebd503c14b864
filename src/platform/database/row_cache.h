// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "prepared_statement.h"

#include <array>
#include <string>
#include <vector>

namespace orb {

/// Some consecutive rows of a table, copied.
class RowPage {
public:
    /// Forgets what it holds; from now on it is that block's.
    void begin(std::int64_t block);
    /// Copies the rows that `query` gives behind those it has; they reach up to the id `upTo`, whether or not there is
    /// a row with it. The first column of the query is the row's id, the others are the row.
    void extend(PreparedStatement& query, std::int64_t upTo);
    void forget() { block_ = -1; }

    /// The block that it holds, -1 for none.
    std::int64_t block() const { return block_; }
    /// The id up to which its rows are read.
    std::int64_t upTo() const { return upTo_; }
    int rowCount() const { return static_cast<int>(ids_.size()); }
    std::int64_t idOf(int row) const { return ids_[static_cast<std::size_t>(row)]; }
    /// The row with that id, -1 where there is none.
    int rowOfId(std::int64_t id) const;
    /// Valid until the page is read anew.
    FieldValue value(int row, int column) const;

private:
    /// Where the value begins in `bytes_`; it ends where the next one begins. A number is there as it is in memory.
    struct Cell {
        std::uint32_t offset;
        FieldType type;
    };
    void addRow(const PreparedStatement& query);
    FieldType addValue(const FieldValue& value);

    std::int64_t block_ = -1;
    std::int64_t upTo_ = 0;
    std::size_t columns_ = 0;
    std::vector<std::int64_t> ids_;
    std::vector<Cell> cells_{{0, FieldType::Null}}; ///< and one behind the last
    std::string bytes_;
};

/// The pages that were looked at last. Their number is fixed, so that memory stays the same however long the table is.
class RowCache {
public:
    /// The page with that block, or null.
    RowPage* find(std::int64_t block);
    /// The page that was found last.
    const RowPage& recent() const { return recent_->page; }
    /// The page that was not looked at for longest, to be read anew.
    RowPage& oldest();
    void clear();

private:
    struct Slot {
        RowPage page;
        std::uint64_t lastUse = 0;
    };
    std::array<Slot, 8> slots_;
    Slot* recent_ = slots_.data();
    std::uint64_t uses_ = 0;
};

} // namespace orb
