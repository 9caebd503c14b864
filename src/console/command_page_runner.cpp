// SPDX-License-Identifier: GPL-3.0-or-later
#include "command_page.h"
#include "is_query.h"
#include "text_file.h"
#include "values.h"

namespace orb {

namespace {
constexpr int pauseMs = 200;
}

/// The link is tested before a run only: a link lost during a run is not noticed.
bool CommandPage::isReady()
{
    if (CORB_.IsConnected())
        return true;
    dialogs_.message(QStringLiteral("Please Connect Device first, and then try again!"), Icon::Critical);
    return false;
}

/// Sends the selected line and logs it; without a selection, an empty line. The reply is read at once, without waiting
/// for it.
void CommandPage::sendSelectedLine()
{
    const QString line = lstCmdPool.selectedText();
    CORB_.SendCommand(line);
    const QString reply = isQuery(line) ? QStringLiteral(" => ") + CORB_.Reply() : QString();
    txtExecLog.appendText(line + reply + QStringLiteral("\r\n"));
}

/// Sends the selected line in single step. A line that selects a channel is followed by the command that displays it.
void CommandPage::sendWithFollowUp()
{
    const QString line = lstCmdPool.selectedText();
    sendSelectedLine();
    const bool selectsChannel = !isQuery(line) && line.contains(QStringLiteral("CHAN"));
    if (isQuery(line) || selectsChannel)
        clock_.sleep(pauseMs);
    if (selectsChannel)
        CORB_.SendCommand(QStringLiteral(":CHAN:DISP"));
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

/// The hidden twin of `cmdStart`: requires a selected line, stays on it, and does not change `cmdStop`.
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
