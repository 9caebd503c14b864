// SPDX-License-Identifier: GPL-3.0-or-later
#include "sequence_statements.h"

#include "printing.h"

#include <gmock/gmock.h>

namespace orb {
namespace {

TEST(SequenceStatementsTest, ANumberHasAtLeastOneDecimal)
{
    EXPECT_EQ(decimals(15, 2), "15.0");
    EXPECT_EQ(decimals(0, 3), "0.0");
    EXPECT_EQ(decimals(100, 3), "100.0");
    EXPECT_EQ(decimals(-2.5, 2), "-2.5");
}

TEST(SequenceStatementsTest, ANumberIsRoundedToItsMostDecimals)
{
    EXPECT_EQ(decimals(1234.5678, 3), "1234.568");
    EXPECT_EQ(decimals(0.0004, 3), "0.0");
    EXPECT_EQ(decimals(0.0006, 3), "0.001");
    EXPECT_EQ(decimals(0.0002, 2), "0.0");
    EXPECT_EQ(decimals(0.25, 2), "0.25");
    EXPECT_EQ(decimals(0.104, 2), "0.1");
    EXPECT_EQ(decimals(2147483648, 3), "2147483648.0");
}

TEST(SequenceStatementsTest, ASettingIsInsertedWithItsLabelInDoubleQuotesAndItsValueTwice)
{
    EXPECT_EQ(headInsert("VRange 0:16V, 1:80V", 1), R"(Insert into OrbseqHead values("VRange 0:16V, 1:80V",1,1))");
    EXPECT_EQ(headInsert("Repeat Count(0:inf)", -2), R"x(Insert into OrbseqHead values("Repeat Count(0:inf)",-2,-2))x");
}

TEST(SequenceStatementsTest, APointIsInsertedWithItsTimeAndCurrentRoundedAndItsSlewRatesWhole)
{
    EXPECT_EQ(pointInsert(3, {0.02, 15, 1.6, 1.6}), "insert into ORBSeqData values(3,0.02,15.0,1.6,1.6)");
    EXPECT_EQ(pointInsert(120, {0.0204, 0.126, 0.00064, 20.97088}),
              "insert into ORBSeqData values(120,0.02,0.13,0.00064,20.97088)");
}

} // namespace
} // namespace orb
