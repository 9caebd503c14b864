// SPDX-License-Identifier: GPL-3.0-or-later
#include "data_log_page.h"
#include "graph_log.h"
#include "values.h"

namespace orb {

CheckBox& DataLogPage::boxOf(int plot)
{
    if (plot < 1 || plot > static_cast<int>(cbPlot.size()))
        throw RuntimeFailure(failure::NoSuchControl);
    return cbPlot[static_cast<std::size_t>(plot - 1)];
}

/// Hides the cursors of a channel, counted from 0, clears its two boxes and disables them.
void DataLogPage::clearChannel(int channel)
{
    for (int plot = 2 * channel + 1; plot <= 2 * channel + 2; ++plot) {
        graphLog.cursor(plot).setVisible(false);
        boxOf(plot).setValue(CheckBox::Unchecked);
        boxOf(plot).setEnabled(false);
    }
}

/// Enables the two boxes of a channel, counted from 0, and checks them, which shows their plots.
void DataLogPage::showChannel(int channel)
{
    for (int plot = 2 * channel + 1; plot <= 2 * channel + 2; ++plot) {
        boxOf(plot).setEnabled(true);
        boxOf(plot).setValue(CheckBox::Checked);
    }
}

void DataLogPage::cmbXLengthClick()
{
    const TimeRange* range = timeRangeOf(cmbXLength.text());
    if (!range)
        return;
    GraphAxis& axis = graphLog.axis(1);
    axis.setCaption(range->caption);
    axis.SetMinMax(0, range->firstMaximum);
    axis.setFormatString(range->format);
    axis.setMajorDivisions(range->divisions);
    if (!range->maximum.isEmpty())
        axis.SetMinMax(range->minimum, range->maximum);
}

void DataLogPage::cmbYVoltageClick()
{
    setValueAxis(cmbYVoltage, 2);
}

void DataLogPage::cmbYCurrentClick()
{
    setValueAxis(cmbYCurrent, 3);
}

void DataLogPage::setValueAxis(const ComboBox& combo, int axis)
{
    constexpr double defaultMaximum = 50; // until the next refresh scales the axis
    if (combo.listIndex() == 0)
        graphLog.axis(axis).SetMinMax(0, defaultMaximum);
    else if (combo.listIndex() > 0)
        graphLog.axis(axis).SetMinMax(0, numericValue(combo.text()));
}

void DataLogPage::cbPlotClick(int index)
{
    const int plot = index + 1;
    const bool checked = boxOf(plot).value() == CheckBox::Checked;
    graphLog.plot(plot).setVisible(checked);
    if (checked && optGraphMode[2].value())
        attachCursor(plot);
}

/// In cursor mode at most one plot stays visible: the others are hidden, and cursor 1 follows this one.
void DataLogPage::attachCursor(int plot)
{
    for (int other = 1; other <= 2 * iLogChannels; ++other)
        if (other != plot)
            boxOf(other).setValue(CheckBox::Unchecked);
    GraphCursor& cursor = graphLog.cursor(1);
    const GraphPlot& curve = graphLog.plot(plot);
    cursor.setPlot(curve);
    cursor.setColor(curve.lineColor());
    cursor.setVisible(true);
    const GraphAxis& axis = graphLog.axis(plot % 2 ? 2 : 3);
    cursor.setYPosition((axis.maximum() + axis.minimum()) / 2);
    clearReadOut(axis.unit());
}

/// What was read off is not of the curve that is read now.
void DataLogPage::clearReadOut(const QString& unit)
{
    XPosition.setText({});
    YPosition.setText({});
    lblYUnit.setCaption(unit);
}

void DataLogPage::optGraphModeClick(int index)
{
    // A fourth index acts like the third, though there is no such button.
    constexpr std::array trackModes{Graph::TrackZoom, Graph::TrackPan, Graph::TrackCursor, Graph::TrackCursor};
    if (index < 0 || index >= static_cast<int>(trackModes.size()))
        throw RuntimeFailure(failure::NoSuchControl);
    const auto mode = trackModes[static_cast<std::size_t>(index)];
    FrameCursor.setVisible(false);
    for (int cursor = 1; cursor <= 2 * iLogChannels; ++cursor)
        graphLog.cursor(cursor).setVisible(false);
    graphLog.setTrackMode(mode);
    if (mode != Graph::TrackCursor)
        return;
    FrameCursor.setVisible(true);
    FrameCursor.bringToFront();
    clearReadOut({});
    for (int plot = 1; plot <= 2 * iLogChannels; ++plot)
        boxOf(plot).setValue(CheckBox::Unchecked);
}

void DataLogPage::graphLogCursorChange(double x, double y)
{
    if (!optGraphMode[2].value())
        return;
    const auto seconds = static_cast<int>(std::llround(x * 86400) % 86400);
    const QTime time = QTime(0, 0).addSecs(seconds);
    XPosition.setText(time.toString(QStringLiteral("HH:mm:ss")));
    YPosition.setText(text(y));
    // An hour counts 60 here, so that after the first hour the grid lags the cursor.
    const int row = time.second() + 60 * time.minute() + 60 * time.hour();
    auto& rows = DataLog.recordset();
    if (row > 0 && row <= rows.recordCount())
        rows.findFirst(QStringLiteral("SeqNo=%1").arg(row));
}

} // namespace orb
