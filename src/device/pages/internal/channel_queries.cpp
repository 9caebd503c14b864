// SPDX-License-Identifier: GPL-3.0-or-later
#include "channel_queries.h"

#include "identity.h"
#include "values.h"

#include <QList>

#include <algorithm>
#include <cmath>

namespace orb {

namespace {

constexpr qsizetype longestModule = 12;

struct Mode {
    const char* name;
    const char* setHeader; // of its set value; the channel's number follows
    const char* unit;
};

constexpr std::array<Mode, 3> modes{{{"CC", ":CURR", "A"}, {"CR", ":RES", "\u03A9"}, {"CV", ":VOLT", "V"}}};

const Mode* findMode(const QString& text)
{
    const auto found =
        std::ranges::find_if(modes, [&](const Mode& mode) { return text.startsWith(QLatin1String(mode.name)); });
    return found == modes.end() || text.size() > 3 ? nullptr : &*found;
}

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
        query += ";:MODE" + channel + "?;:LEV" + channel + "?;:LOAD" + channel + ":PROT?";
    }
    return query.mid(1);
}

void readModes(const QByteArray& answer, ChannelReadouts& readouts)
{
    const auto parts = partsOf(answer, 3 * readouts.size());
    for (std::size_t i = 0; i < readouts.size(); ++i) {
        const QString mode = QString::fromLatin1(fieldOf(parts, 3 * i));
        const QByteArray tripped = fieldOf(parts, 3 * i + 2);
        readouts[i].mode = findMode(mode) != nullptr ? mode : QString();
        readouts[i].level = fieldOf(parts, 3 * i + 1) == "2" ? 2 : 1;
        const bool isTripped = tripped == "OV" || tripped == "OP" || tripped == "OC";
        readouts[i].tripped = isTripped ? QString::fromLatin1(tripped) : QString();
        if (readouts[i].mode.isEmpty())
            readouts[i].setValue.clear();
    }
}

/// Asks for the channels whose mode is known.
QByteArray setValuesQuery(const ChannelReadouts& readouts)
{
    QByteArray query;
    for (std::size_t i = 0; i < readouts.size(); ++i)
        if (const Mode* mode = findMode(readouts[i].mode))
            query += QByteArray(";") + mode->setHeader + QByteArray::number(static_cast<int>(i + 1)) + ":L" +
                     QByteArray::number(readouts[i].level) + '?';
    return query.mid(1);
}

void readSetValues(const QByteArray& answer, ChannelReadouts& readouts)
{
    const auto asked = std::ranges::count_if(readouts, [](const auto& readout) { return !readout.mode.isEmpty(); });
    const auto values = partsOf(answer, static_cast<std::size_t>(asked));
    std::size_t next = 0;
    for (ChannelReadout& readout : readouts)
        if (const Mode* mode = findMode(readout.mode)) {
            const auto value = readingOf(fieldOf(values, next++));
            readout.setValue =
                value ? QStringLiteral("%1 %2").arg(text(*value), QString::fromUtf8(mode->unit)) : QString();
        }
}

} // namespace

const std::array<ChannelQuery, 4> channelQueries{{{modulesQuery, readModules},
                                                  {readingsQuery, readReadings},
                                                  {modesQuery, readModes},
                                                  {setValuesQuery, readSetValues}}};

} // namespace orb
