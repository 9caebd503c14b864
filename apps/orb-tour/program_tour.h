// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace orb {

class FormORB;
class Tour;

/// Loads the instrument's programs, edits a step and the chain by mouse, stores them in the history, sends them, opens the
/// history again and compares.
void programSteps(Tour& tour, FormORB& form);

} // namespace orb
