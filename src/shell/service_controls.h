// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace orb {

class FormORB;

/// Shows what the form keeps out of the operator's sight: the button of the Display page and its Pause, and
/// Sequence Simulate. The page buttons get narrower for it.
void showServiceControls(FormORB& form);

} // namespace orb
