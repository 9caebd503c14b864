// SPDX-License-Identifier: GPL-3.0-or-later
#include "byte_arrays.h"

#include "failure.h"
#include "printing.h"

#include <gmock/gmock.h>

namespace orb {
namespace {

QString textOf(const std::vector<quint8>& bytes)
{
    return ByteArrayToString(bytes);
}

TEST(ByteArraysTest, TheFirstByteOfFourIsTheLowest)
{
    EXPECT_EQ(ByteArrayToLong(std::vector<quint8>{1, 2, 3, 4}), 0x04030201);
    EXPECT_EQ(ByteArrayToLong(std::vector<quint8>{255, 255, 255, 255, 7}), -1);
}

TEST(ByteArraysTest, AMissingByteIsABoundsFailure)
{
    try {
        ByteArrayToLong(std::vector<quint8>{1, 2, 3});
        FAIL() << "no failure";
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.number(), failure::SubscriptOutOfRange);
    }
}

TEST(ByteArraysTest, ATextEndsBeforeItsFirstNul)
{
    EXPECT_EQ(textOf({'A', 'B', 0, 'C'}), "AB");
    EXPECT_EQ(textOf({'A', 'B', 0, 'C', 0}), "AB");
}

TEST(ByteArraysTest, ATextWithoutANulIsWhole)
{
    EXPECT_EQ(textOf({'A', 'B', 'C'}), "ABC");
    EXPECT_EQ(textOf({}), "");
}

} // namespace
} // namespace orb
