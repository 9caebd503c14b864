// SPDX-License-Identifier: GPL-3.0-or-later
#include "status_label.h"

#include <array>

namespace orb {

QColor toneColor(Tone tone)
{
    static constexpr std::array<QRgb, 4> colors{0xff515a66, 0xff8a5a00, 0xff1b6e37, 0xffa81f1f}; // as in `Tone`
    return colors[static_cast<std::size_t>(tone)];
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
