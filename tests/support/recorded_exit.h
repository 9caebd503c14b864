// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "run.h"

#include <vector>

namespace orb {

/// The end of a run as a fact that a test can read.
class RecordedExit final : public ProcessExit {
public:
    /// "Run-time error '6':", an empty line, "Overflow", one for each report.
    std::vector<QString> reports;
    int exits = 0;

    void report(const RuntimeFailure& failure) override { reports.push_back(runtimeErrorReport(failure)); }
    void exit() override { ++exits; }
};

} // namespace orb
