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
#include "slide.h"
#include "text_box.h"
#include "timer.h"

#include <QBoxLayout>

namespace orb {

struct HighestValues;

/// The page that records the current and the voltage of every channel about once a second, and plots, shows, saves and
/// exports the current log: the rows of the table `DataMeasure`.
class DataLogPage final : public Frame {
public:
    /// All references must outlive the page. `dbMain` must be open before `InitDataLog`; the bound grid's data control
    /// opens its database through `wsMain`.
    DataLogPage(Clock& clock, Dialogs& dialogs, const Paths& paths, ORBCtrl& CORB, Workspace& wsMain, Database& dbMain);

    bool bLogRunning = false;      ///< the loop of the recording goes on
    bool bLogStarted = false;      ///< a recording was started in this run
    std::int32_t lLogRecNo = 0;    ///< `SeqNo` of the next row; below 1 there is no log to export
    std::int16_t iLogChannels = 0; ///< channels of the current log, 0 until one is started or opened
    /// The data of the last refresh: series a feeds plot a+1. Valid only right after a refresh.
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
    Frame FrameGraphOperations{QStringLiteral("Graph Operations")};
    Slide GraphMode; ///< can be moved, and has no effect
    Frame FrameCursor{QStringLiteral("Cursor Information")};
    TextBox XPosition;
    TextBox YPosition;
    Label lblYUnit; ///< the unit of `YPosition`
    TextBox AmplitudeVal;
    TextBox PeriodVal;
    ListBox lstChannel;
    ListBox lstWave;

    Graph graphLog;
    DataControl DataLog;
    DBGrid DBGrid1;
    /// Shared with the page of the stored programs: each page shows it on itself.
    DataFileDialog FrameDataFileOperate;
    /// What the dialog's OK does when its tag is "PROCROGRAM".
    std::function<void()> ApplyProgramHistory;
    Timer TimerDataLog; ///< has no interval and never ticks

    /// Sets the page up, with an empty live table. Called once, while the main form loads. Throws what the database
    /// throws.
    void InitDataLog();
    /// Updates `logStart` from the link; it stays disabled while a recording runs.
    void RefreshDataLogPage();
    /// One sample cycle: queries the currents and the voltages, plots and stores them, and sleeps for the rest of the
    /// second. A failure is shown and stops the log; no row is written for that cycle.
    void FetchLogSample();

    /// Records, and returns when the recording has ended.
    void logStartClick();
    void logStopClick();
    /// Reads the whole table back into the curves, and scales the value axes whose combos are at "Default".
    void logRefreshClick();
    void logSaveClick();
    void logOpenClick();
    void logDeleteClick();
    void logPrintClick();
    void cmdExportClick();
    void cmdOKDataLogFileClick();
    void cmdCancelDataLogFileClick();
    /// Copies the log selected in `lstLogMain` back into the live table and shows it; does nothing without a selection.
    void OpenDataLog();
    /// Deletes the log selected in `listLogDel` if the operator agrees.
    void DeleteDataLog();
    void cmbXLengthClick();
    void cmbYVoltageClick();
    void cmbYCurrentClick();
    /// Both throw `RuntimeFailure` 340 for an index that has no control; `optGraphModeClick` treats 3 like 2.
    void cbPlotClick(int index);
    void optGraphModeClick(int index);
    void graphLogCursorChange(double x, double y);
    void TimerDataLogTimer();

    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;

private:
    void createLayout();
    void placeBoxes();
    int heightOfSecondBox() const;
    void bindGrid();
    QWidget* toolBar();
    QLayout* graphRow();
    QLayout* graphControls();
    QLayout* gridRow();
    void layoutChannels();
    void layoutCursorFrame();
    void wire();

    void emptyLog();
    void rebindDataLog();
    /// Throws `RuntimeFailure` 340 for a plot that has no box.
    CheckBox& boxOf(int plot);
    void clearChannel(int channel);
    void showChannel(int channel);
    void setValueAxis(const ComboBox& combo, int axis);
    void attachCursor(int plot);
    void clearReadOut(const QString& unit);

    void beginRecording();
    void sampleCycle();
    QStringList fetchList(const QString& query);
    QString askAgain(const QString& query);
    void waitOutTheSecond();

    HighestValues readSeries();
    void plotSeries();
    void scaleValueAxes(const HighestValues& read);
    HighestValues queryHighest() const;

    void saveLog();
    QString nextLogID() const;
    void offerLogs(ListBox& list, const QString& title, const QString& tag, const QStringList& fields);
    bool deleteLog(const QString& identifier);
    void exportTo(const QString& name);
    QString icon(const char* literal) const { return paths_.inApplication(QLatin1String(literal)); }

    Clock& clock_;
    Dialogs& dialogs_;
    const Paths& paths_;
    ORBCtrl& CORB_;
    Database& dbMain_;
    QBoxLayout* side_ = nullptr; ///< the boxes beside the graph; owned by the page
    bool loopIsRunning_ = false; ///< the loop of a recording is on the stack
};

} // namespace orb
