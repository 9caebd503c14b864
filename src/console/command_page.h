// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "check_box.h"
#include "clock.h"
#include "command_catalogue.h"
#include "dialogs.h"
#include "label.h"
#include "list_box.h"
#include "orb_ctrl.h"
#include "paths.h"
#include "picture_button.h"
#include "rich_text_box.h"
#include "text_box.h"

namespace orb {

/// The page on which the operator builds a list of commands and sends it to the instrument.
class CommandPage final : public Frame {
public:
    /// All references must outlive the page. `optDispDev` is the display page's option without which `cmdSave` does
    /// nothing.
    CommandPage(Clock& clock, Dialogs& dialogs, const Paths& paths, ORBCtrl& CORB, OptionButton& optDispDev);

    CommandCollection colCommands; ///< a row for each entry of `lstCommand`

    ListBox lstCommand;
    std::array<Label, 3> lblCommand;
    CheckBox chkSend{QStringLiteral("Send Value:")};
    TextBox txtValue;

    ListBox lstCmdPool;
    RichTextBox txtExecLog;
    PictureButton cmdInsert;
    PictureButton cmdUp;
    PictureButton cmdDown;
    PictureButton cmdDelete;
    PictureButton cmdOpenSCPI{QStringLiteral("Open Commad File")};
    PictureButton cmdSaveSCPI{QStringLiteral("Save Command File")};
    PictureButton cmdDeleteSCPI{QStringLiteral("Delete Log File")};
    PictureButton cmdRefresh{QStringLiteral("Refresh")};
    PictureButton cmdShowPages{QStringLiteral("Show Log")};
    CheckBox chkShowLog{QStringLiteral("Show Log")};
    PictureButton cmdSave{QStringLiteral("Save")};

    PictureButton cmdStart{QStringLiteral("Start Log")};
    PictureButton cmdStop{QStringLiteral("Stop Log")};
    PictureButton cmdGo{QStringLiteral("Go")};
    CheckBox chkRepeat{QStringLiteral("Single Step")};
    PictureButton cmdSaveResult{QStringLiteral("Save Run Cmd's Log File")};

    /// Reads the catalogue into `lstCommand`. Any failure is shown in a message box and ends the reading at that line.
    void InitListCommand();
    /// Sets the picture and Enabled of `cmdStart` from the link.
    void RefreshCommandPage();

    void lstCommandClick();
    void cmdInsertClick();
    void cmdUpClick();
    void cmdDownClick();
    void cmdDeleteClick();
    void txtValueGotFocus();
    void cmdOpenSCPIClick();
    void cmdSaveSCPIClick();
    void cmdRefreshClick();
    void cmdShowPagesClick();
    void chkShowLogClick();
    void cmdSaveClick();
    void cmdStartClick();
    void cmdStopClick();
    void cmdGoClick();
    void chkRepeatClick();
    void cmdSaveResultClick();

private:
    void createLayout();
    QWidget* toolBar();
    QWidget* catalogueSide();
    QWidget* lineButtons();
    QWidget* listSide();
    void wire();

    void readCatalogue();
    void moveSelectedLine(int step);
    bool askForFile(bool toOpen, const QString& filter);
    void showList();
    bool isReady();
    void sendSelectedLine();
    void sendWithFollowUp();
    void runStep();
    void runRepeat();
    QString icon(const char* literal) const { return paths_.inApplication(QLatin1String(literal)); }
    void inform(const QString& text) { dialogs_.message(text, Icon::Information); }

    Clock& clock_;
    Dialogs& dialogs_;
    const Paths& paths_;
    ORBCtrl& CORB_;
    OptionButton& optDispDev_;
};

} // namespace orb
