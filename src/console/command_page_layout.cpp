// SPDX-License-Identifier: GPL-3.0-or-later
#include "command_page.h"
#include "tool_bar.h"

#include <QGridLayout>

namespace orb {

namespace {
constexpr int pageWidthTwips = 9285;
constexpr int pageHeightTwips = 7335;
} // namespace

void CommandPage::createLayout()
{
    resizeTwips(pageWidthTwips, pageHeightTwips);
    auto* page = new QVBoxLayout(this);
    page->setContentsMargins(8, 4, 8, 8);
    page->setSpacing(6);
    page->addWidget(toolBar());
    auto* sides = new QHBoxLayout;
    sides->addWidget(catalogueSide(), 5);
    sides->addWidget(lineButtons());
    sides->addWidget(listSide(), 5);
    page->addLayout(sides, 1);
    for (PictureButton* hidden : {&cmdDeleteSCPI, &cmdSave, &cmdGo}) { // created hidden, and nothing shows them
        hidden->setParent(this);
        hidden->setVisible(false);
    }
}

QWidget* CommandPage::toolBar()
{
    cmdStart.setPicture(icon("\\ICON\\B1RUNSTOP.jpg"));
    cmdStop.setPicture(icon("\\ICON\\B4STOP.JPG"));
    cmdStop.setEnabled(false);
    cmdOpenSCPI.setPicture(icon("\\ICON\\Open.png"));
    cmdSaveSCPI.setPicture(icon("\\ICON\\Save.png"));
    cmdRefresh.setPicture(icon("\\ICON\\Refresh.png"));
    cmdSaveResult.setPicture(icon("\\ICON\\Export.png"));
    cmdStart.setToolTip(QStringLiteral("Send the selected line, or with \"Repeat\" all lines again and again"));
    cmdRefresh.setToolTip(QStringLiteral("Clear the log and show the list"));
    return toolBarOf({&cmdStart, &cmdStop, &cmdOpenSCPI, &cmdSaveSCPI, &cmdRefresh, &cmdSaveResult});
}

QWidget* CommandPage::catalogueSide()
{
    lstCommand.setAccessibleName(QStringLiteral("Commands"));
    txtValue.setAccessibleName(QStringLiteral("Value"));
    auto* side = new QWidget;
    auto* grid = new QGridLayout(side);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(&lstCommand, 0, 0, 1, 2);
    int row = 1;
    for (Label& label : lblCommand) {
        label.setWordWrap(true);
        label.setMinimumWidth(1); // a long description wraps and does not widen the page
        label.setAlignment(Qt::AlignLeft | Qt::AlignTop);
        grid->addWidget(&label, row++, 0, 1, 2);
    }
    lblCommand[1].setMinimumHeight(3 * fontMetrics().lineSpacing()); // the list keeps its height
    grid->addWidget(&chkSend, row, 0);
    grid->addWidget(&txtValue, row, 1);
    grid->setRowStretch(0, 1);
    return side;
}

/// The buttons between the two lists.
QWidget* CommandPage::lineButtons()
{
    struct Row {
        PictureButton& button;
        const char* picture;
        const char* name;
        const char* toolTip;
    };
    auto* column = new QWidget;
    auto* box = new QVBoxLayout(column);
    box->setContentsMargins(0, 0, 0, 0);
    box->addStretch();
    for (const Row& row : {Row{cmdInsert, "\\ICON\\Insert.png", "Insert", "Add the command to the list"},
                           Row{cmdUp, "\\ICON\\Up.png", "Up", "Move the selected line up"},
                           Row{cmdDown, "\\ICON\\Down.png", "Down", "Move the selected line down"},
                           Row{cmdDelete, "\\ICON\\Delete.png", "Delete", "Remove the selected line"}}) {
        row.button.setPicture(icon(row.picture));
        row.button.setIconSize({24, 24});
        row.button.setAccessibleName(QLatin1String(row.name));
        row.button.setToolTip(QLatin1String(row.toolTip));
        box->addWidget(&row.button);
    }
    box->addStretch();
    return column;
}

/// The log takes the place of the list.
QWidget* CommandPage::listSide()
{
    lstCmdPool.setAccessibleName(QStringLiteral("List"));
    txtExecLog.setAccessibleName(QStringLiteral("Log"));
    auto* side = new QWidget;
    auto* grid = new QGridLayout(side);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(&lstCmdPool, 0, 0, 1, 3);
    grid->addWidget(&txtExecLog, 0, 0, 1, 3);
    txtExecLog.setVisible(false);
    cmdShowPages.setToolTip(QStringLiteral("Switch Display Panel"));
    cmdShowPages.setMinimumHeight(26);
    grid->addWidget(&chkRepeat, 1, 0);
    grid->addWidget(&chkShowLog, 1, 1);
    grid->addWidget(&cmdShowPages, 1, 2);
    grid->setRowStretch(0, 1);
    return side;
}

} // namespace orb
