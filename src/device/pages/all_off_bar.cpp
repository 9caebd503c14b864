// SPDX-License-Identifier: GPL-3.0-or-later
#include "all_off_bar.h"

#include "status_label.h"

#include <QVBoxLayout>

#include <algorithm>

namespace orb {

namespace {

constexpr int sideBySideWidth = 150;
constexpr int widestButton = 160;
constexpr int widestStates = 200;
constexpr int textSize = 10; // in a narrow bar
constexpr int smallestText = 7;
constexpr int textMargin = 1;

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
    layout_->addLayout(states);
    layout_->addWidget(&cmdAllOff);
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
    fitTexts();
}

/// Side by side where there is room, at the right of a wide bar.
void AllOffBar::resizeEvent(QResizeEvent* event)
{
    Control<QWidget>::resizeEvent(event);
    const bool isNarrow = width() < sideBySideWidth;
    layout_->setDirection(isNarrow ? QBoxLayout::BottomToTop : QBoxLayout::LeftToRight);
    layout_->setContentsMargins(std::max(0, width() - widestButton - widestStates), 0, 0, 0);
    for (Label* label : {&lblLink, &lblInputs})
        label->setSizePolicy(isNarrow ? QSizePolicy::Ignored : QSizePolicy::Preferred, QSizePolicy::Expanding);
    layout_->setStretch(0, isNarrow ? 2 : 1);
    layout_->setStretch(1, isNarrow ? 3 : 1);
    fitTexts();
}

/// The texts in a size at which both have their room.
void AllOffBar::fitTexts()
{
    const bool isNarrow = width() < sideBySideWidth;
    const int beside = isNarrow ? 0 : layout_->spacing() + cmdAllOff.minimumSizeHint().width();
    const int room = width() - beside - 2 * textMargin;
    QFont text = font();
    int size = isNarrow ? textSize : QFontInfo(text).pixelSize();
    for (text.setPixelSize(size); size > smallestText; text.setPixelSize(--size))
        if (const QFontMetrics metrics(text); metrics.horizontalAdvance(lblLink.caption()) <= room &&
                                              metrics.horizontalAdvance(lblInputs.caption()) <= room)
            break;
    for (Label* label : {&lblLink, &lblInputs})
        if (label->font() != text)
            label->setFont(text);
}

} // namespace orb
