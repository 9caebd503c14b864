// SPDX-License-Identifier: GPL-3.0-or-later
#include "prog_file_fields.h"
#include "program_page.h"
#include "record_file.h"
#include "values.h"

namespace orb {

namespace {

const QString askWithoutLink = QStringLiteral("Device is not Connected, Continue?");
const QString checksumError = QStringLiteral("Checksum Error");

void deleteIfThere(const QString& literal)
{
    if (fileExists(literal))
        deleteFile(literal);
}

} // namespace

/// Without a link nothing happens, whatever the answer.
void ProgramPage::progLoadClick()
{
    if (!CORB_.IsConnected()) {
        dialogs_.message(askWithoutLink, Icon::None, Buttons::YesNo);
        return;
    }
    deleteIfThere(staging::program);
    CORB_.FetchProgramFile();
    sPendingProgFile_.clear();
    if (!fileExists(staging::program)) {
        dialogs_.message(QStringLiteral("No file was loaded from device."));
        return;
    }
    sPendingProgFile_ = staging::program;
    progOpenClick();
}

/// The base is the instrument's file of this moment, so that all that the page knows nothing of survives.
void ProgramPage::progSendClick()
{
    if (!CORB_.IsConnected() && dialogs_.message(askWithoutLink, Icon::None, Buttons::YesNo) != Answer::Yes)
        return;
    ProgFileRecord image{};
    if (!fetchImage(image))
        return;
    beginProgress(QStringLiteral("The Progress of Updating Program Setting"));
    collectImage(image);
    endProgress();
    if (!finishImage(image)) {
        dialogs_.message(checksumError);
        return;
    }
    deleteIfThere(staging::programUpload);
    writeRecord(staging::programUpload, image);
    CORB_.SendProgramFile();
}

/// False without a file, which is not reported, and for one whose checksum is wrong.
bool ProgramPage::fetchImage(ProgFileRecord& image)
{
    deleteIfThere(staging::program);
    CORB_.FetchProgramFile();
    if (!fileExists(staging::program))
        return false;
    readRecord(staging::program, image);
    const bool isGood = image.CheckSum == computedCheckSum(image);
    if (!isGood)
        dialogs_.message(checksumError);
    return isGood;
}

void ProgramPage::collectImage(ProgFileRecord& image)
{
    for (int program = 1; program <= programCount; ++program) {
        const auto at = static_cast<std::size_t>(program - 1);
        showProgramProgress(program);
        for (int step = 1; step <= stepCount; ++step) {
            showStepProgress(step);
            clock_.yield();
            showFrameOf(program, step);
            ShowMemSetting(element(txtMemSetting, numberOfCell(program, step)).tag());
            collectStep(image.programs[at], static_cast<std::size_t>(step - 1));
        }
        image.ChainNext[at] = toByte(cmbProgChain[at].listIndex());
    }
    image.ChainStart = toByte(cmbProgChain.back().listIndex());
}

/// An empty cell has left the controls as they were, so its step gets the values of the step before.
void ProgramPage::collectStep(ProgramBlock& block, std::size_t step)
{
    block.Memory[step] = toByte(numericValue(cmbMemory.text()) - 1);
    block.RunMode[step] = toByte(cmbMemRun.listIndex());
    block.OnTimer[step] = packedSeconds(txtProgMem[0].text());
    block.OffTime[step] = packedSeconds(txtProgMem[1].text());
    block.PFTime[step] = packedSeconds(txtProgMem[2].text());
    block.ShortTime[step] = packedSeconds(txtProgMem[3].text());
    block.ShortCH[step] = toByte(numericValue(txtMemCH.text()));
}

void ProgramPage::beginProgress(const QString& caption)
{
    frameProgress.setCaption(caption);
    frameProgress.setVisible(true);
    frameProgress.bringToFront();
    pbProg.setValue(0);
    pbSeq.setValue(0);
}

void ProgramPage::showProgramProgress(int program)
{
    pbProg.setValue(program);
    lblMemory.at(5).setCaption(QStringLiteral("Program: %1").arg(program));
}

void ProgramPage::showStepProgress(int step)
{
    pbSeq.setValue(step);
    lblMemory.at(6).setCaption(QStringLiteral("Sequence: %1").arg(step));
}

/// The frame stays in sight during a transfer, as the values pass through its controls.
void ProgramPage::showFrameOf(int program, int step)
{
    frameMemorySetting.bringToFront();
    frameMemorySetting.setVisible(true);
    frameMemorySetting.setCaption(QStringLiteral("Program: [%1] Sequence:[%2]").arg(program).arg(step));
    cmbMemoryProg.setText(QString::number(program));
    frameMemorySetting.setTag(QString::number(numberOfCell(program, step)));
    markEditedCell();
}

void ProgramPage::endProgress()
{
    frameMemorySetting.setVisible(false);
    frameProgress.setVisible(false);
}

} // namespace orb
