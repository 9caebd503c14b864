// SPDX-License-Identifier: GPL-3.0-or-later
#include "row_cache.h"

#include "failure.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace orb {

void RowPage::begin(std::int64_t block)
{
    block_ = block;
    upTo_ = std::numeric_limits<std::int64_t>::min();
    ids_.clear();
    cells_.resize(1);
    bytes_.clear();
}

FieldType RowPage::addValue(const FieldValue& value)
{
    if (value.type == FieldType::Text)
        bytes_.append(value.text);
    else if (value.type == FieldType::Integer)
        bytes_.append(reinterpret_cast<const char*>(&value.integer), sizeof value.integer);
    else if (value.type == FieldType::Real)
        bytes_.append(reinterpret_cast<const char*>(&value.real), sizeof value.real);
    return value.type;
}

void RowPage::addRow(const PreparedStatement& query)
{
    const std::size_t first = cells_.size() - 1;
    cells_.resize(cells_.size() + columns_);
    Cell* cell = &cells_[first];
    for (int column = 1; column <= static_cast<int>(columns_); ++column, ++cell) {
        cell->type = addValue(query.value(column));
        (cell + 1)->offset = static_cast<std::uint32_t>(bytes_.size());
    }
    if (bytes_.size() > std::numeric_limits<std::uint32_t>::max())
        throw RuntimeFailure(failure::Overflow);
}

void RowPage::extend(PreparedStatement& query, std::int64_t upTo)
{
    const std::int64_t block = block_;
    block_ = -1; // until it is whole
    columns_ = static_cast<std::size_t>(query.columnCount()) - 1;
    while (query.step()) {
        addRow(query);
        ids_.push_back(query.integer(0));
    }
    block_ = block;
    upTo_ = upTo;
}

int RowPage::rowOfId(std::int64_t id) const
{
    const auto found = std::lower_bound(ids_.begin(), ids_.end(), id);
    return found != ids_.end() && *found == id ? static_cast<int>(found - ids_.begin()) : -1;
}

FieldValue RowPage::value(int row, int column) const
{
    const Cell* cell = &cells_[static_cast<std::size_t>(row) * columns_ + static_cast<std::size_t>(column)];
    const char* bytes = bytes_.data() + cell->offset;
    FieldValue value;
    value.type = cell->type;
    if (cell->type == FieldType::Text)
        value.text = {bytes, (cell + 1)->offset - cell->offset};
    else if (cell->type == FieldType::Integer)
        std::memcpy(&value.integer, bytes, sizeof value.integer);
    else if (cell->type == FieldType::Real)
        std::memcpy(&value.real, bytes, sizeof value.real);
    return value;
}

RowPage* RowCache::find(std::int64_t block)
{
    const auto slot =
        std::find_if(slots_.begin(), slots_.end(), [block](const Slot& s) { return s.page.block() == block; });
    if (slot == slots_.end())
        return nullptr;
    recent_ = &*slot;
    recent_->lastUse = ++uses_;
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
