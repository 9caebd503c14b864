// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "failure.h"

namespace orb {

/// Runs each step in its turn and carries on past the failing ones: for the routines whose behaviour that is.
template <typename... Steps> void attemptEach(Steps&&... steps)
{
    const auto attempt = [](auto& step) {
        try {
            step();
        } catch (const RuntimeFailure&) { // carrying on is the behaviour
        }
    };
    (attempt(steps), ...);
}

} // namespace orb
