// SPDX-License-Identifier: GPL-3.0-or-later
#include "prog_file_fields.h"
#include "program_page.h"
#include "record_file.h"

#include <utility>

namespace orb {

/// The path that waits, which is taken once, or the one that the operator selects. After a Cancel the dialog still holds
/// the name of its last use.
QString ProgramPage::fileToOpen()
{
    if (!sPendingProgFile_.isEmpty())
        return std::exchange(sPendingProgFile_, {});
    CommonDialog& dialog = dialogs_.CommonDialog1;
    dialog.title = QStringLiteral("Select a File to Open");
    dialog.filter = QStringLiteral("ORB3000 Sequence Files (*.B)|*.b"); // it says Sequence, and is meant to
    dialog.initialDirectory = paths_.applicationDirectory();
    dialogs_.showOpen();
    return dialog.fileName;
}

void ProgramPage::progOpenClick()
{
    const QString name = fileToOpen();
    if (name.isEmpty()) {
        dialogs_.message(QStringLiteral("No file was selected."));
        return;
    }
    readRecord(name, record_);
    if (record_.CheckSum != computedCheckSum(record_)) {
        dialogs_.message(QStringLiteral("Checksum Error"));
        return;
    }
    ClearProgramCells();
    spreadRecord();
    frameMemorySetting.setVisible(false);
    enableSendIfConnected();
}

void ProgramPage::spreadRecord()
{
    for (int program = 1; program <= programCount; ++program) {
        for (int step = 1; step <= stepCount; ++step)
            spreadStep(program, step);
        element(cmbProgChain, program - 1).setListIndex(record_.ChainNext[static_cast<std::size_t>(program - 1)]);
    }
    cmbProgChain.back().setListIndex(record_.ChainStart);
}

/// Passes the values of a step through the controls, as if the operator had typed them. The boxes `chkMemSet` are not
/// set: they keep what the step before left, and the times are tested under that state.
void ProgramPage::spreadStep(int program, int step)
{
    const ProgramBlock& block = record_.programs[static_cast<std::size_t>(program - 1)];
    const auto at = static_cast<std::size_t>(step - 1);
    frameMemorySetting.bringToFront();
    frameMemorySetting.setTag(QString::number(numberOfCell(program, step)));
    cmbMemoryProg.setListIndex(program - 1);
    cmbMemorySequence.setListIndex(step - 1);
    cmbMemory.setListIndex(block.Memory[at]);
    cmbMemRun.setListIndex(block.RunMode[at]);
    txtProgMem[0].setText(secondsText(block.OnTimer[at]));
    txtProgMem[1].setText(secondsText(block.OffTime[at]));
    txtProgMem[2].setText(secondsText(block.PFTime[at]));
    txtProgMem[3].setText(secondsText(block.ShortTime[at]));
    txtMemCH.setText(QString::number(block.ShortCH[at]));
    txtMemCHKeyPress(enterKey);
    clock_.yield();
    cmdMemSetOKClick();
}

} // namespace orb
