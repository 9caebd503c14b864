// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "check_box.h"
#include "clock.h"
#include "combo_box.h"
#include "data_file_dialog.h"
#include "database.h"
#include "dialogs.h"
#include "floating_frame.h"
#include "label.h"
#include "list_box.h"
#include "memory_cell.h"
#include "orb_ctrl.h"
#include "paths.h"
#include "picture_button.h"
#include "prog_file_record.h"
#include "text_box.h"

#include <array>
#include <map>

namespace orb {

class ChainArea;

/// The page on which the operator edits the instrument's programs: 12 programs of 10 steps, and the chain in which they
/// run. The cells of the grid are the only place that holds the steps, each in its tag; a value reaches a cell through
/// the controls of `frameMemorySetting` alone.
class ProgramPage final : public Frame {
public:
    /// All references must outlive the page. `dbMain` must be open before the history is used. The next opening of a file
    /// takes the path in `sPendingProgFile` without asking, and empties it.
    ProgramPage(Clock& clock, Dialogs& dialogs, const Paths& paths, ORBCtrl& CORB, Database& dbMain,
                DataFileDialog& FrameDataFileOperate, QString& sPendingProgFile);

    static constexpr int programCount = 12;
    static constexpr int stepCount = 10;

    PictureButton progOpen{QStringLiteral("Open File")};
    PictureButton progLoad{QStringLiteral("Import")};
    PictureButton progSend{QStringLiteral("Transfer")};
    PictureButton progSave{QStringLiteral("Save")};
    PictureButton progOpenDB{QStringLiteral("History")};
    PictureButton progDelete{QStringLiteral("Delete")};
    PictureButton progReset{QStringLiteral("Clear")};
    PictureButton progOrder{QStringLiteral("Program Chain")};

    std::array<Label, 3> lblProgram{Label(QStringLiteral("Program")), Label(QStringLiteral("Sequence")),
                                    Label(QStringLiteral("Start:"))};
    /// Cell n is step n % 10 + 1 of program n / 10 + 1. Its tag holds the 13 values of the step, joined by commas; a cell
    /// is filled while its tag is not empty.
    std::array<MemoryCell, programCount * stepCount> txtMemSetting;
    /// Boxes 0 to 11: the program that follows program i + 1. Box 12: the program at which the chain starts.
    std::array<ComboBox, programCount + 1> cmbProgChain;

    FloatingFrame frameMemorySetting{
        QStringLiteral("Program Sequence")}; ///< its tag is the number of the cell that it edits
    FloatingFrame fraProgramOrder{QStringLiteral("Change Program Chain")};
    FloatingFrame frameProgress{QStringLiteral("Progress ")};

    /// By the index that each has; the indexes have gaps.
    std::map<int, Label> lblMemory;
    std::array<Label, 4> lblMemoryLim{Label(QStringLiteral("0.1  -  60")), Label(QStringLiteral("0.1  -  60")),
                                      Label(QStringLiteral("0.1  -  119.9")), Label(QStringLiteral("0.1  -  60"))};
    ComboBox cmbMemory;
    ComboBox cmbMemoryProg;
    ComboBox cmbMemorySequence;
    ComboBox cmbMemRun;
    std::array<CheckBox, 4> chkMemSet; ///< On-Timer, Off-Time, P/F-Time, Short Time
    std::array<TextBox, 4> txtProgMem; ///< the same times in seconds, or "Off"
    TextBox txtMemCH;                  ///< the channels to short as a sum, 1 for CH1 to 128 for CH8
    std::array<CheckBox, 8> chkShortCH{CheckBox(QStringLiteral("CH1")), CheckBox(QStringLiteral("CH2")),
                                       CheckBox(QStringLiteral("CH3")), CheckBox(QStringLiteral("CH4")),
                                       CheckBox(QStringLiteral("CH5")), CheckBox(QStringLiteral("CH6")),
                                       CheckBox(QStringLiteral("CH7")), CheckBox(QStringLiteral("CH8"))};
    PictureButton cmdMemSetOK{QStringLiteral("OK")};
    PictureButton cmdMemSetCancel{QStringLiteral("Cancel")};

    std::array<ListBox, 2> lstProgramOrder; ///< the programs outside of the chain, and the chain in its order
    PictureButton cmdProgAdd{QStringLiteral("Add >")};
    PictureButton cmdProgRemove{QStringLiteral("< Remove")};
    PictureButton cmdProgUp{QStringLiteral("Up")};
    PictureButton cmdProgDown{QStringLiteral("Down")};
    CheckBox chkProgLoop{QStringLiteral("Loop")};
    TextBox txtProgLoopStart; ///< has no effect beyond itself
    PictureButton cmdProgOrderExit{QStringLiteral("OK")};
    PictureButton cmdProgOrderCancel{QStringLiteral("Cancel")};

