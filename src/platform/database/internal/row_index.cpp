// SPDX-License-Identifier: GPL-3.0-or-later
#include "row_index.h"

#include <algorithm>

namespace orb {

void RowIndex::append(std::int64_t firstId, std::int64_t count)
{
    if (runs_.empty() || firstId != idOf(count_ - 1) + 1)
        runs_.push_back({count_, firstId});
    count_ += count;
}

std::int64_t RowIndex::idOf(std::int64_t row) const
{
    const auto next = std::upper_bound(runs_.begin(), runs_.end(), row,
                                       [](std::int64_t wanted, const Run& run) { return wanted < run.firstRow; });
    const Run& run = *std::prev(next);
    return run.firstId + row - run.firstRow;
}

std::int64_t RowIndex::rowOf(std::int64_t id) const
{
    const auto next = std::upper_bound(runs_.begin(), runs_.end(), id,
                                       [](std::int64_t wanted, const Run& run) { return wanted < run.firstId; });
    if (next == runs_.begin())
        return -1;
    const std::int64_t row = std::prev(next)->firstRow + id - std::prev(next)->firstId;
    const std::int64_t end = next == runs_.end() ? count_ : next->firstRow;
    return row < end ? row : -1;
}

} // namespace orb
