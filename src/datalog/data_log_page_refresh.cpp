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

/// The greater one of an extreme and a field; a field without a value moves nothing.
void liftTo(double& extreme, const Field& field)
{
    if (!field.isNull())
        extreme = std::max(extreme, field.toDouble());
}

void sinkTo(double& extreme, const Field& field)
{
    if (!field.isNull())
        extreme = std::min(extreme, field.toDouble());
}

/// Columns of channels that the instrument did not report have no value, and draw as zero.
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

} // namespace

void DataLogPage::logRefreshClick()
{
    const WaitPointer wait;
    for (int channel = 0; channel < graphChannels; ++channel)
        clearChannelForRefresh(channel);
    rebindDataLog();
    lLogRecNo = static_cast<std::int32_t>(DataLog.recordset().recordCount());
    readSeries();
    plotSeries();
    for (int channel = 0; channel < iLogChannels; ++channel)
        checkChannel(channel);
    optGraphMode[0].setValue(true);
    scaleValueAxes();
}

/// As `clearChannel`, but disabled before it is cleared.
void DataLogPage::clearChannelForRefresh(int channel)
{
    for (int plot = 2 * channel + 1; plot <= 2 * channel + 2; ++plot)
        graphLog.cursor(plot).setVisible(false);
    for (int plot = 2 * channel + 1; plot <= 2 * channel + 2; ++plot)
        boxOf(plot).setEnabled(false);
    for (int plot = 2 * channel + 1; plot <= 2 * channel + 2; ++plot)
        boxOf(plot).setValue(CheckBox::Unchecked);
}

void DataLogPage::checkChannel(int channel)
{
    for (int plot = 2 * channel + 1; plot <= 2 * channel + 2; ++plot)
        graphLog.cursor(plot).setVisible(false);
    for (int plot = 2 * channel + 1; plot <= 2 * channel + 2; ++plot)
        boxOf(plot).setEnabled(true);
    for (int plot = 2 * channel + 1; plot <= 2 * channel + 2; ++plot)
        boxOf(plot).setValue(CheckBox::Checked);
}

/// Each series is one element longer than the table, and that element stays 0: a refreshed curve ends with a fall to
/// zero one second behind its last sample.
void DataLogPage::readSeries()
{
    for (auto& series : adLogSeries)
        series.assign(static_cast<std::size_t>(lLogRecNo) + 1, 0.0);
    const auto columns = refreshColumns(iLogChannels);
    if (columns.empty())
        return;
    const auto rows = dbMain_->openRecordset(selectOf(columns));
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

/// Sets the value axes whose combos stand on "Default". `PVal` scales the axis of the voltage here and `SVal` that of
/// the current, as the plots of a refresh have it.
void DataLogPage::scaleValueAxes()
{
    constexpr std::int16_t channelsWithoutALog = 7;
    if (iLogChannels == 0)
        iLogChannels = channelsWithoutALog;
    Extremes extremes;
    const auto rows = dbMain_->openRecordset(extremesSelect(iLogChannels));
    for (int n = 1; n <= iLogChannels && !rows->isEof(); ++n) {
        liftTo(extremes.highestPVal, rows->field(4 * n - 4));
        sinkTo(extremes.lowestPVal, rows->field(4 * n - 3));
        liftTo(extremes.highestSVal, rows->field(4 * n - 2));
        sinkTo(extremes.lowestSVal, rows->field(4 * n - 1));
    }
    // The two lowest ones are not used: every axis starts at zero.
    if (cmbYVoltage.listIndex() == 0)
        graphLog.axis(2).SetMinMax(0, decadeAbove(extremes.highestPVal));
    if (cmbYCurrent.listIndex() == 0)
        graphLog.axis(3).SetMinMax(0, decadeAbove(extremes.highestSVal));
}

} // namespace orb
