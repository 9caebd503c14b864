// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "label.h"
#include "orb_ctrl.h"
#include "paths.h"
#include "picture_button.h"

namespace orb {

/// The page on which the operator builds a list of commands and sends it to the instrument.
class CommandPage final : public Frame {
public:
    /// All references must outlive the page.
    CommandPage(const Paths& paths, ORBCtrl& CORB);

    PictureButton cmdStart{QStringLiteral("Start Log")};
    PictureButton cmdStop{QStringLiteral("Stop Log")};

    /// Lets `cmdStart` follow the link.
    void RefreshCommandPage();

    void cmdStopClick();

private:
    const Paths& paths_;
    ORBCtrl& CORB_;
};

} // namespace orb
