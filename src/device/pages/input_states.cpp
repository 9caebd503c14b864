// SPDX-License-Identifier: GPL-3.0-or-later
#include "input_states.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <array>

namespace orb {

namespace {

constexpr qsizetype mostListed = 3; // more are counted, since the text has to stay short

/// The first nodes of commands that leave all inputs as they are, in their short forms, which the long ones begin with.
constexpr std::array harmlessNodes{"CHAN", "CURR", "RES",  "VOLT", "LEV",  "LIM",  "CONF",
                                   "FETC", "MEAS", "DISP", "SEQ",  "PROG", "STAT", "UTIL",
                                   "MMEM", "*CLS", "*ESE", "*SRE", "*SAV", "*OPC", "*WAI"};
/// What makes them switch an input after all.
constexpr std::array harmfulNodes{":RANG", ":RUN", ":NEXT", ":STOP"};

bool isHarmless(const QByteArray& header)
{
    return std::ranges::any_of(harmlessNodes, [&](const char* node) { return header.startsWith(node); }) &&
           std::ranges::none_of(harmfulNodes, [&](const char* node) { return header.contains(node); });
}

bool isOffEverywhere(const QByteArray& header)
{
    return header == "*RST" || header == "*RCL" || header == "ABOR" || header == "ABORT";
}

std::optional<bool> switchOf(const QByteArray& parameter)
{
    const bool isOn = parameter == "ON" || parameter == "1";
    return isOn || parameter == "OFF" || parameter == "0" ? std::optional(isOn) : std::nullopt;
}

} // namespace

void InputStates::restart(int channels)
{
    isOn_.assign(static_cast<std::size_t>(channels), {});
    isFresh_ = false;
    isAllOffSent_ = false;
}

void InputStates::polled(const ChannelReadouts& readouts)
{
    std::ranges::transform(readouts, isOn_.begin(), [](const ChannelReadout& readout) { return readout.loadOn; });
    isFresh_ = true;
    isAllOffSent_ = false;
}

void InputStates::sent(const QByteArray& line)
{
    bool isFirst = true;
    for (const QByteArray& each : line.toUpper().split(';')) {
        const QByteArray unit = each.simplified();
        // A header without a colon continues the one before it.
        const bool isAbsolute = isFirst || unit.startsWith(':') || unit.startsWith('*');
        isFirst = false;
        if (!isAbsolute && !unit.contains('?')) {
            isAllOffSent_ = false;
            return setAll({});
        }
        if (!unit.isEmpty() && !unit.contains('?'))
            sentUnit(unit.startsWith(':') ? unit.mid(1) : unit);
    }
}

void InputStates::sentUnit(const QByteArray& unit)
{
    static const QRegularExpression mode(QStringLiteral("^(?:MODE|VOLT(?:AGE)?)(\\d*)"));
    static const QRegularExpression load(QStringLiteral("^LOAD(\\d*)(:ALL|:STAT|:STATE)?$"));
    const QByteArray header = unit.split(' ').constFirst();
    if (isHarmless(header))
        return;
    const auto match = load.match(QString::fromLatin1(header));
    const auto isOn = switchOf(unit.mid(header.size() + 1));
    const bool isAll = match.captured(2) == QLatin1String(":ALL");
    const auto channel = static_cast<std::size_t>(match.captured(1).toInt());
    const auto modeMatch = mode.match(QString::fromLatin1(header));
    if (modeMatch.hasMatch())
        return mayGoOff(static_cast<std::size_t>(modeMatch.captured(1).toInt()));
    isAllOffSent_ = isAll && isOn == false;
    if (!isAll && channel >= 1 && channel <= isOn_.size())
        isOn_[channel - 1] = isOn;
    else if (isAll)
        setAll(isOn);
    else
        setAll(isOffEverywhere(header) ? std::optional(false) : std::nullopt);
}

/// The input of a channel, of any if the channel is 0, may have been switched off.
void InputStates::mayGoOff(std::size_t channel)
{
    for (std::size_t i = 0; i < isOn_.size(); ++i)
        if ((channel == 0 || i + 1 == channel) && isOn_[i] == true)
            isOn_[i].reset();
}

void InputStates::setAll(const std::optional<bool>& isOn)
{
    isOn_.assign(isOn_.size(), isOn);
}

bool InputStates::isKnown() const
{
    return std::ranges::all_of(isOn_, [](const auto& isOn) { return isOn.has_value(); });
}

QStringList InputStates::channelsOn() const
{
    QStringList channels;
    for (std::size_t i = 0; i < isOn_.size(); ++i)
        if (isOn_[i] == true)
            channels += QString::number(i + 1);
    return channels;
}

StatusLine InputStates::status() const
{
    if (isAllOffSent_)
        return {QStringLiteral("ALL OFF sent"), Tone::Neutral};
    if (!isKnown())
        return {QStringLiteral("Inputs unknown"), Tone::Neutral};
    const QStringList on = channelsOn();
    const QString last = isFresh_ ? QString() : QStringLiteral("Last: ");
    if (on.isEmpty())
        return {isFresh_ ? QStringLiteral("All off") : last + QStringLiteral("all off"), Tone::Neutral};
    const QString which = on.size() > mostListed ? QString::number(on.size()) : on.join(QStringLiteral(", "));
    return {last + which + QStringLiteral(" on"), isFresh_ ? Tone::Good : Tone::Busy};
}

QString InputStates::sentence() const
{
    if (isAllOffSent_)
        return QStringLiteral("ALL OFF was sent.");
    if (!isKnown())
        return QStringLiteral("Which inputs are on is not known.");
    const QStringList on = channelsOn();
    const QString which = on.isEmpty() ? QStringLiteral("all inputs are off")
                                       : QStringLiteral("these inputs are on: ") + on.join(QStringLiteral(", "));
    return (isFresh_ ? QStringLiteral("Now ")
                     : QStringLiteral("When the Control page was last shown, or by what was "
                                      "sent since, ")) +
           which + QLatin1Char('.');
}

} // namespace orb
