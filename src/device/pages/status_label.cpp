// SPDX-License-Identifier: GPL-3.0-or-later
#include "status_label.h"

namespace orb {

QColor toneColor(Tone tone)
{
    switch (tone) {
    case Tone::Neutral:
        break;
    case Tone::Busy:
        return {0x8a, 0x5a, 0x00};
    case Tone::Good:
        return {0x1b, 0x6e, 0x37};
    case Tone::Bad:
        return {0xa8, 0x1f, 0x1f};
    }
    return {0x51, 0x5a, 0x66};
}

StatusLabel::StatusLabel(QWidget* parent) : Label({}, parent)
{
    setWordWrap(true);
    setMargin(6);
    setAutoFillBackground(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse);
    display(status_);
}

void StatusLabel::display(const StatusLine& status)
{
    status_ = status;
    setCaption(status.text);
    QPalette colors = palette();
    colors.setColor(QPalette::Window, toneColor(status.tone));
    colors.setColor(QPalette::WindowText, Qt::white);
    setPalette(colors);
}

} // namespace orb
