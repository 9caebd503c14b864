// SPDX-License-Identifier: GPL-3.0-or-later
#include "command_page.h"
#include "is_query.h"
#include "text_file.h"
#include "values.h"

namespace orb {

namespace {
constexpr int pauseMs = 200;
}

/// Told at the start alone: a link lost during a run is not noticed.
bool CommandPage::isReady()
{
    if (CORB_.IsConnected())
        return true;
    dialogs_.message(QStringLiteral("Please Connect Device first, and then try again!"), Icon::Critical);
    return false;
}

/// Sends the selected line and logs it. The reply is read at once, with no wait for it.
void CommandPage::sendSelectedLine()
{
    const QString line = lstCmdPool.list(lstCmdPool.listIndex());
    CORB_.SendCommand(line);
    if (isQuery(line))
        txtExecLog.appendText(line + QStringLiteral(" => ") + CORB_.Reply() + QStringLiteral("\r\n"));
    else
        txtExecLog.appendText(line + QStringLiteral("\r\n"));
}

/// One line in single step. A line that chooses a channel is followed by the instrument's own display of it.
void CommandPage::sendWithFollowUp()
{
    const QString line = lstCmdPool.selectedText();
    sendSelectedLine();
    if (isQuery(line)) {
        clock_.sleep(pauseMs);
    } else if (line.contains(QStringLiteral("CHAN"))) {
        clock_.sleep(pauseMs);
        CORB_.SendCommand(QStringLiteral(":CHAN:DISP"));
    }
}

void CommandPage::runStep()
{
    if (lstCmdPool.listCount() == 0)
        return inform(QStringLiteral("Please choose an item of Left side and put it into Right side! "));
    if (lstCmdPool.listIndex() < 0)
        lstCmdPool.setListIndex(0);
    sendWithFollowUp();
    const int next = lstCmdPool.listIndex() + 1;
    lstCmdPool.setListIndex(next == lstCmdPool.listCount() ? 0 : next);
}

void CommandPage::runRepeat()
{
    const int count = lstCmdPool.listCount(); // lines added during the run are not reached
    std::int16_t position = 0;
    lstCmdPool.setListIndex(0);
    while (chkRepeat.value() == CheckBox::Checked) {
        sendSelectedLine();
        position = toInteger(position < count - 1 ? position + 1 : 0);
        lstCmdPool.setListIndex(position);
        txtExecLog.moveCaretToEnd();
        clock_.yield();
        clock_.sleep(pauseMs);
    }
}

void CommandPage::cmdStartClick()
{
    if (!isReady())
        return;
    if (chkRepeat.value() != CheckBox::Checked)
        return runStep();
    cmdStop.setEnabled(true);
    cmdStop.setPicture(icon("\\ICON\\B4STOP-A.JPG"));
    runRepeat();
}

/// The hidden twin of `cmdStart`: it demands a selected line, stays on it, and leaves `cmdStop` alone.
void CommandPage::cmdGoClick()
{
    if (!isReady())
        return;
    if (chkRepeat.value() == CheckBox::Checked)
        return runRepeat();
    if (lstCmdPool.listIndex() < 0)
        return inform(QStringLiteral("Please choose an item of right side "));
    sendWithFollowUp();
}

void CommandPage::cmdStopClick()
{
    chkRepeat.setValue(CheckBox::Unchecked);
    cmdStart.setEnabled(true);
    cmdStop.setEnabled(false);
    cmdStop.setPicture(icon("\\ICON\\B4STOP.JPG"));
}

void CommandPage::chkRepeatClick()
{
    if (chkRepeat.value() == CheckBox::Checked) {
        chkRepeat.setCaption(QStringLiteral("Repeat"));
        return;
    }
    cmdStopClick();
    chkRepeat.setCaption(QStringLiteral("Single Step"));
}

void CommandPage::cmdSaveResultClick()
{
    if (txtExecLog.text().isEmpty())
        return inform(QStringLiteral("Please Run Commandsfirst!"));
    if (!askForFile(false, QStringLiteral("ORB Command Log文件(*.log)|*.log"))) {
        dialogs_.message(QStringLiteral("ORB Command Log saved Failed as User Cancel Opeation!"));
        return;
    }
    const QString name = dialogs_.CommonDialog1.fileName;
    OutputFile file(name);
    file.writeLine(txtExecLog.text());
    file.close();
    inform(QStringLiteral("ORB Command Log saved OK (FileName:") + name + QStringLiteral(")!"));
}

} // namespace orb
