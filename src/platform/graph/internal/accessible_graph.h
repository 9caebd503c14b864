// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace orb {

/// Makes the desktop's assistive technologies see every graph as a chart, with its name, the sentence that says what it
/// shows, and no parts. Further calls change nothing.
void registerAccessibleGraph();

} // namespace orb
