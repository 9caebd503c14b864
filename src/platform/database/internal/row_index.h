// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <vector>

namespace orb {

/// The ids of the rows of a table, in ascending order; the first row is row 0. Ids that follow one another take the
/// memory of one.
class RowIndex {
public:
    /// Adds `count` rows at the end: `firstId`, which is greater than all ids before it, and the ids that follow it.
    void append(std::int64_t firstId, std::int64_t count = 1);

    std::int64_t count() const { return count_; }
    /// `row` is in 0 ... `count` - 1.
    std::int64_t idOf(std::int64_t row) const;
    /// The row with that id, -1 where there is none.
    std::int64_t rowOf(std::int64_t id) const;

private:
    /// Rows with consecutive ids, up to the first row of the next run.
    struct Run {
        std::int64_t firstRow;
        std::int64_t firstId;
    };
    std::vector<Run> runs_;
    std::int64_t count_ = 0;
};

} // namespace orb
