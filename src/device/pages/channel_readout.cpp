// SPDX-License-Identifier: GPL-3.0-or-later
#include "channel_readout.h"

#include <algorithm>
#include <array>

namespace orb {

namespace {

constexpr std::array<ChannelMode, 3> modes{{{"CC", ":CURR", "A"}, {"CR", ":RES", "\u03A9"}, {"CV", ":VOLT", "V"}}};
constexpr int significantDigits = 9; // more than any load resolves

} // namespace

const ChannelMode* findMode(const QString& text)
{
    const auto found =
        std::ranges::find_if(modes, [&](const ChannelMode& mode) { return text.startsWith(QLatin1String(mode.name)); });
    return found == modes.end() || text.size() > 3 ? nullptr : &*found;
}

QString unitOf(const ChannelReadout& readout)
{
    const ChannelMode* mode = findMode(readout.mode);
    return mode != nullptr ? QString::fromUtf8(mode->unit) : QString();
}

std::optional<bool> isHighRange(const ChannelReadout& readout)
{
    if (readout.mode == QLatin1String("CV"))
        return readout.isHighVoltage;
    if (readout.mode.size() != 3)
        return std::nullopt;
    return readout.mode.endsWith(QLatin1Char('H'));
}

QByteArray loadCommand(int channel, bool on)
{
    return ":LOAD" + QByteArray::number(channel) + (on ? " ON" : " OFF");
}

QByteArray allOffCommand()
{
    return QByteArrayLiteral(":LOAD:ALL OFF");
}

QByteArray modeCommand(int channel, const QString& mode)
{
    return ":MODE" + QByteArray::number(channel) + ' ' + mode.toLatin1();
}

QByteArray rangeCommand(int channel, const ChannelReadout& readout, bool isHigh)
{
    if (readout.mode == QLatin1String("CV"))
        return ":VOLT" + QByteArray::number(channel) + (isHigh ? ":RANG HIGH" : ":RANG LOW");
    return modeCommand(channel, readout.mode.left(2) + QLatin1Char(isHigh ? 'H' : 'L'));
}

QByteArray setValueCommand(int channel, const ChannelReadout& readout, double value)
{
    return findMode(readout.mode)->setHeader + QByteArray::number(channel) + ":L" + QByteArray::number(readout.level) +
           ' ' + QByteArray::number(value, 'g', significantDigits);
}

} // namespace orb
