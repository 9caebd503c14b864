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
    /// Copies the rows that `query` gives; its first column is the row's id, the others are the row.
    void read(std::int64_t block, PreparedStatement& query);
    void forget() { block_ = -1; }

    /// The block that it holds, -1 for none.
    std::int64_t block() const { return block_; }
    int rowCount() const { return static_cast<int>(ids_.size()); }
    std::int64_t idOf(int row) const { return ids_[static_cast<std::size_t>(row)]; }
    /// The row with that id, -1 where there is none.
    int rowOfId(std::int64_t id) const;
    /// Valid until the page is read anew.
    FieldValue value(int row, int column) const;

private:
    struct Cell {
        FieldType type;
        std::size_t offset;
        std::size_t size;
        std::int64_t integer;
        double real;
    };

    std::int64_t block_ = -1;
    std::size_t columns_ = 0;
    std::vector<std::int64_t> ids_;
    std::vector<Cell> cells_;
    std::string bytes_;
};

/// The pages that were looked at last. Their number is fixed, so that memory stays the same however long the table is.
class RowCache {
public:
    /// The page with that block, or null.
    RowPage* find(std::int64_t block);
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
