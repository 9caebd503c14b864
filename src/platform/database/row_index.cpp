// SPDX-License-Identifier: GPL-3.0-or-later
#include "row_index.h"

#include <algorithm>

namespace orb {

void RowIndex::append(std::int64_t id)
{
    appendRun(1, id);
}

void RowIndex::appendRun(std::int64_t count, std::int64_t lastId)
{
    const std::int64_t idLessPlace = lastId - (count_ + count - 1);
    const auto blocks = static_cast<std::size_t>((count_ + count + blockRows - 1) / blockRows);
    while (firstIds_.size() < blocks)
        firstIds_.push_back(idLessPlace + static_cast<std::int64_t>(firstIds_.size()) * blockRows);
    count_ += count;
    lastId_ = lastId;
}

void RowIndex::cutBack(std::int64_t count, std::int64_t lastId)
{
    firstIds_.resize(static_cast<std::size_t>((count + blockRows - 1) / blockRows));
    count_ = count;
    lastId_ = lastId;
}

std::int64_t RowIndex::lastIdOf(std::int64_t block) const
{
    const auto next = static_cast<std::size_t>(block) + 1;
    return next < firstIds_.size() ? firstIds_[next] - 1 : lastId_;
}

std::int64_t RowIndex::blockOfId(std::int64_t id) const
{
    return std::upper_bound(firstIds_.begin(), firstIds_.end(), id) - firstIds_.begin() - 1;
}

} // namespace orb
