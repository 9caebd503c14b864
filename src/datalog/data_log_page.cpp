// SPDX-License-Identifier: GPL-3.0-or-later
#include "data_log_page.h"

#include "csv_export.h"
#include "graph_log.h"
#include "run_picture.h"
#include "text_file.h"
#include "values.h"

namespace orb {

namespace {

std::array<CheckBox, 16> plotBoxes()
{
    const auto box = [](int plot) {
        return CheckBox(QStringLiteral("Ch%1 %2").arg((plot + 1) / 2).arg(plot % 2 ? "V" : "A"));
    };
    return {box(1), box(2),  box(3),  box(4),  box(5),  box(6),  box(7),  box(8),
            box(9), box(10), box(11), box(12), box(13), box(14), box(15), box(16)};
}

} // namespace

DataLogPage::DataLogPage(Clock& clock, Dialogs& dialogs, const Paths& paths, ORBCtrl& CORB, Workspace& wsMain,
                         const std::unique_ptr<Database>& dbMain)
    : Frame(QStringLiteral("Data Log")),
      cbPlot(plotBoxes()),
      optGraphMode{OptionButton(QStringLiteral("Zoom")), OptionButton(QStringLiteral("Pan")),
                   OptionButton(QStringLiteral("Cursor Coodinates"))},
      graphLog(graphLogPlan()),
      DataLog(wsMain),
      TimerDataLog(clock),
      clock_(clock),
      dialogs_(dialogs),
      paths_(paths),
      CORB_(CORB),
      dbMain_(dbMain)
{
    createLayout();
    wire();
}

void DataLogPage::wire()
{
    logStart.onClick = [this] { logStartClick(); };
    logStop.onClick = [this] { logStopClick(); };
    logRefresh.onClick = [this] { logRefreshClick(); };
    logSave.onClick = [this] { logSaveClick(); };
    logOpen.onClick = [this] { logOpenClick(); };
    logDelete.onClick = [this] { logDeleteClick(); };
    logPrint.onClick = [this] { logPrintClick(); };
    cmdExport.onClick = [this] { cmdExportClick(); };
    FrameDataFileOperate.cmdOKDataLogFile.onClick = [this] { cmdOKDataLogFileClick(); };
    FrameDataFileOperate.cmdCancelDataLogFile.onClick = [this] { cmdCancelDataLogFileClick(); };
    cmbXLength.onClick = [this] { cmbXLengthClick(); };
    cmbYVoltage.onClick = [this] { cmbYVoltageClick(); };
    cmbYCurrent.onClick = [this] { cmbYCurrentClick(); };
    for (std::size_t i = 0; i < cbPlot.size(); ++i)
        cbPlot[i].onClick = [this, index = static_cast<int>(i)] { cbPlotClick(index); };
    for (std::size_t i = 0; i < optGraphMode.size(); ++i)
        optGraphMode[i].onClick = [this, index = static_cast<int>(i)] { optGraphModeClick(index); };
    graphLog.onCursorChange = [this](double x, double y) { graphLogCursorChange(x, y); };
    TimerDataLog.onTick = [this] { TimerDataLogTimer(); };
    TimerDataLog.setEnabled(true);
}

void DataLogPage::InitDataLog()
{
    lstWave.clear();
    cmbXLength.clear();
    cmbXLength.addItems(timeRangeItems());
    cmbXLength.setListIndex(0);
    cmbYVoltage.addItems(voltageRangeItems());
    cmbYCurrent.addItems(currentRangeItems());
    cmbYVoltage.setListIndex(0);
    cmbYCurrent.setListIndex(0);
    bLogStarted = false;
    logStop.setEnabled(false);
    lLogRecNo = 0;
    graphLog.ClearData();
    dbMain_->execute(QStringLiteral("delete * from DataMeasure"));
    rebindDataLog();
    for (int channel = 0; channel < graphChannels; ++channel)
        clearChannel(channel);
}

void DataLogPage::rebindDataLog()
{
    DataLog.setDatabaseName(paths_.inApplication(QStringLiteral("\\orb.mdb")));
    DataLog.setRecordSource(QStringLiteral("DataMeasure"));
    DataLog.refresh();
}

CheckBox& DataLogPage::boxOf(int plot)
{
    if (plot < 1 || plot > static_cast<int>(cbPlot.size()))
        throw RuntimeFailure(failure::SubscriptOutOfRange);
    return cbPlot[static_cast<std::size_t>(plot - 1)];
}

/// Hides the cursors of a channel, counted from 0, and takes its two boxes out of use.
void DataLogPage::clearChannel(int channel)
{
    for (int plot = 2 * channel + 1; plot <= 2 * channel + 2; ++plot) {
        graphLog.cursor(plot).setVisible(false);
        boxOf(plot).setValue(CheckBox::Unchecked);
        boxOf(plot).setEnabled(false);
    }
}

void DataLogPage::RefreshDataLogPage()
{
    followLink(logStart, CORB_, paths_);
}

void DataLogPage::TimerDataLogTimer()
{
    CORB_.IsConnected(); // and nothing is done with it: the pace of a recording comes from its own loop
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
        readCursorOff(plot);
}

/// In cursor mode one plot at most stays on: the others go off, and cursor 1 follows this one.
void DataLogPage::readCursorOff(int plot)
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
}

void DataLogPage::optGraphModeClick(int index)
{
    constexpr std::array<int, 3> trackModes{Graph::TrackZoom, Graph::TrackPan, Graph::TrackCursor};
    FrameCursor.setVisible(false);
    for (int cursor = 1; cursor <= 2 * iLogChannels; ++cursor)
        graphLog.cursor(cursor).setVisible(false);
    if (index == 2) {
        FrameCursor.setVisible(true);
        FrameCursor.bringToFront();
    }
    graphLog.setTrackMode(trackModes.at(static_cast<std::size_t>(index)));
    if (index != 2)
        return;
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
    // Hours count sixty here, so that beyond the first hour the grid lags the cursor.
    const int row = time.second() + 60 * time.minute() + 60 * time.hour();
    auto& rows = DataLog.recordset();
    if (row > 0 && row <= rows.recordCount())
        rows.findFirst(QStringLiteral("SeqNo=%1").arg(row));
}

void DataLogPage::cmdExportClick()
{
    if (lLogRecNo < 1) {
        dialogs_.message(QStringLiteral("Please Record or Load existing data first!"), Icon::Information);
        return;
    }
    CommonDialog& dialog = dialogs_.CommonDialog1;
    dialog.initialDirectory = paths_.inApplication(QStringLiteral("\\"));
    dialog.filter = QStringLiteral("ORB Data Log文件(*.csv)|*.csv");
    dialogs_.showSave();
    const QString name = dialog.fileName; // a cancel hands back what the dialog held before
    if (!name.isEmpty()) {
        OutputFile file(name);
        file.writeLine(csvHeader(iLogChannels));
        const auto rows = dbMain_->openRecordset(csvSelect(iLogChannels));
        writeCsvRows(*rows, iLogChannels, file);
        rows->close();
        file.close();
        dialogs_.message(QStringLiteral("Data Log CSV saved OK (FileName:") + name + QStringLiteral(")!"),
                         Icon::Information);
    }
    // The operator is told this after every successful save too.
    dialogs_.message(QStringLiteral("Data Log CSV saved Failed as User Cancel Opeation!"));
}

} // namespace orb
