// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <vector>

namespace orb {

/// Finds the rows of a table by their place, the first one being 0, where only their ids are known to grow from row to
/// row. It keeps one id for each block of rows: 8 bytes for 256 rows.
class RowIndex {
public:
    static constexpr std::int64_t blockRows = 256;

    /// A row behind all others; its id is greater than theirs.
    void append(std::int64_t id);
    /// So many rows whose ids follow one another, the last of them `lastId`.
    void appendRun(std::int64_t count, std::int64_t lastId);
    /// Takes back all rows behind the first `count`; `lastId` is the id of the last one that stays.
    void cutBack(std::int64_t count, std::int64_t lastId);

    std::int64_t count() const { return count_; }
    /// The greatest id. Means nothing where there is no row.
    std::int64_t lastId() const { return lastId_; }

    /// The ids that a block can have: from its first row's to the one before the next block's first.
    std::int64_t firstIdOf(std::int64_t block) const { return firstIds_[static_cast<std::size_t>(block)]; }
    std::int64_t lastIdOf(std::int64_t block) const;
    /// The block in which the row with that id stands, if it is there at all; -1 for an id before the first row.
    std::int64_t blockOfId(std::int64_t id) const;

private:
    std::vector<std::int64_t> firstIds_;
    std::int64_t count_ = 0;
    std::int64_t lastId_ = 0;
};

} // namespace orb
