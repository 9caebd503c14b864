// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "page_test.h"
#include "program.h"
#include "scripted_line.h"
#include "simulated_instrument.h"
#include "system_tools.h"

namespace orb {

/// The whole program on virtual time, composed as the operator's is, over a link to a simulated instrument that the test
/// can break. Each line that goes out stands in the journal: "send *IDN?".
class ProgramTest : public PageTest {
protected:
    ProgramTest();

    FormORB& form() { return program.form; }
    DeviceControl& CORB() { return program.CORB; }
    AllOffBar& bar() { return CORB().allOffBar; }
    /// Presses Connect on its page, and lets the program notice the link.
    void connect();
    QStringList sent()
    {
        return journal.linesOf({QStringLiteral("send")}).replaceInStrings(QStringLiteral("send "), QString());
    }
    /// Presses ALL OFF when `ms` more milliseconds have passed.
    void pressAllOffAfter(qint64 ms)
    {
        clock.at(clock.elapsed() + ms, [this] { press(bar().cmdAllOff); });
    }

    RealSystemTools systemTools;
    ScriptedLine line{clock};
    SimulatedInstrument simulated{defaultConfiguration(4),
                                  [this] { return std::chrono::milliseconds(clock.elapsed()); }};
    Program program{clock, dialogs, paths, systemTools, kinds(), application.filePath(QStringLiteral("link.ini"))};

private:
    std::vector<LinkKind> kinds();
};

} // namespace orb
