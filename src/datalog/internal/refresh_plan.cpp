// SPDX-License-Identifier: GPL-3.0-or-later
#include "refresh_plan.h"

#include <QStringList>

namespace orb {

namespace {

void addCurrents(std::vector<SeriesColumn>& columns, int channels)
{
    for (int n = 1; n <= channels; ++n)
        columns.push_back({QStringLiteral("PVal%1").arg(n), 2 * n - 2});
}

void addVoltages(std::vector<SeriesColumn>& columns, int channels)
{
    for (int n = 1; n <= channels; ++n)
        columns.push_back({QStringLiteral("SVal%1").arg(n), 2 * n - 1});
}

} // namespace

std::vector<SeriesColumn> refreshColumns(int channels)
{
    std::vector<SeriesColumn> columns;
    if (channels < 1 || channels > 7)
        return columns;
    addCurrents(columns, std::min(channels, 6));
    addVoltages(columns, channels == 7 ? 8 : channels);
    return columns;
}

bool readsEveryChannel(int channels)
{
    return channels >= 1 && channels <= 6;
}

QString extremesSelect(int channels)
{
    QStringList fields;
    for (int n = 1; n <= channels; ++n)
        fields << QStringLiteral("max(PVal%1),min(PVal%1),max(SVal%1),min(SVal%1)").arg(n);
    return QStringLiteral("Select ") + fields.join(QLatin1Char(',')) + QStringLiteral(" FROM DataMeasure");
}

double decadeAbove(double highest)
{
    double end = 0.000001;
    while (end < highest)
        end *= 10;
    return end;
}

} // namespace orb
