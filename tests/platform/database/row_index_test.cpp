// SPDX-License-Identifier: GPL-3.0-or-later
#include "row_index.h"

#include <gmock/gmock.h>

#include <random>
#include <set>

using namespace orb;

namespace {

TEST(RowIndexTest, AnEmptyIndexHasNoRow)
{
    const RowIndex index;
    EXPECT_EQ(index.count(), 0);
    EXPECT_EQ(index.rowOf(0), -1);
}

TEST(RowIndexTest, ConsecutiveIdsAreConsecutiveRows)
{
    RowIndex index;
    index.append(5, 3);
    index.append(8);
    EXPECT_EQ(index.count(), 4);
    EXPECT_EQ(index.idOf(0), 5);
    EXPECT_EQ(index.idOf(3), 8);
    EXPECT_EQ(index.rowOf(8), 3);
    EXPECT_EQ(index.rowOf(4), -1);
    EXPECT_EQ(index.rowOf(9), -1);
}

TEST(RowIndexTest, AnIdInAGapHasNoRow)
{
    RowIndex index;
    index.append(-3, 2);
    index.append(1);
    index.append(100, 2);
    EXPECT_EQ(index.rowOf(-2), 1);
    EXPECT_EQ(index.rowOf(-1), -1);
    EXPECT_EQ(index.rowOf(0), -1);
    EXPECT_EQ(index.rowOf(1), 2);
    EXPECT_EQ(index.rowOf(99), -1);
    EXPECT_EQ(index.idOf(3), 100);
    EXPECT_EQ(index.rowOf(101), 4);
}

TEST(RowIndexTest, AnyIdsAreFoundBothWays)
{
    std::mt19937 random(1);
    std::set<std::int64_t> ids;
    while (ids.size() < 1000)
        ids.insert(static_cast<std::int64_t>(random() % 3000) - 500);
    RowIndex index;
    for (const std::int64_t id : ids)
        index.append(id);
    std::int64_t row = 0;
    for (std::int64_t id = -501; id < 2501; ++id) {
        const bool isThere = ids.count(id) > 0;
        ASSERT_EQ(index.rowOf(id), isThere ? row : -1) << id;
        if (isThere) {
            ASSERT_EQ(index.idOf(row++), id);
        }
    }
}

} // namespace
