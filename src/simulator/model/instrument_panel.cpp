// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_panel.h"

#include "mainframe.h"

#include <QByteArray>

namespace orb {

namespace {

/// Sets the level in force. False for a value outside of its range.
bool setLevelInForce(LoadChannel& channel, double value)
{
    const LoadSettings& settings = channel.settings();
    const LoadFunction function = settings.function;
    if (!channel.module().range(function, settings.range(function)).holds(value))
        return false;
    channel.setLevel(function, settings.level, value);
    return true;
}

/// One step of the range up or down, not beyond its ends.
void turnKnob(LoadChannel& channel, bool right)
{
    const LoadSettings& settings = channel.settings();
    const double step = channel.module().range(settings.function, settings.range(settings.function)).step;
    setLevelInForce(channel, settings.setValue() + (right ? step : -step));
}

/// From CC to CR to CV to CC, each in its range in force.
void setNextFunction(LoadChannel& channel)
{
    constexpr LoadFunction next[] = {LoadFunction::Resistance, LoadFunction::Voltage, LoadFunction::Current};
    const LoadFunction function = next[indexOf(channel.settings().function)];
    channel.setMode(function, channel.settings().range(function));
}

/// The channel after the selected one, or before it after SHIFT; from the last one to the first.
void selectNextChannel(Mainframe& mainframe)
{
    const int count = mainframe.channelCount();
    const int step = mainframe.panel().shifted() ? count - 1 : 1;
    mainframe.selectChannel((mainframe.selectedChannel() - 1 + step) % count + 1);
    mainframe.displayChannel(mainframe.selectedChannel());
}

/// The keys that work on the selected channel. FILE and HELP do nothing.
void actOnChannel(int code, int count, Mainframe& mainframe)
{
    const int number = mainframe.selectedChannel();
    switch (code) {
    case InstrumentPanel::Preset:
        mainframe.change(number).chooseLevel(1 - mainframe.channel(number).settings().level);
        break;
    case InstrumentPanel::Load:
        mainframe.switchInput(number, !mainframe.channel(number).inputOn());
        break;
    case InstrumentPanel::Channel:
        selectNextChannel(mainframe);
        break;
    case InstrumentPanel::Function:
        setNextFunction(mainframe.change(number));
        break;
    case InstrumentPanel::Knob:
        turnKnob(mainframe.change(number), count == InstrumentPanel::stepRight);
        break;
    default:
        break;
    }
}

} // namespace

bool InstrumentPanel::isKey(int code)
{
    return (code >= Digit0 && code <= Help) || code == KnobPress || code == Knob;
}

bool InstrumentPanel::isRefused(int code, const Mainframe& mainframe) const
{
    const bool switchesOff = code == Load && mainframe.channel(mainframe.selectedChannel()).inputOn();
    return locked_ && !switchesOff;
}

void InstrumentPanel::beep()
{
    if (beeperOn_)
        ++beepCount_;
}

void InstrumentPanel::type(char c)
{
    const bool secondPoint = c == '.' && entry_.find('.') != std::string::npos;
    if (entry_.size() < maxEntry && !secondPoint)
        entry_ += c;
}

InstrumentPanel::Outcome InstrumentPanel::enter(Mainframe& mainframe)
{
    bool isNumber = false;
    const double value = QByteArray::fromStdString(entry_).toDouble(&isNumber);
    const bool isEmpty = entry_.empty();
    entry_.clear();
    if (isEmpty)
        return Outcome::Done;
    const bool fits = isNumber && setLevelInForce(mainframe.change(mainframe.selectedChannel()), value);
    return fits ? Outcome::Done : Outcome::OutOfRange;
}

InstrumentPanel::Outcome InstrumentPanel::press(int code, int count, Mainframe& mainframe)
{
    lastOutcome_ = pressKey(code, count, mainframe);
    return lastOutcome_;
}

InstrumentPanel::Outcome InstrumentPanel::pressKey(int code, int count, Mainframe& mainframe)
{
    if (!isKey(code))
        return Outcome::NoSuchKey;
    beep();
    if (isRefused(code, mainframe))
        return Outcome::Locked;
    lastKey_ = code;
    lastCount_ = count;
    const Outcome outcome = act(code, count, mainframe);
    shifted_ = code == Shift && !shifted_;
    return outcome;
}

InstrumentPanel::Outcome InstrumentPanel::act(int code, int count, Mainframe& mainframe)
{
    if (code >= Digit0 && code <= Digit9)
        type(static_cast<char>('0' + (code - Digit0)));
    else if (code == Dot)
        type('.');
    else if (code == Clear)
        entry_.clear();
    else if (code == Enter || code == KnobPress)
        return enter(mainframe);
    else if (code >= F1 && code <= F5)
        page_ = static_cast<Page>(code - F1);
    else
        actOnChannel(code, count, mainframe);
    return Outcome::Done;
}

} // namespace orb
