// SPDX-License-Identifier: GPL-3.0-or-later
#include "answer_text.h"

#include <gtest/gtest.h>

namespace orb {
namespace {

TEST(AnswerTextTest, ANumberHasFixedDecimalsAndIsNeverNegativeZero)
{
    EXPECT_EQ(decimalText(1.23456, 4), "1.2346");
    EXPECT_EQ(decimalText(-0.00001, 4), "0.0000");
    EXPECT_EQ(decimalText(-0.5, 4), "-0.5000");
    EXPECT_EQ(decimalText(12345678, 2), "12345678.00");
}

} // namespace
} // namespace orb
