// SPDX-License-Identifier: GPL-3.0-or-later
#include "refresh_plan.h"

#include "printing.h"

#include <gmock/gmock.h>

using namespace orb;

namespace {

TEST(RefreshPlanTest, TheColumnsReadForEachChannelCountHaveTheirGaps)
{
    const auto plan = [](int channels) {
        QStringList columns;
        for (const auto& column : refreshColumns(channels))
            columns << QStringLiteral("%1>%2").arg(column.column).arg(column.series);
        return columns.join(' ');
    };
    EXPECT_EQ(plan(1), "PVal1>0 SVal1>1");
    EXPECT_EQ(plan(2), "PVal1>0 PVal2>2 SVal1>1 SVal2>3");
    EXPECT_EQ(plan(3), "PVal1>0 PVal2>2 PVal3>4 SVal1>1 SVal2>3 SVal3>5");
    EXPECT_EQ(plan(4), "PVal1>0 PVal2>2 PVal3>4 PVal4>6 SVal1>1 SVal2>3 SVal3>5 SVal4>7");
    EXPECT_EQ(plan(5), "PVal1>0 PVal2>2 PVal3>4 PVal4>6 PVal5>8 SVal1>1 SVal2>3 SVal3>5 SVal4>7 SVal5>9");
    EXPECT_EQ(plan(6), "PVal1>0 PVal2>2 PVal3>4 PVal4>6 PVal5>8 PVal6>10 SVal1>1 SVal2>3 SVal3>5 SVal4>7 SVal5>9 "
                       "SVal6>11");
    EXPECT_EQ(plan(7), "PVal1>0 PVal2>2 PVal3>4 PVal4>6 PVal5>8 PVal6>10 SVal1>1 SVal2>3 SVal3>5 SVal4>7 SVal5>9 "
                       "SVal6>11 SVal7>13 SVal8>15");
    for (int none : {-1, 0, 8, 9})
        EXPECT_EQ(plan(none), "") << none;
}

TEST(RefreshPlanTest, OneToSixChannelsAreReadCompletely)
{
    std::vector<int> complete;
    for (int channels = -1; channels <= 9; ++channels)
        if (readsEveryChannel(channels))
            complete.push_back(channels);
    EXPECT_THAT(complete, testing::ElementsAre(1, 2, 3, 4, 5, 6));
}

TEST(RefreshPlanTest, AHighestValueThatIsAPowerOfTenTakesTheDecadeOfTheRepeatedMultiplication)
{
    double decade = 0.000001;
    for (int i = 0; i < 7; ++i)
        decade *= 10;
    const double expected = decade < 10 ? decade * 10 : decade; // a decade just under 10 takes one more step
    EXPECT_EQ(decadeAbove(10), expected);
    EXPECT_EQ(decadeAbove(0), 0.000001);
    EXPECT_EQ(decadeAbove(-1000000000), 0.000001);
    EXPECT_NEAR(decadeAbove(10.5), 100, 1e-9);
}

TEST(RefreshPlanTest, TheStatementOfTheExtremesNamesFourFieldsAChannel)
{
    EXPECT_EQ(extremesSelect(1), "Select max(PVal1),min(PVal1),max(SVal1),min(SVal1) FROM DataMeasure");
    EXPECT_EQ(extremesSelect(2), "Select max(PVal1),min(PVal1),max(SVal1),min(SVal1),max(PVal2),min(PVal2),max(SVal2),"
                                 "min(SVal2) FROM DataMeasure");
}

} // namespace
