// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace orb {

class FormORB;
class ORBCtrl;
class Tour;

/// Opens an example, edits a cell in each grid, sends the sequence, reads it back by queries, and loads it as a file.
void sequenceSteps(Tour& tour, FormORB& form, ORBCtrl& CORB);

} // namespace orb
