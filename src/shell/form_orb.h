// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "about_box.h"
#include "command_page.h"
#include "connection_supervisor.h"
#include "data_log_page.h"
#include "display_page.h"
#include "panel_input.h"
#include "program_page.h"
#include "sequence_page.h"

#include <QPointer>

namespace orb {

/// The main form: a row of page buttons, and the pages as groups of controls of which one is shown. A page switch stops
/// the activities that must not run while the new page is shown.
class FormORB final : public Form {
public:
    /// All references must outlive the form; `CORB` is one of its groups. The form does nothing before `FormLoad`.
    FormORB(Clock& clock, Dialogs& dialogs, const Paths& paths, ORBCtrl& CORB, SystemTools& systemTools);
    ~FormORB() override;

    /// The start: opens `orb.mdb`, sets the pages up and brings up the Control page. Belongs inside `Run::enter`.
    /// Throws what the platform throws.
    void FormLoad();

    /// Puts a widget at the right end of the row of page buttons, where it is shown on every page. The form does not
    /// own it.
    void setRowEnd(QWidget& widget);

    Workspace wsMain;
    Database dbMain;           ///< open from `FormLoad` on
    bool bFullScrMode = false; ///< the screen mirror paints over the whole screen
    QString sPendingSeqFile;   ///< the path that the next opening of a sequence takes without asking
    QString sPendingProgFile;  ///< the same for a program

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
    SequencePage fraSequence;
    ProgramPage fraProgram;
    CaptureTool Frame1; ///< nothing shows it
    PanelInput panel;

    ConnectionSupervisor supervisor;
    SystemInfo systemInfo;

    void pageConnectClick();
    void pageControlClick();
    void pageCommandClick();
    void pageWaveClick();
    void pageSequenceClick();
    void PageProgramClick();
    void pageAboutClick();
    void pageExitClick();
    void pageDisplayClick();

    /// Shows the manual in the program that the desktop has for it; F1 does so.
    void openManual();

    /// Erases the first two buffers of the data log and its graph. Nothing calls it.
    void ClearGraphSeq();

private:
    void layoutPageButtons();
    void setCaptionFont();
    void layoutRowEnd();
    void layoutGroups();
    void wire();
    void createKeys();
    void place(QWidget& group, int top, PictureButton& button);
    void markPage(const PictureButton& shown);
    void fitHeight(const QWidget& group);
    void fitWidth(int width);
    void resizeWindow(QSize size);
    QSize largestWindow() const;
    void finishSwitch(QWidget& group, int width);
    void fit(QWidget& group, int width);
    void growShownGroup();
    static QSize around(const QWidget& group);
    void unload();

    Dialogs& dialogs_;
    const Paths& paths_;
    ORBCtrl& CORB_;
    std::map<const QWidget*, QSize> designSizes_;
    QPointer<QWidget> rowEnd_;
    QWidget* shown_ = nullptr; ///< the group that a larger window gives room to; none while a page is switched
};

} // namespace orb
