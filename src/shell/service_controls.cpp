// SPDX-License-Identifier: GPL-3.0-or-later
#include "service_controls.h"

#include "form_orb.h"

namespace orb {

namespace {

/// The nine buttons share the place of the eight that an operator sees, so that the end of the row keeps its own.
void narrowPageButtons(FormORB& form)
{
    const std::array buttons{&form.pageConnect, &form.pageControl,  &form.pageCommand,
                             &form.pageWave,    &form.pageSequence, &form.PageProgram,
                             &form.pageAbout,   &form.pageExit,     &form.pageDisplay};
    const int left = form.pageConnect.x();
    const int width = (form.pageExit.geometry().right() + 1 - left) / static_cast<int>(buttons.size());
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        PictureButton& button = *buttons[i];
        QFont font = button.font();
        font.setPointSizeF(font.pointSizeF() * 0.85);
        button.setFont(font);
        button.setGeometry(left + static_cast<int>(i) * width, button.y(), width, button.height());
    }
}

} // namespace

void showServiceControls(FormORB& form)
{
    narrowPageButtons(form);
    form.pageDisplay.setVisible(true);
    form.fraDisplay.dispPause.setVisible(true);
    form.fraSequence.seqPlot.setVisible(true);
}

} // namespace orb
