// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace orb {

class DeviceControl;
class FormORB;
class Tour;

/// The discharge test of the manual, with the simulated instrument inside the program and a picture of each step. It
/// records for two and a half minutes.
void firstTestSteps(Tour& tour, FormORB& form, DeviceControl& CORB);

} // namespace orb
