// SPDX-License-Identifier: GPL-3.0-or-later
#include "program_page.h"

#include <QKeyEvent>

namespace orb {

namespace {

/// The decimal texts from 1 to `last`.
QStringList numbers(int last)
{
    QStringList texts;
    for (int i = 1; i <= last; ++i)
        texts << QString::number(i);
    return texts;
}

void refill(ComboBox& combo, const QStringList& items)
{
    combo.clear();
    combo.addItems(items);
}

} // namespace

ProgramPage::ProgramPage(Clock& clock, Dialogs& dialogs, const Paths& paths, ORBCtrl& CORB, Database& dbMain,
                         DataFileDialog& FrameDataFileOperate, QString& sPendingProgFile)
    : Frame(QStringLiteral("Program")),
      clock_(clock),
      dialogs_(dialogs),
      paths_(paths),
      CORB_(CORB),
      dbMain_(dbMain),
      FrameDataFileOperate_(FrameDataFileOperate),
      sPendingProgFile_(sPendingProgFile)
{
    createLayout();
    wire();
}

void ProgramPage::wire()
{
    wireButtons();
    wireMemorySetting();
    wireProgramOrder();
}

void ProgramPage::wireButtons()
{
    progOpen.onClick = [this] { progOpenClick(); };
    progLoad.onClick = [this] { progLoadClick(); };
    progSend.onClick = [this] { progSendClick(); };
    progSave.onClick = [this] { progSaveClick(); };
    progOpenDB.onClick = [this] { progOpenDBClick(); };
    progDelete.onClick = [this] { progDeleteClick(); };
    progReset.onClick = [this] { progResetClick(); };
    progOrder.onClick = [this] { progOrderClick(); };
}

void ProgramPage::wireMemorySetting()
{
    for (std::size_t i = 0; i < txtMemSetting.size(); ++i) {
        const int cell = static_cast<int>(i);
        txtMemSetting[i].onMouseDown = [this, cell] { openByOperator(cell); };
        txtMemSetting[i].onArrow = [this, cell](int rows, int columns) { moveFocus(cell, rows, columns); };
    }
    for (std::size_t i = 0; i < chkMemSet.size(); ++i) {
        chkMemSet[i].onClick = [this, index = static_cast<int>(i)] { chkMemSetClick(index); };
        txtProgMem[i].onChange = [this, index = static_cast<int>(i)] { txtProgMemChange(index); };
    }
    for (std::size_t i = 0; i < chkShortCH.size(); ++i)
        chkShortCH[i].onClick = [this, index = static_cast<int>(i)] { chkShortCHClick(index); };
    txtMemCH.onKeyPress = [this](int code) { txtMemCHKeyPress(code); };
    cmdMemSetOK.onClick = [this] {
        cmdMemSetOKClick();
        focusEditedCell();
    };
    cmdMemSetCancel.onClick = [this] {
        cmdMemSetCancelClick();
        focusEditedCell();
    };
}

void ProgramPage::wireProgramOrder()
{
    for (std::size_t i = 0; i < lstProgramOrder.size(); ++i)
        lstProgramOrder[i].onClick = [this, index = static_cast<int>(i)] { lstProgramOrderClick(index); };
    cmdProgAdd.onClick = [this] { cmdProgAddClick(); };
    cmdProgRemove.onClick = [this] { cmdProgRemoveClick(); };
    cmdProgUp.onClick = [this] { cmdProgUpClick(); };
    cmdProgDown.onClick = [this] { cmdProgDownClick(); };
    chkProgLoop.onClick = [this] { chkProgLoopClick(); };
    cmdProgOrderExit.onClick = [this] { cmdProgOrderExitClick(); };
    cmdProgOrderCancel.onClick = [this] { cmdProgOrderCancelClick(); };
}

void ProgramPage::InitProgramPage()
{
    refill(cmbMemoryProg, numbers(programCount));
    refill(cmbMemorySequence, numbers(stepCount));
    refill(cmbMemory, numbers(programCount * stepCount));
    refill(cmbMemRun, {QStringLiteral("SKIP"), QStringLiteral("AUTO"), QStringLiteral("MANUAL")});
    initChain();
    ClearProgramCells();
    progLoad.setPicture(icon(CORB_.IsConnected() ? "\\ICON\\SEQOUT.JPG" : "\\ICON\\SEQOUTSTOP.JPG"));
    progLoad.setEnabled(CORB_.IsConnected());
    progSend.setEnabled(false);
    progSend.setPicture(icon("\\ICON\\SEQINTOSTOP.JPG"));
}

/// The tool tips stay.
void ProgramPage::ClearProgramCells()
{
    for (MemoryCell& cell : txtMemSetting) {
        cell.setText({});
        cell.setTag({});
        cell.setForeColor(Qt::black);
        cell.setBackColor(Qt::white);
    }
}

void ProgramPage::progResetClick()
{
    InitProgramPage();
}

/// A file that was opened, or a stored program, can be sent while the instrument is connected.
void ProgramPage::enableSendIfConnected()
{
    progSend.setEnabled(CORB_.IsConnected());
    if (progSend.enabled())
        progSend.setPicture(icon("\\ICON\\SEQINTO.JPG"));
}

/// Escape cancels the frame that is open.
void ProgramPage::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && fraProgramOrder.visible())
        cmdProgOrderCancel.click();
    else if (event->key() == Qt::Key_Escape && frameMemorySetting.visible())
        cmdMemSetCancel.click();
    else
        Frame::keyPressEvent(event);
}

} // namespace orb
