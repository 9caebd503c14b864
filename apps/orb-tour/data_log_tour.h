// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace orb {

class DeviceControl;
class FormORB;
class SimulatorProcess;
class Tour;

/// From the Connect button to a picture of the instrument's own pages, over a TCP link to the simulator.
void connectSteps(Tour& tour, FormORB& form, DeviceControl& CORB, const SimulatorProcess& simulator);

/// Records, saves, opens, exports and prints a log. What the simulator served is in the file `served.txt`.
void dataLogSteps(Tour& tour, FormORB& form);

} // namespace orb
