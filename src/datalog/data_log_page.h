// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "check_box.h"
#include "combo_box.h"
#include "data_control.h"
#include "data_file_dialog.h"
#include "database.h"
#include "db_grid.h"
#include "dialogs.h"
#include "graph.h"
#include "label.h"
#include "list_box.h"
#include "orb_ctrl.h"
#include "paths.h"
#include "picture_button.h"
#include "sample.h"
#include "text_box.h"
#include "timer.h"

namespace orb {

/// The page that records the current and the voltage of every channel about once a second, and plots, shows and
/// exports the log in hand: the rows of the table `DataMeasure`.
class DataLogPage final : public Frame {
public:
    /// All references must outlive the page. `dbMain` must be open before `InitDataLog`; `wsMain` is what the bound
    /// grid's data control opens its database through.
    DataLogPage(Clock& clock, Dialogs& dialogs, const Paths& paths, ORBCtrl& CORB, Workspace& wsMain,
                const std::unique_ptr<Database>& dbMain);

    bool bLogRunning = false;      ///< the loop of the recording goes on
    bool bLogStarted = false;      ///< a recording was started in this run
    std::int32_t lLogRecNo = 0;    ///< `SeqNo` of the next row; below 1 no data is in hand
    std::int16_t iLogChannels = 0; ///< channels of the log in hand, 0 until one is started or opened
    /// What the last refresh gave to the plots: series a feeds plot a+1. Valid right after a refresh alone.
    std::array<std::vector<double>, 16> adLogSeries;
    float vLogLastTick = 0; ///< end of the previous sample cycle, in seconds since midnight

    PictureButton logStart{QStringLiteral("Start Log")};
    PictureButton logStop{QStringLiteral("Stop Log")};
    PictureButton logRefresh{QStringLiteral("Refresh")};
    PictureButton logSave{QStringLiteral("Save Log File")};
    PictureButton logOpen{QStringLiteral("Open Log File")};
    PictureButton logDelete{QStringLiteral("Delete Log File")};
    PictureButton logPrint{QStringLiteral("Print Log Picture")};
    PictureButton cmdExport{QStringLiteral("Save Log File")};

    ComboBox cmbXLength{ComboBox::Kind::DropDownList};
    ComboBox cmbYVoltage{ComboBox::Kind::DropDownList};
    ComboBox cmbYCurrent{ComboBox::Kind::DropDownList};
    Frame FrameChannel;
    std::array<CheckBox, 16> cbPlot; ///< index i belongs to plot i+1
    Frame Frame3;
    std::array<OptionButton, 3> optGraphMode;
    Frame FrameCursor{QStringLiteral("Cursor Information")};
    TextBox XPosition;
    TextBox YPosition;
    TextBox AmplitudeVal;
    TextBox PeriodVal;
    ListBox lstChannel;
    ListBox lstWave;

    Graph graphLog;
    DataControl DataLog;
    DBGrid DBGrid1;
    /// Lies over the page. Whoever shows it on another page takes it to a container of that page's.
    DataFileDialog FrameDataFileOperate;
    /// What the dialog's OK does for the stored programs, which its tag "PROCROGRAM" tells.
    std::function<void()> ApplyProgramHistory;
    Timer TimerDataLog; ///< has no interval and never ticks

    /// Brings the page to its first state, with an empty live table. Called once, while the main form loads. Throws
    /// what the database throws.
    void InitDataLog();
    /// Lets `logStart` follow the link.
    void RefreshDataLogPage();
    /// One sample cycle: asks for the currents and the voltages, plots and stores them, and waits out the rest of the
    /// second. Any failure in it is told and stops the log; no row is written for that cycle.
    void FetchLogSample();

    /// Records until it is stopped: does not return before.
    void logStartClick();
    void logStopClick();
    /// Reads the whole table back into the curves, and scales the value axes whose combos stand on "Default".
    void logRefreshClick();
    void logSaveClick();
    void logOpenClick();
    void logDeleteClick();
    void logPrintClick();
    void cmdExportClick();
    void cmdOKDataLogFileClick();
    void cmdCancelDataLogFileClick();
    /// Copies the log selected in `lstLogMain` back into the live table and shows it. Nothing without a selection.
    void OpenDataLog();
    /// Deletes the log selected in `listLogDel`, if the operator agrees.
    void DeleteDataLog();
    void cmbXLengthClick();
    void cmbYVoltageClick();
    void cmbYCurrentClick();
    void cbPlotClick(int index);
    void optGraphModeClick(int index);
    void graphLogCursorChange(double x, double y);
    void TimerDataLogTimer();

private:
    void createLayout();
    void wire();
    QWidget* toolBar();
    QWidget* graphRow();
    QWidget* graphHandles();
    void arrangeChannels();
    void arrangeCursorFrame();

    void rebindDataLog();
    void clearChannel(int channel);
    void showChannel(int channel);
    void setValueAxis(const ComboBox& combo, int axis);
    void readCursorOff(int plot);
    void clearChannelForRefresh(int channel);
    void checkChannel(int channel);
    void readSeries();
    void plotSeries();
    void scaleValueAxes();
    void saveLog();
    QString nextLogID() const;
    void offerLogs(ListBox& list, const QString& title, const QString& tag, const QStringList& fields);
    bool deleteLog(const QString& identifier);
    void sampleCycle();
    ReplyList fetchList(const QString& query);
    QString askAgain(const QString& query);
    void waitOutTheSecond();
    /// Throws `RuntimeFailure` 9 for a plot that there is none of.
    CheckBox& boxOf(int plot);
    QString icon(const char* literal) const { return paths_.inApplication(QLatin1String(literal)); }

    Clock& clock_;
    Dialogs& dialogs_;
    const Paths& paths_;
    ORBCtrl& CORB_;
    const std::unique_ptr<Database>& dbMain_;
};

} // namespace orb
