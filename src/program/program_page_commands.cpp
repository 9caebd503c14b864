// SPDX-License-Identifier: GPL-3.0-or-later
#include "program_page.h"

namespace orb {

namespace {

constexpr int waitMs = 100;
const QString askWithoutLink = QStringLiteral("Device is not Connected, Continue?");

} // namespace

void ProgramPage::sendAndWait(const QString& command)
{
    CORB_.SendCommand(command);
    clock_.sleep(waitMs);
}

/// The reply of that moment, which may be empty or late.
QString ProgramPage::query(const QString& command)
{
    sendAndWait(command);
    return CORB_.Reply();
}

/// Asks without a link, and where cell 0 holds a step. After the Yes the cells keep their numbers until each is filled.
bool ProgramPage::agreesToRead()
{
    const auto isYes = [this](const QString& question) {
        return dialogs_.message(question, Icon::None, Buttons::YesNo) == Answer::Yes;
    };
    if (!CORB_.IsConnected() && !isYes(askWithoutLink))
        return false;
    if (txtMemSetting[0].tag().isEmpty())
        return true;
    if (!isYes(QStringLiteral("Loading setting from device will reset current Program content, Continue?")))
        return false;
    for (MemoryCell& cell : txtMemSetting) {
        cell.setTag({});
        cell.setBackColor(Qt::white);
        cell.setForeColor(Qt::black);
    }
    return true;
}

void ProgramPage::ReadProgramByCommands()
{
    if (!agreesToRead())
        return;
    beginProgress(QStringLiteral("The Progress of Loading Program Setting"));
    CORB_.SendCommand(QStringLiteral(":UTIL:REM:MODE FAST"));
    for (int program = 1; program <= programCount; ++program)
        readProgram(program);
    CORB_.SendCommand(QStringLiteral(":UTIL:REM:MODE 0"));
    endProgress();
    progSaveClick();
}

void ProgramPage::readProgram(int program)
{
    showProgramProgress(program);
    clock_.yield();
    sendAndWait(QStringLiteral(":PROG:FILE %1").arg(program));
    const QString next = query(QStringLiteral(":PROG:CHA?"));
    element(cmbProgChain, program - 1).setText(next);
    for (int step = 1; step <= stepCount; ++step) {
        showStepProgress(step);
        clock_.yield();
        readStep(program, step);
    }
}

/// A reply goes into its control as it stands.
void ProgramPage::readStep(int program, int step)
{
    sendAndWait(QStringLiteral(":PROG:SEQ %1").arg(step));
    showFrameOf(program, step);
    cmbMemorySequence.setText(QString::number(step));
    cmbMemory.setText(query(QStringLiteral(":PROG:MEM?")));
    cmbMemRun.setText(query(QStringLiteral(":PROG:SEQ:MODE?")));
    txtProgMem[0].setText(query(QStringLiteral(":PROG:ONT?")));
    txtMemCH.setText(query(QStringLiteral(":PROG:SEQ:SHOR:CHAN?")));
    txtMemCHKeyPress(enterKey);
    txtProgMem[1].setText(query(QStringLiteral(":PROG:OFFT?")));
    txtProgMem[2].setText(query(QStringLiteral(":PROG:PFT?")));
    txtProgMem[3].setText(query(QStringLiteral(":PROG:SEQ:SHOR:TIME?")));
    cmdMemSetOKClick();
}

/// Without a link it goes on, whatever the answer.
void ProgramPage::WriteProgramByCommands()
{
    if (!CORB_.IsConnected())
        dialogs_.message(askWithoutLink, Icon::None, Buttons::YesNo);
    beginProgress(QStringLiteral("The Progress of Updating Program Setting"));
    for (int program = 1; program <= programCount; ++program)
        writeProgram(program);
    endProgress();
}

void ProgramPage::writeProgram(int program)
{
    showProgramProgress(program);
    clock_.yield();
    sendAndWait(QStringLiteral(":PROG:FILE %1").arg(program));
    const QString next = element(cmbProgChain, program - 1).text().trimmed();
    sendAndWait(QStringLiteral(":PROG:CHA ") + (next.isEmpty() ? QStringLiteral("0") : next));
    for (int step = 1; step <= stepCount; ++step) {
        showStepProgress(step);
        clock_.yield();
        writeStep(program, step);
    }
}

/// An empty cell leaves the controls as they are, so its step is sent with the values of the step before.
void ProgramPage::writeStep(int program, int step)
{
    const auto secondsOf = [this](std::size_t time) { return txtProgMem[time].text().trimmed() + QLatin1Char('S'); };
    sendAndWait(QStringLiteral(":PROG:SEQ %1").arg(step));
    showFrameOf(program, step);
    ShowMemSetting(element(txtMemSetting, numberOfCell(program, step)).tag());
    sendAndWait(QStringLiteral(":PROG:MEM ") + cmbMemory.text());
    sendAndWait(QStringLiteral(":PROG:SEQ:MODE ") + cmbMemRun.text());
    sendAndWait(QStringLiteral(":PROG:ONT ") + secondsOf(0));
    sendAndWait(QStringLiteral(":PROG:SEQ:SHOR:CHAN ") + txtMemCH.text());
    sendAndWait(QStringLiteral(":PROG:OFFT ") + secondsOf(1));
    // The Off-Time box again: the instrument's :PROG:PFT takes it, while the query fills the P/F-Time box.
    sendAndWait(QStringLiteral(":PROG:PFT ") + secondsOf(1));
    sendAndWait(QStringLiteral(":PROG:SEQ:SHOR:TIME ") + secondsOf(3));
    CORB_.SendCommand(QStringLiteral(":PROG:SAVE"));
}

} // namespace orb
