// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "form.h"
#include "journal.h"
#include "printing.h"
#include "recorded_exit.h"
#include "virtual_clock.h"

#include <gmock/gmock.h>

namespace orb {

/// A form for controls to stand on, with a run that ends as a fact and a virtual clock.
class FormTest : public testing::Test {
protected:
    /// Puts a control on the form.
    template <typename Widget> Widget& put(Widget& control)
    {
        control.setParent(&form);
        return control;
    }

    Journal journal;
    RecordedExit processExit{&journal};
    orb::Run run{processExit};
    VirtualClock clock{run, &journal};
    Form form{run};
};

} // namespace orb
