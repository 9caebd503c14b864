// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data_control.h"
#include "database.h"
#include "db_grid.h"
#include "device_values.h"
#include "graph.h"
#include "label.h"
#include "list_box.h"
#include "orb_ctrl.h"
#include "paths.h"
#include "picture_button.h"
#include "seq_file_record.h"

namespace orb {

class Clock;
struct PointValues;

/// The editor of one sequence. A file is read into `record` and from there into two tables, which the operator edits in
/// the grids and from which the sequence is sent to the instrument. The tables are emptied whenever the page is set up.
class SequencePage final : public Frame {
public:
    /// All references must outlive the page. `dbMain` must be open before `ResetSequencePage`; the grids' data controls
    /// open their database through `wsMain`. `plottedValues` is the buffer of the simulation's curve, which the data log
    /// uses for its first one.
    SequencePage(Clock& clock, Dialogs& dialogs, const Paths& paths, ORBCtrl& CORB, Workspace& wsMain, Database& dbMain,
                 QString& sPendingSeqFile, std::vector<double>& plottedValues);

    SeqFileRecord record{};    ///< the bytes that were read last, whether or not their checksum was right
    DeviceValues deviceValues; ///< with the module, the mode and the range of the sequence
    QString sSeqVersion;
    QString sMasterFirmware;
    QString sVRange;
    QString sLoopStart;   ///< counted from 1
    QString sLoopEnd;     ///< counted from 1
    QString sSeqFileName; ///< the file that `seqDelete` deletes; nothing sets it

    PictureButton seqOpen{QStringLiteral("Open Sequence File")};
    PictureButton seqSave{QStringLiteral("Save Sequence File")};
    PictureButton seqDelete{QStringLiteral("Delete Sequence File")};
    PictureButton seqSend{QStringLiteral("Transfer Sequence to ORB")};
    PictureButton SeqLoad{QStringLiteral("Load Sequence from ORB")};
    PictureButton seqPlot{QStringLiteral("Sequence Simulate")}; ///< hidden, and nothing shows it

    DataControl datORBSeqSet;
    DBGrid DBGridHead;
    DataControl datORB;
    DBGrid DBGridSequence;
    ListBox lstSequence; ///< six lines about the loaded file, empty without one
    Graph graphSeq;

    /// Sets the page up: empties the list and both tables, and brings pictures and captions up to date. Throws what the
    /// database throws.
    void ResetSequencePage();

    /// Reads the file `sPendingSeqFile`, or asks for one, and adds its settings and points to the tables. Only the points
    /// up to the end of the loop are added, and with fewer than 120 of them it ends there: `datORB` is not refreshed, and
    /// the buttons keep their state. Throws what the file and the database throw, and 13 at a point whose time base is
    /// undefined.
    void seqOpenClick();
    /// Writes `record` as it is to the file "test.a" in the application directory. Failures are ignored.
    void seqSaveClick();
    /// Sets the page up. The file that was opened stays.
    void seqDeleteClick();
    /// Sends the settings and the points of the loop, a command every 200 ms, and returns when all are sent.
    void seqSendClick();
    /// Fetches the instrument's sequence and opens it. A file that an earlier fetch left is opened where this one fails.
    void SeqLoadClick();
    /// Shows the currents over time, or hides them again.
    void seqPlotClick();
    void graphSeqClick();
    /// The time of the curve's first point, for a first point of so many seconds: with a fraction below one second, so
    /// that the axis shows fractions.
    static QString simulationStart(double firstDuration);

private:
    void createLayout();
    void bindGrids();
    QWidget* toolBar();
    QWidget* tables();
    void wire();
    void rebind(DataControl& control, const QString& table);
    void setTransferPictures();

    QString fileToOpen();
    void decodeRecord();
    void insertHead();
    bool insertPoints();
    PointValues pointValues(int index) const;
    void enableButtons();

    QString modeCommand() const;
    bool hasHighRange() const;
    void sendAndWait(const QString& command);
    QString sendSetting(const QString& label, const QString& command, const QString& ifMissing = {});
    void sendPoints(const QString& first, const QString& last);
    void allowSimulation();
    void preventSimulation();
    void plotPoints();
    QString icon(const char* literal) const { return paths_.inApplication(QLatin1String(literal)); }

    Clock& clock_;
    Dialogs& dialogs_;
    const Paths& paths_;
    ORBCtrl& CORB_;
    Database& dbMain_;
    QString& sPendingSeqFile_;
    std::vector<double>& plottedValues_;
};

} // namespace orb
