// SPDX-License-Identifier: GPL-3.0-or-later
#include "data_log_page.h"
#include "graph_log.h"
#include "refresh_plan.h"
#include "wait_pointer.h"

namespace orb {

namespace {

struct Extremes {
    double highestPVal = -1000000000;
    double lowestPVal = 1000000000;
    double highestSVal = -1000000000;
    double lowestSVal = 1000000000;
};

/// `extreme` or the value of the field, whichever `pick` prefers; a field without a value changes nothing.
double withField(double extreme, const Field& field, const double& (*pick)(const double&, const double&))
{
    return field.isNull() ? extreme : pick(extreme, field.toDouble());
}

/// A column without a value, of a channel that the instrument did not report, is drawn as zero.
double seriesValue(const Field& field)
{
    return field.isNull() ? 0.0 : field.toDouble();
}

QString selectOf(const std::vector<SeriesColumn>& columns)
{
    QStringList names;
    for (const SeriesColumn& column : columns)
        names << column.column;
    return QStringLiteral("select ") + names.join(QLatin1Char(',')) + QStringLiteral(" from DataMeasure");
}

/// After the last row, where a walk over the rows ends.
void moveToEnd(TableRecordset& rows)
{
    rows.moveLast();
    if (!rows.isEof())
        rows.moveNext();
}

} // namespace

void DataLogPage::logRefreshClick()
{
    const WaitPointer wait;
    for (int channel = 0; channel < graphChannels; ++channel)
        clearChannel(channel);
    rebindDataLog();
    lLogRecNo = static_cast<std::int32_t>(DataLog.recordset().recordCount());
    readSeries();
    moveToEnd(DataLog.recordset());
    plotSeries();
    for (int channel = 0; channel < iLogChannels; ++channel)
        showChannel(channel);
    optGraphMode[0].setValue(true);
    scaleValueAxes();
}

/// Each series is one element longer than the table, and that element stays 0: a refreshed curve falls to zero one
/// second after its last sample.
void DataLogPage::readSeries()
{
    for (auto& series : adLogSeries)
        series.assign(static_cast<std::size_t>(lLogRecNo) + 1, 0.0);
    const auto columns = refreshColumns(iLogChannels);
    if (columns.empty())
        return;
    const auto rows = dbMain_.openRecordset(selectOf(columns));
    std::vector<std::pair<Field, double*>> targets;
    for (std::size_t i = 0; i < columns.size(); ++i)
        targets.emplace_back(rows->field(static_cast<int>(i)),
                             adLogSeries.at(static_cast<std::size_t>(columns[i].series)).data());
    for (std::int32_t r = 0; r < lLogRecNo && !rows->isEof(); ++r, rows->moveNext())
        for (const auto& [field, series] : targets)
            series[r] = seriesValue(field);
}

void DataLogPage::plotSeries()
{
    if (iLogChannels < 1 || iLogChannels > graphChannels)
        return;
    for (int a = 0; a < 2 * iLogChannels; ++a)
        graphLog.plot(a + 1).PlotY(adLogSeries.at(static_cast<std::size_t>(a)), QStringLiteral("0:0:00"), secondInDays);
}

/// Sets the value axes whose combos are at "Default". Here `PVal` scales the axis of the voltage and `SVal` that of the
/// current, as a refresh plots them.
void DataLogPage::scaleValueAxes()
{
    constexpr std::int16_t channelsWithoutALog = 7;
    if (iLogChannels == 0)
        iLogChannels = channelsWithoutALog;
    Extremes extremes;
    const auto rows = dbMain_.openRecordset(extremesSelect(iLogChannels));
    for (int n = 1; n <= iLogChannels && !rows->isEof(); ++n) {
        extremes.highestPVal = withField(extremes.highestPVal, rows->field(4 * n - 4), std::max);
        extremes.lowestPVal = withField(extremes.lowestPVal, rows->field(4 * n - 3), std::min);
        extremes.highestSVal = withField(extremes.highestSVal, rows->field(4 * n - 2), std::max);
        extremes.lowestSVal = withField(extremes.lowestSVal, rows->field(4 * n - 1), std::min);
    }
    // The two lowest values are not used: every axis starts at zero.
    if (cmbYVoltage.listIndex() == 0)
        graphLog.axis(2).SetMinMax(0, decadeAbove(extremes.highestPVal));
    if (cmbYCurrent.listIndex() == 0)
        graphLog.axis(3).SetMinMax(0, decadeAbove(extremes.highestSVal));
}

} // namespace orb
