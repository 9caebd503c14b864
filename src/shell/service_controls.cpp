// SPDX-License-Identifier: GPL-3.0-or-later
#include "service_controls.h"

#include "form_orb.h"

namespace orb {

void showServiceControls(FormORB& form)
{
    form.pageDisplay.setVisible(true);
    form.fraDisplay.dispPause.setVisible(true);
    form.fraSequence.seqPlot.setVisible(true);
}

} // namespace orb
