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
    auto* between = new QVBoxLayout;
    between->addStretch();
    for (PictureButton* button : {&cmdInsert, &cmdUp, &cmdDown, &cmdDelete}) {
        button->setIconSize({24, 24});
        between->addWidget(button);
    }
    between->addStretch();
    sides->addLayout(between);
    sides->addWidget(listSide(), 5);
    page->addLayout(sides, 1);
    for (PictureButton* unseen : {&cmdDeleteSCPI, &cmdSave, &cmdGo}) { // created hidden, and nothing shows them
        unseen->setParent(this);
        unseen->setVisible(false);
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
    cmdStart.setToolTip(
        QStringLiteral("Send the list: the selected line, or with \"Repeat\" all lines round and round"));
    cmdRefresh.setToolTip(QStringLiteral("Empty the log and show the list"));
    return toolBarOf({&cmdStart, &cmdStop, &cmdOpenSCPI, &cmdSaveSCPI, &cmdRefresh, &cmdSaveResult});
}

QWidget* CommandPage::catalogueSide()
{
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
    lblCommand[1].setMinimumHeight(3 * fontMetrics().lineSpacing()); // the list does not jump with the selection
    grid->addWidget(&chkSend, row, 0);
    grid->addWidget(&txtValue, row, 1);
    grid->setRowStretch(0, 1);
    cmdInsert.setPicture(icon("\\ICON\\Insert.png"));
    cmdInsert.setToolTip(QStringLiteral("Put the command into the list"));
    cmdUp.setPicture(icon("\\ICON\\Up.png"));
    cmdUp.setToolTip(QStringLiteral("Move the selected line up"));
    cmdDown.setPicture(icon("\\ICON\\Down.png"));
    cmdDown.setToolTip(QStringLiteral("Move the selected line down"));
    cmdDelete.setPicture(icon("\\ICON\\Delete.png"));
    cmdDelete.setToolTip(QStringLiteral("Take the selected line out"));
    return side;
}

/// The log stands in the place of the list.
QWidget* CommandPage::listSide()
{
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
