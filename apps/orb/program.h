// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

namespace orb {

class FormORB;

/// Runs the program with the real services. `adjust` may change the main form before it is shown. The result is that of
/// `main`.
int runProgram(int argc, char** argv, const std::function<void(FormORB&)>& adjust = {});

} // namespace orb
