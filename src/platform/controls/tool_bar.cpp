// SPDX-License-Identifier: GPL-3.0-or-later
#include "tool_bar.h"

#include <QHBoxLayout>

namespace orb {

namespace {
constexpr QSize pictureSize(32, 32);
constexpr double captionScale = 0.88; // of the usual font
constexpr int widest = 150;           // on a wide page the buttons stay together at its left
} // namespace

QWidget* toolBarOf(const std::vector<PictureButton*>& buttons)
{
    auto* bar = new QWidget;
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(3);
    QFont font = bar->font();
    font.setPointSizeF(font.pointSizeF() * captionScale);
    for (PictureButton* button : buttons) {
        button->setIconSize(pictureSize);
        button->setFont(font);
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        button->setMaximumWidth(std::max(widest, button->sizeHint().width()));
        row->addWidget(button, 1000);
    }
    row->addStretch(1);
    return bar;
}

} // namespace orb
