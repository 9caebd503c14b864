// SPDX-License-Identifier: GPL-3.0-or-later
#include "channel_card.h"

#include "values.h"

#include <QKeyEvent>

namespace orb {

namespace {

using Kind = ChannelChange::Kind;
using Stage = ChangeStatus::Stage;

const QString unknown = QStringLiteral("\u2014");
const QStringList modeNames{QStringLiteral("CC"), QStringLiteral("CR"), QStringLiteral("CV")};

const char* const loadOnStyle = "QToolButton { background: transparent; color: %1; border: 2px solid %1;"
                                " border-radius: 4px; font-weight: bold; }"
                                "QToolButton:hover, QToolButton:pressed { background: %1; color: %2; }"
                                "QToolButton:focus { border: 3px solid palette(highlight); }";
const char* const loadOffStyle = "QToolButton { background: #a81f1f; color: white; border: 2px solid #7d0f0f;"
                                 " border-radius: 4px; font-weight: bold; }"
                                 "QToolButton:hover { background: #c63030; }"
                                 "QToolButton:pressed { background: #7d0f0f; }"
                                 "QToolButton:focus { border: 3px solid palette(highlight); }";

QString readingText(const std::optional<double>& reading)
{
    return reading ? numberText(*reading, *reading) : unknown;
}

bool isDark(const QPalette& palette)
{
    return palette.color(QPalette::Base).lightness() < 128;
}

/// A color for text, for a light and for a dark card.
QColor textColor(Tone tone, const QPalette& palette)
{
    if (tone == Tone::Neutral)
        return palette.color(QPalette::Text);
    if (!isDark(palette))
        return toneColor(tone);
    return tone == Tone::Good   ? QColor(0x5f, 0xd3, 0x86)
           : tone == Tone::Busy ? QColor(0xff, 0xc2, 0x4d)
                                : QColor(0xff, 0x8a, 0x80);
}

void setColorOf(QWidget& widget, QPalette::ColorRole role, const QColor& color)
{
    QPalette colors = widget.palette();
    colors.setColor(role, color);
    widget.setPalette(colors);
}

/// What protection did, in words. A range that limits the current leaves the input on.
QString trippedText(const ChannelReadout& readout)
{
    const QString what = readout.tripped == QLatin1String("OV")   ? QStringLiteral("Over voltage")
                         : readout.tripped == QLatin1String("OP") ? QStringLiteral("Over power")
                                                                  : QStringLiteral("Over current");
    return what + (readout.loadOn.value_or(false) ? QStringLiteral(" limit") : QStringLiteral(" trip"));
}

QString limitsText(const ChannelReadout& readout)
{
    return readout.limits ? text(readout.limits->lowest) + QStringLiteral("\u2026") + text(readout.limits->highest)
                          : QString();
}

} // namespace

void LoadButton::keyPressEvent(QKeyEvent* event)
{
    if (!event->isAutoRepeat())
        PictureButton::keyPressEvent(event);
}

ChannelCard::ChannelCard(int channel, QWidget* parent)
    : Control<QFrame>(parent),
      lblNumber(QString::number(channel)),
      cmbMode(modeNames),
      cmbRange({QStringLiteral("Low"), QStringLiteral("High")}),
      units_{Label(QStringLiteral("V")), Label(QStringLiteral("A")), Label(QStringLiteral("W"))}
{
    createLayout();
    nameControls();
    wire();
    display({}, {});
}

void ChannelCard::wire()
{
    cmbMode.onClick = [this] { choose({.kind = Kind::Mode, .mode = cmbMode.text()}); };
    cmbRange.onClick = [this] { choose({.kind = Kind::Range, .isOn = cmbRange.listIndex() == 1}); };
    txtSetValue.onConfirm = [this](double value) { choose({.kind = Kind::SetValue, .value = value}); };
    txtSetValue.onEdit = [this] { displayNote(); };
    cmdLoad.onClick = [this] { choose({.kind = Kind::Load, .isOn = offersOn_}); };
}

void ChannelCard::choose(ChannelChange change)
{
    const bool isSame = (change.kind == Kind::Mode && readout_.mode.startsWith(change.mode)) ||
                        (change.kind == Kind::Range && isHighRange(readout_) == change.isOn);
    if (!isSame && onChange)
        onChange(change);
}

void ChannelCard::display(const ChannelReadout& readout, const ChangeStatus& status)
{
    readout_ = readout;
    status_ = status;
    lblModule.setCaption(readout.module);
    lblVolts.setCaption(readingText(readout.volts));
    lblAmperes.setCaption(readingText(readout.amperes));
    lblWatts.setCaption(readingText(readout.watts));
    displayState();
    displaySettings();
    displayNote();
}

void ChannelCard::displayState()
{
    const bool isOn = readout_.loadOn.value_or(false);
    const bool isTripped = !readout_.tripped.isEmpty();
    offersOn_ = readout_.loadOn == false && status_.stage != Stage::Pending;
    cmdLoad.setCaption(offersOn_ ? QStringLiteral("LOAD ON") : QStringLiteral("LOAD OFF"));
    cmdLoad.setAccessibleName(QStringLiteral("%1, channel %2").arg(cmdLoad.caption(), lblNumber.caption()));
    const QString style =
        offersOn_ ? QString::fromLatin1(loadOnStyle)
                        .arg(textColor(Tone::Good, palette()).name(), palette().color(QPalette::Base).name())
                  : QString::fromLatin1(loadOffStyle);
    if (cmdLoad.styleSheet() != style)
        cmdLoad.setStyleSheet(style);

    const Tone tone = isTripped ? Tone::Bad : isOn ? Tone::Good : Tone::Neutral;
    lblState.setCaption(isTripped          ? readout_.tripped
                        : !readout_.loadOn ? unknown
                        : isOn             ? QStringLiteral("ON")
                                           : QStringLiteral("OFF"));
    setColorOf(lblState, QPalette::Window, toneColor(tone));
    setColorOf(lblState, QPalette::WindowText, Qt::white);
    setColorOf(*this, QPalette::BrightText,
               tone == Tone::Neutral ? palette().color(QPalette::Mid) : textColor(tone, palette()));
    for (Label* reading : readings())
        setColorOf(*reading, QPalette::WindowText, textColor(isOn ? Tone::Good : Tone::Neutral, palette()));
}

/// While a change is under way the boxes show it and not what it replaces.
void ChannelCard::displaySettings()
{
    const ChannelChange& change = status_.change;
    const auto isChanging = [&](Kind kind) { return status_.isUnderWay() && change.kind == kind; };
    const QString mode = isChanging(Kind::Mode) ? change.mode : readout_.mode.left(2);
    const auto isHigh = isChanging(Kind::Range) ? std::optional(change.isOn) : isHighRange(readout_);
    cmbMode.display(static_cast<int>(modeNames.indexOf(mode)));
    cmbRange.display(isHigh ? static_cast<int>(*isHigh) : -1);
    txtSetValue.display(isChanging(Kind::SetValue) ? std::optional(change.value) : readout_.setValue, readout_.limits,
                        unitOf(readout_));
    lblUnit.setCaption(unitOf(readout_));
    lblLimits.setCaption(limitsText(readout_));

    // During a change of the mode or the range nothing else of the channel can be changed, but LOAD OFF.
    const bool isFree = status_.stage != Stage::Pending && !readout_.mode.isEmpty();
    cmbMode.setEnabled(isFree);
    cmbRange.setEnabled(isFree && isHigh.has_value());
    txtSetValue.setReadOnly(!isFree || !readout_.setValue);
}

StatusLine ChannelCard::note() const
{
    if (!txtSetValue.refusal().isEmpty())
        return {txtSetValue.refusal(), Tone::Bad};
    if (txtSetValue.isEdited())
        return {QStringLiteral("Enter sends it"), Tone::Busy};
    if (status_.isUnderWay())
        return {status_.text, Tone::Busy};
    if (status_.stage == Stage::Failed)
        return {status_.text, Tone::Bad};
    if (!readout_.tripped.isEmpty())
        return {trippedText(readout_), Tone::Bad};
    return {status_.text, Tone::Good};
}

void ChannelCard::displayNote()
{
    const StatusLine line = note();
    lblNote.setCaption(line.text);
    setColorOf(lblNote, QPalette::WindowText, textColor(line.tone, palette()));
    txtSetValue.setAccessibleDescription(line.text);
}

} // namespace orb
