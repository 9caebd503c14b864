// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace orb {

class FormORB;
class Tour;

/// What the program for service adds: shows the mirror, presses keys on the panel, saves the picture, goes full screen
/// and back in both ways. Then the about box.
void serviceSteps(Tour& tour, FormORB& form);

} // namespace orb
