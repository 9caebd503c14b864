// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph_seq.h"

#include "graph_look.h"
#include "printing.h"

#include <QStringList>

#include <gmock/gmock.h>

namespace orb {
namespace {

using testing::ElementsAre;

TEST(GraphSeqTest, TheAxesAreElapsedTimeAndAmperesAndFollowTheData)
{
    QStringList axes;
    for (const GraphAxisPlan& axis : graphSeqPlan().axes)
        axes << QStringLiteral("%1, %2, %3, '%4'%5")
                    .arg(axis.name)
                    .arg(static_cast<int>(axis.side))
                    .arg(axis.caption, axis.format, axis.autoScale ? " follows" : "");
    EXPECT_THAT(axes, ElementsAre("XAxis, 0, Elapsed Time, 'h:n:ss' follows", "YAxis-1, 1, Amp, '' follows"));
}

TEST(GraphSeqTest, TheTwoCurvesHaveTheFirstTwoColors)
{
    const GraphPlan plan = graphSeqPlan();
    ASSERT_EQ(plan.plots.size(), 2U);
    EXPECT_EQ(plan.plots[0].name, "Plot-1");
    EXPECT_EQ(plan.plots[0].color, curveColor(1));
    EXPECT_EQ(plan.plots[1].name, "Plot-2");
    EXPECT_EQ(plan.plots[1].color, curveColor(2));
    EXPECT_EQ(plan.plots[0].valueAxis, 2);
}

} // namespace
} // namespace orb
