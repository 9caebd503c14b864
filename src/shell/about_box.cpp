// SPDX-License-Identifier: GPL-3.0-or-later
#include "about_box.h"

#include "paths.h"
#include "version.h"

#include <QGridLayout>
#include <QKeyEvent>

namespace orb {

AboutBox::AboutBox(QWidget& owner, Run& run, const Paths& paths, SystemInfo& systemInfo) : Form(run, &owner)
{
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    setCaption(QStringLiteral("About ") + applicationTitle);
    lblVersion.setCaption(QStringLiteral("Version ") + programVersion());
    Image1.setPicture(paths.inApplication(QStringLiteral("\\ICON\\orb.png")));
    createLayout();
    cmdOK.onClick = [this] { close(); };
    cmdSysInfo.onClick = [&systemInfo] { systemInfo.StartSysInfo(); };
}

void AboutBox::createLayout()
{
    constexpr int logoSize = 64;
    QFont large = Label2.font();
    large.setPointSizeF(large.pointSizeF() * 1.6);
    large.setBold(true);
    Label2.setFont(large);
    Image1.setFixedSize(logoSize, logoSize);
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(18, 18, 18, 14);
    grid->setHorizontalSpacing(16);
    grid->addWidget(&Image1, 0, 0, 3, 1, Qt::AlignTop);
    int row = 0;
    for (Label* label : {&Label2, &lblTitle, &lblVersion, &Label1, &lblUrl})
        grid->addWidget(label, row++, 1, 1, 3);
    grid->setRowMinimumHeight(row++, 12);
    grid->setColumnStretch(1, 1);
    cmdSysInfo.setMinimumSize(120, 28);
    cmdOK.setMinimumSize(90, 28);
    grid->addWidget(&cmdOK, row, 2);
    grid->addWidget(&cmdSysInfo, row, 3);
    grid->setSizeConstraint(QLayout::SetFixedSize);
    cmdOK.setFocus();
}

/// Escape closes the box, as its OK does.
void AboutBox::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        cmdOK.click();
    else
        Form::keyPressEvent(event);
}

} // namespace orb
