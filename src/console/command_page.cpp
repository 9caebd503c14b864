// SPDX-License-Identifier: GPL-3.0-or-later
#include "command_page.h"

#include "attempt.h"
#include "input_file.h"
#include "run_picture.h"

namespace orb {

CommandPage::CommandPage(Clock& clock, Dialogs& dialogs, const Paths& paths, ORBCtrl& CORB, OptionButton& optDispDev)
    : Frame(QStringLiteral("Command")),
      lblCommand{Label(QStringLiteral("Command:")), Label(QStringLiteral("Description:")),
                 Label(QStringLiteral("Format:"))},
      clock_(clock),
      dialogs_(dialogs),
      paths_(paths),
      CORB_(CORB),
      optDispDev_(optDispDev)
{
    createLayout();
    wire();
}

void CommandPage::wire()
{
    lstCommand.onClick = [this] { lstCommandClick(); };
    lstCommand.onDblClick = [this] { cmdInsertClick(); };
    txtValue.onGotFocus = [this] { txtValueGotFocus(); };
    cmdInsert.onClick = [this] { cmdInsertClick(); };
    cmdUp.onClick = [this] { cmdUpClick(); };
    cmdDown.onClick = [this] { cmdDownClick(); };
    cmdDelete.onClick = [this] { cmdDeleteClick(); };
    cmdOpenSCPI.onClick = [this] { cmdOpenSCPIClick(); };
    cmdSaveSCPI.onClick = [this] { cmdSaveSCPIClick(); };
    cmdRefresh.onClick = [this] { cmdRefreshClick(); };
    cmdShowPages.onClick = [this] { cmdShowPagesClick(); };
    chkShowLog.onClick = [this] { chkShowLogClick(); };
    cmdSave.onClick = [this] { cmdSaveClick(); };
    cmdStart.onClick = [this] { cmdStartClick(); };
    cmdStop.onClick = [this] { cmdStopClick(); };
    cmdGo.onClick = [this] { cmdGoClick(); };
    chkRepeat.onClick = [this] { chkRepeatClick(); };
    cmdSaveResult.onClick = [this] { cmdSaveResultClick(); };
}

void CommandPage::InitListCommand()
{
    try {
        readCatalogue();
    } catch (const RuntimeFailure& failure) {
        dialogs_.message(QStringLiteral("Error Number:%1:%2").arg(failure.number()).arg(failure.description()),
                         Icon::Critical);
    }
}

void CommandPage::readCatalogue()
{
    InputFile file(paths_.inApplication(QStringLiteral("\\orbCommands.dat")));
    lstCommand.clear();
    colCommands = CommandCollection();
    while (!file.isAtEnd()) {
        const CatalogueLine line = catalogueLine(file.readLine());
        if (line.entry.isEmpty())
            continue;
        colCommands.add(line.row, line.entry);
        lstCommand.addItem(line.entry);
    }
}

void CommandPage::lstCommandClick()
{
    attemptEach([this] { chkSend.setValue(CheckBox::Unchecked); }, // for every entry, query or not
                [this] {
                    const clsCommands& row = colCommands.item(lstCommand.selectedText());
                    lblCommand[0].setCaption(QStringLiteral("Command:") + row.Command());
                    lblCommand[1].setCaption(QStringLiteral("Description:") + row.Desc());
                    lblCommand[2].setCaption(QStringLiteral("Format:") + row.Format());
                });
}

void CommandPage::RefreshCommandPage()
{
    followLink(cmdStart, CORB_, paths_);
}

} // namespace orb
