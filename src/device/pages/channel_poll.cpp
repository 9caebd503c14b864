// SPDX-License-Identifier: GPL-3.0-or-later
#include "channel_poll.h"

#include "identity.h"
#include "values.h"

#include <QList>

#include <algorithm>
#include <array>
#include <cmath>

namespace orb {

namespace {

/// The parts of an answer to joined queries; none where it has another number of them.
QList<QByteArray> parts(const QByteArray& answer, std::size_t count)
{
    const QList<QByteArray> found = answer.split(';');
    return found.size() == static_cast<qsizetype>(count) ? found : QList<QByteArray>();
}

QByteArray fieldOf(const QList<QByteArray>& fields, std::size_t index)
{
    return fields.value(static_cast<qsizetype>(index)).trimmed();
}

std::optional<double> readingOf(const QByteArray& field)
{
    bool isNumber = false;
    const double value = field.toDouble(&isNumber);
    return isNumber && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

std::optional<bool> switchOf(const QByteArray& field)
{
    if (field == "1" || field == "0")
        return field == "1";
    return std::nullopt;
}

struct Mode {
    const char* name;
    const char* setHeader; // of its set value; the channel's number follows
    const char* unit;
};

constexpr std::array<Mode, 3> modes{{{"CC", ":CURR", "A"}, {"CR", ":RES", "\u03A9"}, {"CV", ":VOLT", "V"}}};

const Mode* findMode(const QString& mode)
{
    const auto found =
        std::ranges::find_if(modes, [&](const Mode& known) { return mode.startsWith(QLatin1String(known.name)); });
    return found == modes.end() ? nullptr : &*found;
}

constexpr std::size_t partsOfModes = 3; // for each channel

} // namespace

void ChannelPoll::restart(int channels)
{
    readouts_.assign(static_cast<std::size_t>(channels), {});
    levels_.assign(static_cast<std::size_t>(channels), {});
    step_ = Step::Modules;
}

void ChannelPoll::beginRound()
{
    if (step_ != Step::Modules)
        step_ = Step::Readings;
}

QByteArray ChannelPoll::query() const
{
    QByteArray query;
    switch (step_) {
    case Step::Modules:
        return QByteArrayLiteral("*OPT?");
    case Step::Readings:
        return QByteArrayLiteral(":FETC:ALLV?;:FETC:ALLC?;:FETC:ALLP?;:LOAD:ALL?");
    case Step::Modes:
        for (std::size_t i = 0; i < readouts_.size(); ++i) {
            const QByteArray channel = QByteArray::number(static_cast<int>(i + 1));
            query += ";:MODE" + channel + "?;:LEV" + channel + "?;:LOAD" + channel + ":PROT?";
        }
        break;
    case Step::SetValues:
        for (std::size_t i = 0; i < readouts_.size(); ++i)
            query += setValueQuery(i);
        break;
    }
    return query.mid(1);
}

/// Empty for a channel whose mode is not known.
QByteArray ChannelPoll::setValueQuery(std::size_t index) const
{
    const Mode* mode = findMode(readouts_[index].mode);
    if (mode == nullptr)
        return {};
    return QByteArray(";") + mode->setHeader + QByteArray::number(static_cast<int>(index + 1)) + ":L" + levels_[index] +
           '?';
}

void ChannelPoll::take(const QByteArray& answer)
{
    switch (step_) {
    case Step::Modules:
        readModules(answer);
        step_ = Step::Readings;
        break;
    case Step::Readings:
        readReadings(answer);
        step_ = Step::Modes;
        break;
    case Step::Modes:
        readModes(answer);
        step_ = std::ranges::any_of(readouts_, [](const auto& readout) { return !readout.mode.isEmpty(); })
                    ? Step::SetValues
                    : Step::Readings;
        break;
    case Step::SetValues:
        readSetValues(answer);
        step_ = Step::Readings;
        break;
    }
}

void ChannelPoll::readModules(const QByteArray& answer)
{
    const QList<QByteArray> names = listFields(answer);
    for (std::size_t i = 0; i < readouts_.size(); ++i)
        readouts_[i].module = shownText(fieldOf(names, i), 12);
}

void ChannelPoll::readReadings(const QByteArray& answer)
{
    const QList<QByteArray> lists = parts(answer, 4);
    const auto volts = listFields(lists.value(0));
    const auto amperes = listFields(lists.value(1));
    const auto watts = listFields(lists.value(2));
    const auto loads = listFields(lists.value(3));
    for (std::size_t i = 0; i < readouts_.size(); ++i) {
        readouts_[i].volts = readingOf(fieldOf(volts, i));
        readouts_[i].amperes = readingOf(fieldOf(amperes, i));
        readouts_[i].watts = readingOf(fieldOf(watts, i));
        readouts_[i].loadOn = switchOf(fieldOf(loads, i));
    }
}

void ChannelPoll::readModes(const QByteArray& answer)
{
    const QList<QByteArray> words = parts(answer, partsOfModes * readouts_.size());
    for (std::size_t i = 0; i < readouts_.size(); ++i) {
        const QString mode = QString::fromLatin1(fieldOf(words, partsOfModes * i));
        const QByteArray level = fieldOf(words, partsOfModes * i + 1);
        const QString tripped = QString::fromLatin1(fieldOf(words, partsOfModes * i + 2));
        readouts_[i].mode = findMode(mode) != nullptr && mode.size() <= 3 ? mode : QString();
        levels_[i] = level == "2" ? "2" : "1";
        const bool known =
            tripped == QStringLiteral("OV") || tripped == QStringLiteral("OP") || tripped == QStringLiteral("OC");
        readouts_[i].tripped = known ? tripped : QString();
        if (readouts_[i].mode.isEmpty())
            readouts_[i].setValue.clear();
    }
}

void ChannelPoll::readSetValues(const QByteArray& answer)
{
    const auto asked = std::ranges::count_if(readouts_, [](const auto& readout) { return !readout.mode.isEmpty(); });
    const QList<QByteArray> values = parts(answer, static_cast<std::size_t>(asked));
    std::size_t next = 0;
    for (ChannelReadout& readout : readouts_) {
        const Mode* mode = findMode(readout.mode);
        if (mode == nullptr)
            continue;
        const auto value = readingOf(fieldOf(values, next++));
        readout.setValue = value ? QStringLiteral("%1 %2").arg(text(*value), QString::fromUtf8(mode->unit)) : QString();
    }
}

QString modeWord(const QString& mode)
{
    return mode.left(2);
}

QString rangeWord(const QString& mode)
{
    if (mode.endsWith(QLatin1Char('H')))
        return QStringLiteral("High");
    return mode.endsWith(QLatin1Char('L')) ? QStringLiteral("Low") : QString();
}

QByteArray loadCommand(int channel, bool on)
{
    return ":LOAD" + QByteArray::number(channel) + (on ? " ON" : " OFF");
}

QByteArray allOffCommand()
{
    return QByteArrayLiteral(":LOAD:ALL OFF");
}

} // namespace orb
