// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "graph_plan.h"

namespace orb {

/// The elements of `graphSeq`: elapsed time and amperes, which follow the data, and two curves of which one is used.
GraphPlan graphSeqPlan();

} // namespace orb
