// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "command_page.h"
#include "connection_supervisor.h"
#include "data_log_page.h"
#include "display_page.h"

namespace orb {

/// The main form: a row of page buttons, and the pages as groups of controls of which one is shown. Switching a page
/// stops what must not run beside the new one.
class FormORB final : public Form {
public:
    /// All references must outlive the form; `CORB` is one of its groups. The form does nothing before `FormLoad`.
    FormORB(Clock& clock, Dialogs& dialogs, const Paths& paths, ORBCtrl& CORB);
    ~FormORB() override;

    /// The start: opens `orb.mdb`, sets the pages up and brings up the Control page. Belongs inside `Run::enter`.
    /// Throws what the platform throws.
    void FormLoad();

    Workspace wsMain;
    std::unique_ptr<Database> dbMain; ///< open from `FormLoad` on
    bool bFullScrMode = false;        ///< the screen mirror paints over the whole screen
    QString sPendingSeqFile;          ///< the path that the next opening of a sequence takes without asking
    QString sPendingProgFile;         ///< the same for a program

    PictureButton pageConnect{QStringLiteral("Connect")};
    PictureButton pageControl{QStringLiteral("Control")};
    PictureButton pageCommand{QStringLiteral("Command")};
    PictureButton pageWave{QStringLiteral("Data Log")};
    PictureButton pageSequence{QStringLiteral("Sequence")};
    PictureButton PageProgram{QStringLiteral("Program")};
    PictureButton pageAbout{QStringLiteral("About")};
    PictureButton pageExit{QStringLiteral("Exit")};
    PictureButton pageDisplay{QStringLiteral("Display")};

    DisplayPage fraDisplay;
    CommandPage fraCommand;
    DataLogPage frmDatalog;
    Frame fraSequence{QStringLiteral("Sequence")};
    Frame fraProgram{QStringLiteral("Program")};
    Frame Frame1;

    ConnectionSupervisor supervisor;

    void pageConnectClick();
    void pageControlClick();
    void pageCommandClick();
    void pageWaveClick();
    void pageSequenceClick();
    void PageProgramClick();
    void pageAboutClick();
    void pageExitClick();
    void pageDisplayClick();

private:
    void arrangePageButtons();
    void arrangeGroups();
    void wire();
    void stopDisplay();
    void stopLog();
    void stopCommands();
    void bringUp(QWidget& group, int top);
    void hideAllBut(const QWidget& group);
    void fitHeight(const QWidget& group);
    void finishSwitch(QWidget& group);
    void growShownGroup();
    void unload();
    std::vector<QWidget*> groups();

    Clock& clock_;
    Dialogs& dialogs_;
    const Paths& paths_;
    ORBCtrl& CORB_;
    std::map<const QWidget*, QSize> designSizes_;
    QWidget* shown_ = nullptr; ///< the group that a larger window gives room to; none while a page is switched
    QSize fitted_;             ///< the form's size as the last page switch left it
};

} // namespace orb
