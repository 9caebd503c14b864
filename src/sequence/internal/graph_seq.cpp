// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph_seq.h"

#include "graph_look.h"

namespace orb {

GraphPlan graphSeqPlan()
{
    GraphPlan plan;
    plan.axes = {{"XAxis", AxisSide::Bottom, "Elapsed Time", 0, 60 * secondInDays, "h:n:ss", 6, true},
                 {"YAxis-1", AxisSide::Left, "Amp", 0, 30, "", 5, true, "Current", "A"}};
    plan.plots = {{"Plot-1", 2, curveColor(1), false, "Sequence"}, {"Plot-2", 2, curveColor(2)}};
    return plan;
}

} // namespace orb
