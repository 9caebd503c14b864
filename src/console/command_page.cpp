// SPDX-License-Identifier: GPL-3.0-or-later
#include "command_page.h"

#include "run_picture.h"

namespace orb {

CommandPage::CommandPage(const Paths& paths, ORBCtrl& CORB)
    : Frame(QStringLiteral("Command")), paths_(paths), CORB_(CORB)
{
    resizeTwips(9285, 7335);
    for (PictureButton* button : {&cmdStart, &cmdStop}) {
        button->setParent(this);
        button->setVisible(false); // until there is a list that they could run
    }
    cmdStop.setEnabled(false);
    cmdStop.onClick = [this] { cmdStopClick(); };
}

void CommandPage::RefreshCommandPage()
{
    followLink(cmdStart, CORB_, paths_);
}

void CommandPage::cmdStopClick()
{
    cmdStart.setEnabled(true);
    cmdStop.setEnabled(false);
    cmdStop.setPicture(paths_.inApplication(QStringLiteral("\\ICON\\B4STOP.JPG")));
}

} // namespace orb
