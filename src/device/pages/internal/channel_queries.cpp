// SPDX-License-Identifier: GPL-3.0-or-later
#include "channel_queries.h"

#include "identity.h"

#include <QList>

#include <algorithm>
#include <cmath>

namespace orb {

namespace {

constexpr qsizetype longestModule = 12;

/// The parts of an answer to joined queries; none where it has another number of them.
QList<QByteArray> partsOf(const QByteArray& answer, std::size_t count)
{
    const QList<QByteArray> parts = answer.split(';');
    return parts.size() == static_cast<qsizetype>(count) ? parts : QList<QByteArray>();
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
    return field == "1" || field == "0" ? std::optional(field == "1") : std::nullopt;
}

QByteArray modulesQuery(const ChannelReadouts&)
{
    return QByteArrayLiteral("*OPT?");
}

void readModules(const QByteArray& answer, ChannelReadouts& readouts)
{
    const auto names = listFields(answer);
    for (std::size_t i = 0; i < readouts.size(); ++i)
        readouts[i].module = shownText(fieldOf(names, i), longestModule);
}

QByteArray readingsQuery(const ChannelReadouts&)
{
    return QByteArrayLiteral(":FETC:ALLV?;:FETC:ALLC?;:FETC:ALLP?;:LOAD:ALL?");
}

void readReadings(const QByteArray& answer, ChannelReadouts& readouts)
{
    const auto lists = partsOf(answer, 4);
    const auto volts = listFields(lists.value(0));
    const auto amperes = listFields(lists.value(1));
    const auto watts = listFields(lists.value(2));
    const auto loads = listFields(lists.value(3));
    for (std::size_t i = 0; i < readouts.size(); ++i) {
        readouts[i].volts = readingOf(fieldOf(volts, i));
        readouts[i].amperes = readingOf(fieldOf(amperes, i));
        readouts[i].watts = readingOf(fieldOf(watts, i));
        readouts[i].loadOn = switchOf(fieldOf(loads, i));
    }
}

QByteArray modesQuery(const ChannelReadouts& readouts)
{
    QByteArray query;
    for (std::size_t i = 1; i <= readouts.size(); ++i) {
        const QByteArray channel = QByteArray::number(static_cast<int>(i));
        query += ";:MODE" + channel + "?;:VOLT" + channel + ":RANG?;:LEV" + channel + "?;:LOAD" + channel + ":PROT?";
    }
    return query.mid(1);
}

std::optional<bool> rangeOf(const QByteArray& field)
{
    return field == "HIGH" || field == "LOW" ? std::optional(field == "HIGH") : std::nullopt;
}

QString trippedOf(const QByteArray& field)
{
    return field == "OV" || field == "OP" || field == "OC" ? QString::fromLatin1(field) : QString();
}

/// Set value and limits belong to a mode and its range.
void setMode(ChannelReadout& readout, const QString& mode, const std::optional<bool>& isHighVoltage)
{
    const auto range = isHighRange(readout);
    const bool isSameMode = readout.mode == mode;
    readout.mode = mode;
    readout.isHighVoltage = isHighVoltage;
    if (isSameMode && range == isHighRange(readout))
        return;
    readout.setValue.reset();
    readout.limits.reset();
    readout.areLimitsAsked = false;
}

void readModes(const QByteArray& answer, ChannelReadouts& readouts)
{
    const auto parts = partsOf(answer, 4 * readouts.size());
    for (std::size_t i = 0; i < readouts.size(); ++i) {
        const QString mode = QString::fromLatin1(fieldOf(parts, 4 * i));
        setMode(readouts[i], findMode(mode) != nullptr ? mode : QString(), rangeOf(fieldOf(parts, 4 * i + 1)));
        readouts[i].level = fieldOf(parts, 4 * i + 2) == "2" ? 2 : 1;
        readouts[i].tripped = trippedOf(fieldOf(parts, 4 * i + 3));
    }
}

/// The query of the set value of a channel, counted from 0.
QByteArray setValueQuery(const ChannelReadout& readout, std::size_t channel)
{
    return findMode(readout.mode)->setHeader + QByteArray::number(static_cast<int>(channel + 1)) + ":L" +
           QByteArray::number(readout.level) + '?';
}

bool needsLimits(const ChannelReadout& readout)
{
    return !readout.mode.isEmpty() && !readout.areLimitsAsked;
}

QByteArray limitsQuery(const ChannelReadouts& readouts)
{
    QByteArray query;
    for (std::size_t i = 0; i < readouts.size(); ++i)
        if (needsLimits(readouts[i]))
            query += ';' + setValueQuery(readouts[i], i) + " MIN;" + setValueQuery(readouts[i], i) + " MAX";
    return query.mid(1);
}

void readLimits(const QByteArray& answer, ChannelReadouts& readouts)
{
    const auto asked = std::ranges::count_if(readouts, needsLimits);
    const auto values = partsOf(answer, 2 * static_cast<std::size_t>(asked));
    std::size_t next = 0;
    for (ChannelReadout& readout : readouts)
        if (needsLimits(readout)) {
            const auto lowest = readingOf(fieldOf(values, next++));
            const auto highest = readingOf(fieldOf(values, next++));
            readout.areLimitsAsked = true;
            if (lowest && highest && *lowest <= *highest)
                readout.limits = {*lowest, *highest};
        }
}

/// Asks for the channels whose mode is known.
QByteArray setValuesQuery(const ChannelReadouts& readouts)
{
    QByteArray query;
    for (std::size_t i = 0; i < readouts.size(); ++i)
        if (!readouts[i].mode.isEmpty())
            query += ';' + setValueQuery(readouts[i], i);
    return query.mid(1);
}

void readSetValues(const QByteArray& answer, ChannelReadouts& readouts)
{
    const auto asked = std::ranges::count_if(readouts, [](const auto& readout) { return !readout.mode.isEmpty(); });
    const auto values = partsOf(answer, static_cast<std::size_t>(asked));
    std::size_t next = 0;
    for (ChannelReadout& readout : readouts)
        if (!readout.mode.isEmpty())
            readout.setValue = readingOf(fieldOf(values, next++));
}

} // namespace

const std::array<ChannelQuery, 5> channelQueries{{{modulesQuery, readModules},
                                                  {readingsQuery, readReadings},
                                                  {modesQuery, readModes},
                                                  {limitsQuery, readLimits},
                                                  {setValuesQuery, readSetValues}}};

} // namespace orb