    ProgressBar pbProg{programCount};
    ProgressBar pbSeq{stepCount};

    /// Sets the page up with empty cells and a chain of P01 alone, whatever it held.
    void InitProgramPage();
    void ClearProgramCells();
    /// Spreads the values of a step over the controls. A text of any other count of fields changes nothing; a value that
    /// a control refuses is reported and ends the routine, with the values before it applied.
    void ShowMemSetting(const QString& text);
    /// Opens or deletes the stored program that is selected in the list dialog.
    void ApplyProgramHistory();
    /// Carry all steps and links over the command link, one command at a time, 100 ms after each. The start of the chain
    /// has no command.
    void ReadProgramByCommands();
    void WriteProgramByCommands();

    void progOpenClick();
    void progLoadClick();
    void progSendClick();
    void progSaveClick();
    void progOpenDBClick();
    void progDeleteClick();
    void progResetClick();
    void progOrderClick();
    void txtMemSettingMouseDown(int index);
    void cmdMemSetOKClick();
    void cmdMemSetCancelClick();
    void chkMemSetClick(int index);
    void txtProgMemChange(int index);
    /// 13 sets the boxes from the sum. Throws `RuntimeFailure` 340 for a sum of 256 and more.
    void txtMemCHKeyPress(int code);
    void chkShortCHClick(int index);
    void lstProgramOrderClick(int index);
    void cmdProgAddClick();
    void cmdProgRemoveClick();
    void cmdProgUpClick();
    void cmdProgDownClick();
    void chkProgLoopClick();
    /// Writes the order of the right list into the links. Throws `RuntimeFailure` 340 while that list is empty.
    void cmdProgOrderExitClick();
    void cmdProgOrderCancelClick();

    QSize minimumSizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void createLayout();
    QWidget* toolBar();
    QWidget* chainArea();
    QLayout* startRow();
    QLayout* chainGrid();
    QLayout* legend();
    QLayout* grid();
    void layoutMemorySetting();
    QLayout* stepRows();
    QLayout* timesGrid();
    QLayout* channelRows();
    void layoutProgramOrder();
    QLayout* orderButtons();
    void layoutProgress();
    void fitFrames();
    void wire();
    void wireButtons();
    void wireMemorySetting();
    void wireProgramOrder();

    void openByOperator(int cell);
    void moveFocus(int cell, int rows, int columns);
    void focusEditedCell();
    void markEditedCell();

    void initChain();
    void applyFields(const QStringList& fields);
    QString missingValue() const;
    QString packedSetting() const;
    void fillCell(MemoryCell& cell);

    void selectInLeftList(const QString& item);
    void copyLoopStart();
    void moveInRightList(int from, int to);

    QString fileToOpen();
    void spreadRecord();
    void spreadStep(int program, int step);
    void enableSendIfConnected();

    static constexpr int enterKey = 13; // the code of a pressed key
    // Where a step is edited, in twips. The grid of cells begins below it, so that the frame covers no cell.
    static constexpr int memorySettingLeft = 1620;
    static constexpr int memorySettingTop = 2000;

    static int numberOfCell(int program, int step) { return (program - 1) * stepCount + step - 1; }
    void beginProgress(const QString& caption);
    void showProgramProgress(int program);
    void showStepProgress(int step);
    void showFrameOf(int program, int step);
    void endProgress();
    bool fetchImage(ProgFileRecord& image);
    void collectImage(ProgFileRecord& image);
    void collectStep(ProgramBlock& block, std::size_t step);

    bool agreesToRead();
    void sendAndWait(const QString& command);
    QString query(const QString& command);
    void readProgram(int program);
    void readStep(int program, int step);
    void writeProgram(int program);
    void writeStep(int program, int step);

    void storeCase(const QString& identifier);
    void offerCases(const QString& tag, const QColor& color, const QString& title);
    void openCase(const QString& identifier);
    void openCells(const QString& identifier);
    void openChain(const QString& identifier);
    void deleteCase(const QString& identifier);

    QString icon(const char* literal) const { return paths_.inApplication(QLatin1String(literal)); }

    Clock& clock_;
    Dialogs& dialogs_;
    const Paths& paths_;
    ORBCtrl& CORB_;
    Database& dbMain_;
    DataFileDialog& FrameDataFileOperate_;
    QString& sPendingProgFile_;
    ChainArea* chainArea_ = nullptr; ///< owned by the page
    Label lblHint_{QStringLiteral("Click a cell to set a step; or go to it with the arrow keys and press Enter. "
                                  "Program Chain sets the order in lists.")};
    ProgFileRecord record_{}; ///< the file that was read last; what a short file lacks keeps its bytes
};

} // namespace orb
