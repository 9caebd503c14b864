// SPDX-License-Identifier: GPL-3.0-or-later
#include "command_page.h"
#include "input_file.h"
#include "is_query.h"
#include "text_file.h"

namespace orb {

namespace {

const QString listFilter = QStringLiteral("ORB Command Log文件(*.scp)|*.scp");
const QString showsList = QStringLiteral("Show CMD");
const QString showsLog = QStringLiteral("Show Log");

} // namespace

void CommandPage::cmdInsertClick()
{
    const QString entry = lstCommand.selectedText();
    if (chkSend.value() == CheckBox::Unchecked)
        lstCmdPool.addItem(isQuery(entry) ? entry : entry + QLatin1Char('?'));
    else if (txtValue.text().isEmpty())
        txtValue.setFocus();
    else if (isQuery(entry))
        inform(QStringLiteral("This is Query Command!"));
    else
        lstCmdPool.addItem(entry + QLatin1Char(' ') + txtValue.text().trimmed());
}

/// After a move no line is selected.
void CommandPage::moveSelectedLine(int step)
{
    const int index = lstCmdPool.listIndex();
    const QString line = lstCmdPool.selectedText();
    lstCmdPool.removeItem(index);
    lstCmdPool.insertItem(line, index + step);
}

void CommandPage::cmdUpClick()
{
    if (lstCmdPool.listIndex() < 1)
        return inform(QStringLiteral("Please choose an item of right side or It is the Top one!"));
    moveSelectedLine(-1);
}

void CommandPage::cmdDownClick()
{
    const int index = lstCmdPool.listIndex();
    if (index < 0 || index >= lstCmdPool.listCount() - 1)
        return inform(QStringLiteral("Please choose an item of right side or It is the Last one!"));
    moveSelectedLine(1);
}

void CommandPage::cmdDeleteClick()
{
    if (lstCmdPool.listIndex() >= 0)
        lstCmdPool.removeItem(lstCmdPool.listIndex());
}

void CommandPage::txtValueGotFocus()
{
    if (!txtValue.text().isEmpty())
        txtValue.selectAll();
}

/// Shows the file dialog in the application directory. False on Cancel, which the page takes as an empty name.
bool CommandPage::askForFile(bool toOpen, const QString& filter)
{
    CommonDialog& dialog = dialogs_.CommonDialog1;
    dialog.initialDirectory = paths_.inApplication(QStringLiteral("\\"));
    dialog.filter = filter;
    const bool accepted = toOpen ? dialogs_.showOpen() : dialogs_.showSave();
    return accepted && !dialog.fileName.isEmpty();
}

void CommandPage::cmdOpenSCPIClick()
{
    if (!askForFile(true, listFilter))
        return;
    lstCmdPool.clear();
    InputFile file(dialogs_.CommonDialog1.fileName);
    QStringList lines;
    while (!file.isAtEnd())
        lines << file.readLine();
    lstCmdPool.addItems(lines);
}

void CommandPage::cmdSaveSCPIClick()
{
    if (lstCmdPool.listCount() == 0)
        return inform(QStringLiteral("Please Select ORB Commands from Left Comannd Listfirst!"));
    if (!askForFile(false, listFilter)) {
        dialogs_.message(QStringLiteral("ORB Commands saved Failed as User Cancel Opeation!"));
        return;
    }
    const QString name = dialogs_.CommonDialog1.fileName;
    OutputFile file(name);
    for (int i = 0; i < lstCmdPool.listCount(); ++i)
        file.writeLine(lstCmdPool.list(i));
    file.close();
    inform(QStringLiteral("ORB Commands saved OK (FileName:") + name + QStringLiteral(")!"));
}

void CommandPage::showList()
{
    txtExecLog.setVisible(false);
    lstCmdPool.setVisible(true);
    cmdShowPages.setCaption(showsList);
}

void CommandPage::cmdRefreshClick()
{
    txtExecLog.setText(QString());
    showList();
}

/// The caption names the panel that is shown now.
void CommandPage::cmdShowPagesClick()
{
    if (txtExecLog.visible())
        return showList();
    txtExecLog.setVisible(true);
    lstCmdPool.setVisible(false);
    cmdShowPages.setCaption(showsLog);
}

void CommandPage::chkShowLogClick()
{
    txtExecLog.setVisible(chkShowLog.value() == CheckBox::Checked);
    txtExecLog.bringToFront();
}

/// Shows the open dialog, not the save dialog, and sets the directory only after it: for the next dialog.
void CommandPage::cmdSaveClick()
{
    if (txtExecLog.text().isEmpty() || !optDispDev_.value())
        return;
    CommonDialog& dialog = dialogs_.CommonDialog1;
    dialog.filter = QStringLiteral("命令檔 (*.cmd)|*.cmd");
    const bool accepted = dialogs_.showOpen();
    dialog.initialDirectory = paths_.applicationDirectory();
    if (!accepted || dialog.fileName.isEmpty())
        return;
    const QString time = clock_.now().toString(QStringLiteral("yyyy/MM/dd HH:mm:ss"));
    txtExecLog.setText(QStringLiteral("Time:") + time + QStringLiteral("\r\n") + txtExecLog.text());
    txtExecLog.saveFile(dialog.fileName);
    txtExecLog.setText(QString());
}

} // namespace orb
