// SPDX-License-Identifier: GPL-3.0-or-later
#include "data_log_page.h"

#include "graph_log.h"
#include "run_picture.h"
#include "save_picture.h"

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
                         Database& dbMain)
    : Frame(QStringLiteral("Data Log")),
      cbPlot(plotBoxes()),
      optGraphMode{OptionButton(QStringLiteral("Zoom")), OptionButton(QStringLiteral("Pan")),
                   OptionButton(QStringLiteral("Cursor Coodinates"))},
      GraphMode({QStringLiteral("Axis"), QStringLiteral("Zoom"), QStringLiteral("Cursor Coordinates"),
                 QStringLiteral("Cursor Measurements")}),
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
    graphLog.onSavePicture = [this] { savePicture(dialogs_, graphLog.ControlImage()); };
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
    emptyLog();
}

void DataLogPage::emptyLog()
{
    lLogRecNo = 0;
    graphLog.ClearData();
    dbMain_.execute(QStringLiteral("delete * from DataMeasure"));
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

void DataLogPage::RefreshDataLogPage()
{
    followLink(logStart, CORB_, paths_);
    if (bLogRunning) // no recording starts inside a recording
        logStart.setEnabled(false);
}

void DataLogPage::TimerDataLogTimer()
{
    CORB_.IsConnected(); // the result is not used: a recording is paced by its own loop
}

} // namespace orb
