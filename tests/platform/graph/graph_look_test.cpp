// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph_look.h"

#include "failure.h"

#include <gtest/gtest.h>

#include <set>

namespace orb {
namespace {

TEST(GraphLookTest, EachCurveHasAColorOfItsOwn)
{
    std::set<QRgb> colors;
    for (int number = 1; number <= curveColorCount; ++number)
        colors.insert(curveColor(number).rgb());
    EXPECT_EQ(colors.size(), 8U);
    EXPECT_EQ(curveColor(1), QColor(0, 255, 0));
}

TEST(GraphLookTest, ANumberWithoutAColorIsRefused)
{
    EXPECT_THROW(curveColor(0), RuntimeFailure);
    EXPECT_THROW(curveColor(9), RuntimeFailure);
}

} // namespace
} // namespace orb
