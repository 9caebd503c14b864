// SPDX-License-Identifier: GPL-3.0-or-later
#include "sample.h"

#include "failure.h"

namespace orb {

namespace {

int channelsOf(const ReplyList& currents)
{
    if (!currents)
        throw RuntimeFailure(failure::SubscriptOutOfRange);
    return static_cast<int>(currents->size()) - 1;
}

const QString& fieldOf(const ReplyList& list, int index)
{
    if (!list || index >= list->size())
        throw RuntimeFailure(failure::SubscriptOutOfRange);
    return (*list)[index];
}

/// The list without the comma at its end. An empty list has none to cut off.
QString closed(QString list)
{
    if (list.isEmpty())
        throw RuntimeFailure(failure::InvalidProcedureCall);
    list.chop(1);
    return list;
}

QString columns(int channels)
{
    QString list;
    for (int i = 1; i <= channels; ++i)
        list += QStringLiteral("PVal%1,SVal%1,").arg(i);
    return closed(list);
}

} // namespace

QString recordTime(const QDateTime& time)
{
    return time.toString(QStringLiteral("yyyy/MM/dd HH:mm:ss"));
}

QString sampleStatement(std::int32_t recordNo, const QDateTime& now, const ReplyList& currents,
                        const ReplyList& voltages,
                        const std::function<void(int channel, const QString& current, const QString& voltage)>& point)
{
    const int channels = channelsOf(currents);
    QString statement = QStringLiteral("insert into DataMeasure (SeqNo,RecTime,") + columns(channels) +
                        QStringLiteral(")  values(") + QString::number(recordNo) + QStringLiteral(",'") +
                        recordTime(now) + QStringLiteral("',");
    for (int i = 0; i < channels; ++i) {
        const QString& current = fieldOf(currents, i);
        const QString& voltage = fieldOf(voltages, i);
        statement += current + QLatin1Char(',') + voltage + QLatin1Char(',');
        point(i, current, voltage);
    }
    return closed(statement) + QLatin1Char(')');
}

} // namespace orb
