// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device_control.h"
#include "form_orb.h"

#include <functional>

namespace orb {

/// The instrument control and the main form as the program has them: ALL OFF stands at the end of the row of page
/// buttons.
struct Program {
    /// All references must outlive the program. `kinds` and `settingsFile` are those of the control.
    Program(Clock& clock, Dialogs& dialogs, const Paths& paths, SystemTools& systemTools, std::vector<LinkKind> kinds,
            const QString& settingsFile);

    DeviceControl CORB;
    FormORB form;
};

/// Runs the program with the real services. `adjust` may change the main form before it is shown. The result is that of
/// `main`.
int runProgram(int argc, char** argv, const std::function<void(FormORB&)>& adjust = {});

} // namespace orb
