// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "capture_tool.h"
#include "form.h"
#include "image.h"
#include "orb_ctrl.h"
#include "panel_map.h"
#include "timer.h"

namespace orb {

/// The panel picture as an input: a press on a key sends its command to the instrument and shows the instrument's
/// screen at once; the pointer shows where a key is.
class PanelInput {
public:
    /// All references must outlive the object. `form` gets the pointer; `Image2` is the panel picture; `Picture1` and
    /// `Image1` show the instrument's screen, which `TimerDisplay` refreshes; `tool` shows positions and the command.
    PanelInput(const Paths& paths, ORBCtrl& CORB, Form& form, Image& Image2, PictureBox& Picture1, Image& Image1,
               Timer& TimerDisplay, CaptureTool& tool);

    PanelMap map;

    /// Reads the panel map. Throws as `PanelMap::InitDevButton` does.
    void InitDevButton() { map.InitDevButton(paths_); }

    /// `x` and `y`: twips from the top left corner of the picture. Throws as the loading of a picture does.
    /// `TimerDisplay` runs after it, whatever it was before.
    void Image2MouseDown(float x, float y);
    void Image2MouseMove(float x, float y);
    void Image2MouseUp(float x, float y);

private:
    void pressKey(const DevButton& button);

    const Paths& paths_;
    ORBCtrl& CORB_;
    Form& form_;
    PictureBox& Picture1_;
    Image& Image1_;
    Timer& TimerDisplay_;
    CaptureTool& tool_;
};

} // namespace orb
