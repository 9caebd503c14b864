// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "form.h"
#include "image.h"
#include "screen_context.h"

namespace orb {

/// The instrument's screen over the whole screen of the PC: a window without a border, with one image in it. Escape
/// hides it.
class FormFullScreen final : public Form {
public:
    /// The form has the size of the screen from the first, and is hidden. `run` must outlive it.
    explicit FormFullScreen(Run& run);
    ~FormFullScreen() override;

    Image Image1{this};

    /// The keys by their codes: 27 hides the form; 37 to 40, the arrow keys, throw `RuntimeFailure` 91. All others do
    /// nothing.
    void KeyDown(int code);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void FormLoad();
    void unload();

    ScreenContext hScreenDC = nullptr; ///< nothing draws with it
};

} // namespace orb
