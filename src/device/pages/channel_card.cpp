// SPDX-License-Identifier: GPL-3.0-or-later
#include "channel_card.h"

#include "status_label.h"

#include <QFontMetrics>
#include <QGridLayout>

#include <algorithm>
#include <cmath>

namespace orb {

namespace {

constexpr int sideMargin = 7;
const QString unknown = QStringLiteral("\u2014");

/// Seven characters at most for every value that a load module measures.
QString readingText(const std::optional<double>& reading)
{
    if (!reading)
        return unknown;
    const double size = std::abs(*reading);
    const int decimals = size < 100 ? 4 : size < 1000 ? 3 : size < 10'000 ? 2 : 0;
    return QString::number(*reading, 'f', decimals);
}

QString orUnknown(const QString& text)
{
    return text.isEmpty() ? unknown : text;
}

/// "CC High" for "CCH"; CV has no ranges.
QString modeText(const QString& mode)
{
    return mode.left(2) + (mode.endsWith(QLatin1Char('H'))   ? QStringLiteral(" High")
                           : mode.endsWith(QLatin1Char('L')) ? QStringLiteral(" Low")
                                                             : QString());
}

void setPixelSize(QWidget& widget, int size, bool bold = false)
{
    QFont font = widget.font();
    font.setPixelSize(size);
    font.setBold(bold);
    widget.setFont(font);
}

/// The readings of an input that is on, for a light and for a dark card.
QColor loadedColor(const QPalette& palette)
{
    return palette.color(QPalette::Base).lightness() < 128 ? QColor(0x5f, 0xd3, 0x86) : toneColor(Tone::Good);
}

void setTextColor(QWidget& widget, const QColor& color)
{
    QPalette colors = widget.palette();
    colors.setColor(QPalette::WindowText, color);
    widget.setPalette(colors);
}

} // namespace

ChannelCard::ChannelCard(int channel, QWidget* parent)
    : Control<QFrame>(parent),
      lblNumber(QString::number(channel)),
      units_{Label(QStringLiteral("V")), Label(QStringLiteral("A")), Label(QStringLiteral("W"))}
{
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    cmdLoad.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    cmdLoad.setFocusPolicy(Qt::TabFocus); // after a click the focus is elsewhere, so that no key switches a load
    cmdLoad.onClick = [this] {
        if (onLoad)
            onLoad(offersOn_);
    };
    createLayout();
    display({});
}

void ChannelCard::createLayout()
{
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(sideMargin, 5, sideMargin, 6);
    grid->setHorizontalSpacing(4);
    grid->setVerticalSpacing(1);
    grid->setColumnStretch(0, 1);

    auto* title = new QHBoxLayout;
    title->setSpacing(5);
    lblModule.setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    // Without roles of its own the label takes those of the card.
    lblState.setBackgroundRole(QPalette::Window);
    lblState.setForegroundRole(QPalette::WindowText);
    lblState.setAlignment(Qt::AlignCenter);
    lblState.setAutoFillBackground(true);
    lblState.setContentsMargins(6, 1, 6, 1);
    title->addWidget(&lblNumber);
    title->addWidget(&lblModule, 1);
    title->addWidget(&lblState);
    grid->addLayout(title, 0, 0, 1, 2);

    Label* const readings[] = {&lblVolts, &lblAmperes, &lblWatts};
    for (int i = 0; i < 3; ++i) {
        readings[i]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        readings[i]->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
        readings[i]->setForegroundRole(QPalette::WindowText);
        grid->addWidget(readings[i], i + 1, 0);
        grid->addWidget(&units_[static_cast<std::size_t>(i)], i + 1, 1);
        grid->setRowStretch(i + 1, 1);
    }
    lblMode.setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    lblSetValue.setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    grid->addWidget(&lblMode, 4, 0, 1, 2);
    grid->addWidget(&lblSetValue, 5, 0, 1, 2);
    grid->addWidget(&cmdLoad, 6, 0, 1, 2);
}

void ChannelCard::display(const ChannelReadout& readout)
{
    lblModule.setCaption(readout.module);
    lblVolts.setCaption(readingText(readout.volts));
    lblAmperes.setCaption(readingText(readout.amperes));
    lblWatts.setCaption(readingText(readout.watts));
    lblMode.setCaption(QStringLiteral("Mode ") + orUnknown(modeText(readout.mode)));
    lblSetValue.setCaption(QStringLiteral("Set ") + orUnknown(readout.setValue));
    displayState(readout);
}

void ChannelCard::displayState(const ChannelReadout& readout)
{
    const bool on = readout.loadOn.value_or(false);
    offersOn_ = readout.loadOn.has_value() && !on;
    cmdLoad.setCaption(offersOn_ ? QStringLiteral("LOAD ON") : QStringLiteral("LOAD OFF"));
    cmdLoad.setAccessibleName(QStringLiteral("%1, channel %2").arg(cmdLoad.caption(), lblNumber.caption()));
    lblState.setCaption(!readout.tripped.isEmpty() ? readout.tripped
                        : !readout.loadOn          ? unknown
                        : on                       ? QStringLiteral("ON")
                                                   : QStringLiteral("OFF"));
    QPalette colors = lblState.palette();
    colors.setColor(QPalette::Window, toneColor(!readout.tripped.isEmpty() ? Tone::Bad
                                                : on                       ? Tone::Good
                                                                           : Tone::Neutral));
    colors.setColor(QPalette::WindowText, Qt::white);
    lblState.setPalette(colors);
    for (Label* reading : {&lblVolts, &lblAmperes, &lblWatts})
        setTextColor(*reading, on ? loadedColor(palette()) : palette().color(QPalette::WindowText));
}

/// The readings grow with the card; the other texts keep a readable size.
void ChannelCard::resizeEvent(QResizeEvent* event)
{
    Control<QFrame>::resizeEvent(event);
    const int small = std::clamp(std::min(width() / 10, height() / 16), 11, 17);
    for (QWidget* widget : std::initializer_list<QWidget*>{&lblModule, &lblMode, &lblSetValue, &cmdLoad})
        setPixelSize(*widget, small);
    for (Label& unit : units_)
        setPixelSize(unit, small);
    setPixelSize(lblNumber, small + 2, true);
    setPixelSize(lblState, small - 1, true);
    const int reading = readingSize(small);
    for (Label* label : {&lblVolts, &lblAmperes, &lblWatts})
        setPixelSize(*label, reading, true);
    layout()->activate(); // the new sizes show with the next painting and not with the one after it
}

/// The largest size at which the longest reading fits beside its unit, and three of them below each other.
int ChannelCard::readingSize(int small) const
{
    constexpr int probe = 100;
    QFont font = this->font();
    font.setPixelSize(probe);
    font.setBold(true);
    const int longest = QFontMetrics(font).horizontalAdvance(QStringLiteral("-00.0000"));
    const int room = width() - 2 * sideMargin - small - 14;
    const int rest = 4 * small + 44; // title, mode, set value and button
    return std::clamp(std::min(room * probe / longest, (height() - rest) / 4), 10, 60);
}

} // namespace orb
