// SPDX-License-Identifier: GPL-3.0-or-later
#include "panel_input.h"

#include "panel_keys.h"
#include "pointer_file.h"
#include "screen_picture.h"
#include "values.h"

namespace orb {

PanelInput::PanelInput(const Paths& paths, ORBCtrl& CORB, Form& form, Image& Image2, PictureBox& Picture1,
                       Image& Image1, Timer& TimerDisplay, CaptureTool& tool)
    : paths_(paths),
      CORB_(CORB),
      form_(form),
      Picture1_(Picture1),
      Image1_(Image1),
      TimerDisplay_(TimerDisplay),
      tool_(tool)
{
    Image2.onMouseDown = [this](float x, float y) { Image2MouseDown(x, y); };
    Image2.onMouseMove = [this](float x, float y) { Image2MouseMove(x, y); };
    Image2.onMouseUp = [this](float x, float y) { Image2MouseUp(x, y); };
}

void PanelInput::Image2MouseDown(float x, float y)
{
    TimerDisplay_.setEnabled(false); // so that no tick fetches the screen too
    tool_.lblX1.setCaption(text(x));
    tool_.lblY1.setCaption(text(y));
    if (const DevButton* button = map.hit(x, y))
        pressKey(*button);
    TimerDisplay_.setEnabled(true); // also when it was off before
}

/// The picture goes to the main form even while the full-screen form is shown.
void PanelInput::pressKey(const DevButton& button)
{
    tool_.TXT.setText(keyCommand(button.sName));
    if (tool_.TXT.text().isEmpty())
        return;
    CORB_.SendCommand(tool_.TXT.text());
    if (button.sName == QLatin1String("CHAN"))
        tool_.TXT.setText(QStringLiteral(":CHAN:DISP")); // and is not sent
    if (CORB_.GrabScreen()) {
        loadScreen(Picture1_);
        Image1_.setPixmap(Picture1_.pixmap());
    }
}

void PanelInput::Image2MouseMove(float x, float y)
{
    tool_.lblX1.setCaption(text(x));
    tool_.lblY1.setCaption(text(y));
    const DevButton* button = map.hit(x, y);
    if (button == nullptr)
        return form_.setCursor(Qt::ArrowCursor);
    tool_.TXT.setText({});
    form_.setCursor(loadPointer(paths_.inApplication(keyPointer(button->sName))));
}

void PanelInput::Image2MouseUp(float x, float y)
{
    tool_.lblX2.setCaption(text(x));
    tool_.lblY2.setCaption(text(y));
}

} // namespace orb
