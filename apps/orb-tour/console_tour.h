// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace orb {

class FormORB;
class Tour;

/// Builds a command list from the catalogue, runs it in single steps and in repeat, saves list and log to files, and opens
/// the list again.
void consoleSteps(Tour& tour, FormORB& form);

} // namespace orb
