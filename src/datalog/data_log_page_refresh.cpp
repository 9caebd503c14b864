// SPDX-License-Identifier: GPL-3.0-or-later
#include "data_log_page.h"
#include "graph_log.h"
#include "refresh_plan.h"
#include "text_maximum.h"
#include "wait_pointer.h"

namespace orb {

namespace {

QString selectOf(const std::vector<SeriesColumn>& columns)
{
    QStringList names;
    for (const SeriesColumn& column : columns)
        names << column.column;
    return QStringLiteral("select ") + names.join(QLatin1Char(',')) + QStringLiteral(" from DataMeasure");
}

HighestValues highestOf(const std::vector<SeriesColumn>& columns, const std::vector<TextMaximum>& maxima)
{
    HighestValues highest;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        double& value = columns[i].isCurrent() ? highest.PVal : highest.SVal;
        value = std::max(value, maxima[i].number().value_or(value));
    }
    return highest;
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
    const HighestValues read = readSeries();
    moveToEnd(DataLog.recordset());
    plotSeries();
    for (int channel = 0; channel < iLogChannels; ++channel)
        showChannel(channel);
    optGraphMode[0].setValue(true);
    scaleValueAxes(read);
}

/// Each series is one element longer than the table, and that element stays 0: a refreshed curve falls to zero one
/// second after its last sample. The result is the highest values of the columns that are read.
HighestValues DataLogPage::readSeries()
{
    for (auto& series : adLogSeries)
        series.assign(static_cast<std::size_t>(lLogRecNo) + 1, 0.0);
    const auto columns = refreshColumns(iLogChannels);
    if (columns.empty())
        return {};
    std::vector<TextMaximum> maxima(columns.size());
    const auto rows = dbMain_.openRecordset(selectOf(columns));
    for (std::size_t r = 0; !rows->isEof(); ++r, rows->moveNext()) {
        for (std::size_t i = 0; i < columns.size(); ++i) {
            const FieldValue value = rows->value(static_cast<int>(i));
            adLogSeries[columns[i].series].at(r) = numberOf(value, 0); // Null is drawn as zero
            maxima[i].append(value);
        }
    }
    return highestOf(columns, maxima);
}

void DataLogPage::plotSeries()
{
    if (iLogChannels < 1 || iLogChannels > graphChannels)
        return;
    for (int a = 0; a < 2 * iLogChannels; ++a)
        graphLog.plot(a + 1).PlotY(adLogSeries.at(static_cast<std::size_t>(a)), QStringLiteral("0:0:00"), secondInDays);
}

/// Sets the value axes whose combos are at "Default". Here `PVal` scales the axis of the voltage and `SVal` that of the
/// current, as a refresh plots them. Every axis starts at zero, so the lowest values are of no use.
void DataLogPage::scaleValueAxes(const HighestValues& read)
{
    constexpr std::int16_t channelsWithoutALog = 7;
    if (iLogChannels == 0)
        iLogChannels = channelsWithoutALog;
    const HighestValues highest = readsEveryChannel(iLogChannels) ? read : queryHighest();
    if (cmbYVoltage.listIndex() == 0)
        graphLog.axis(2).SetMinMax(0, decadeAbove(highest.PVal));
    if (cmbYCurrent.listIndex() == 0)
        graphLog.axis(3).SetMinMax(0, decadeAbove(highest.SVal));
}

/// The highest values of all channels by a query of its own, for a log of which a refresh does not read every column.
HighestValues DataLogPage::queryHighest() const
{
    HighestValues highest;
    const auto rows = dbMain_.openRecordset(extremesSelect(iLogChannels));
    for (int n = 1; n <= iLogChannels; ++n) {
        for (int lowest : {4 * n - 3, 4 * n - 1})
            numberOf(rows->value(lowest), 0); // a lowest text that is no number fails, though it is not used
        highest.PVal = std::max(highest.PVal, numberOf(rows->value(4 * n - 4), highest.PVal));
        highest.SVal = std::max(highest.SVal, numberOf(rows->value(4 * n - 2), highest.SVal));
    }
    return highest;
}

} // namespace orb
