// SPDX-License-Identifier: GPL-3.0-or-later
#include "row_cache.h"

#include <algorithm>

namespace orb {

void RowPage::read(std::int64_t block, PreparedStatement& query)
{
    block_ = -1; // until it is whole
    columns_ = static_cast<std::size_t>(query.columnCount()) - 1;
    ids_.clear();
    cells_.clear();
    bytes_.clear();
    while (query.step()) {
        ids_.push_back(query.integer(0));
        for (int column = 0; column < static_cast<int>(columns_); ++column) {
            const FieldValue value = query.value(column + 1);
            cells_.push_back({value.type, bytes_.size(), value.text.size(), value.integer, value.real});
            bytes_ += value.text;
        }
    }
    block_ = block;
}

int RowPage::rowOfId(std::int64_t id) const
{
    const auto found = std::lower_bound(ids_.begin(), ids_.end(), id);
    return found != ids_.end() && *found == id ? static_cast<int>(found - ids_.begin()) : -1;
}

FieldValue RowPage::value(int row, int column) const
{
    const Cell& cell = cells_[static_cast<std::size_t>(row) * columns_ + static_cast<std::size_t>(column)];
    return {cell.type, cell.integer, cell.real, {bytes_.data() + cell.offset, cell.size}};
}

RowPage* RowCache::find(std::int64_t block)
{
    if (recent_->page.block() != block) {
        const auto slot =
            std::find_if(slots_.begin(), slots_.end(), [block](const Slot& s) { return s.page.block() == block; });
        if (slot == slots_.end())
            return nullptr;
        recent_ = &*slot;
        recent_->lastUse = ++uses_;
    }
    return &recent_->page;
}

RowPage& RowCache::oldest()
{
    recent_ = &*std::min_element(slots_.begin(), slots_.end(),
                                 [](const Slot& a, const Slot& b) { return a.lastUse < b.lastUse; });
    recent_->lastUse = ++uses_;
    return recent_->page;
}

void RowCache::clear()
{
    for (Slot& slot : slots_)
        slot.page.forget();
}

} // namespace orb
