// SPDX-License-Identifier: GPL-3.0-or-later
#include "all_off_bar.h"

#include "status_label.h"

#include <QVBoxLayout>

namespace orb {

namespace {

constexpr int sideBySideWidth = 150;
constexpr int widestButton = 160;
constexpr int textSize = 10;

const char* const allOffStyle =
    "QToolButton { background: #c01f1f; color: white; border: 2px solid #7d0f0f; border-radius: 5px;"
    " font-size: 14px; font-weight: bold; }"
    "QToolButton:hover { background: #d23434; }"
    "QToolButton:pressed { background: #8e1414; }"
    "QToolButton:focus { border-color: palette(highlight); }";

void showStatus(Label& label, const StatusLine& status)
{
    label.setCaption(status.text);
    label.setVisible(!status.text.isEmpty());
    QPalette colors = label.palette();
    colors.setColor(QPalette::Window, toneColor(status.tone));
    colors.setColor(QPalette::WindowText, Qt::white);
    label.setPalette(colors);
}

} // namespace

AllOffBar::AllOffBar() : keyAllOff(QKeySequence(Qt::Key_F12), this), layout_(new QBoxLayout(QBoxLayout::BottomToTop))
{
    auto* states = new QVBoxLayout;
    states->setSpacing(0);
    for (Label* label : {&lblLink, &lblInputs}) {
        QFont font = label->font();
        font.setPixelSize(textSize);
        label->setFont(font);
        label->setAlignment(Qt::AlignCenter);
        label->setAutoFillBackground(true);
        label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Expanding);
        states->addWidget(label);
    }
    cmdAllOff.setStyleSheet(QString::fromLatin1(allOffStyle));
    cmdAllOff.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    cmdAllOff.setMaximumWidth(widestButton);
    cmdAllOff.setToolTip(QStringLiteral("Switches the inputs of all channels off (F12)"));
    cmdAllOff.setAccessibleName(QStringLiteral("ALL OFF, switches the inputs of all channels off"));
    layout_->setContentsMargins(0, 0, 0, 0);
    layout_->setSpacing(3);
    layout_->addLayout(states, 2);
    layout_->addWidget(&cmdAllOff, 3);
    setLayout(layout_);
    // Not the shortcut of a button, which presses it 100 ms later.
    keyAllOff.setContext(Qt::ApplicationShortcut);
    keyAllOff.setAutoRepeat(false);
    QObject::connect(&keyAllOff, &QShortcut::activated, this, [this] { cmdAllOff.click(); });
    display(false, QStringLiteral("Not connected"), {}, {});
}

void AllOffBar::display(bool isConnected, const QString& link, const StatusLine& inputs, const QString& sentence)
{
    cmdAllOff.setVisible(isConnected);
    keyAllOff.setEnabled(isConnected);
    showStatus(lblLink, {link, isConnected ? Tone::Good : Tone::Neutral});
    showStatus(lblInputs, inputs);
    lblInputs.setToolTip(sentence);
    lblInputs.setAccessibleName(sentence);
}

/// Side by side where there is room, the button at the right.
void AllOffBar::resizeEvent(QResizeEvent* event)
{
    Control<QWidget>::resizeEvent(event);
    layout_->setDirection(width() < sideBySideWidth ? QBoxLayout::BottomToTop : QBoxLayout::LeftToRight);
}

} // namespace orb
