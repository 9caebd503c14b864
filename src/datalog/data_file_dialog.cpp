// SPDX-License-Identifier: GPL-3.0-or-later
#include "data_file_dialog.h"

#include <QGridLayout>

namespace orb {

DataFileDialog::DataFileDialog(QWidget* parent) : FloatingFrame({}, parent)
{
    resizeTwips(6000, 4500);
    lstLogMain.setBackColor(QColor(255, 192, 192));
    listLogDel.setBackColor(QColor(192, 255, 255));
    lstLogMain.setAccessibleName(QStringLiteral("Saved logs to open"));
    listLogDel.setAccessibleName(QStringLiteral("Saved logs to delete"));
    lstProgFile.setAccessibleName(QStringLiteral("Stored programs"));
    auto* grid = new QGridLayout(this);
    lblLogTitle.setWordWrap(true);
    grid->addWidget(&lblLogTitle, 0, 0, 1, 3);
    for (ListBox* list : {&lstLogMain, &listLogDel, &lstProgFile}) { // the lists share one place
        grid->addWidget(list, 1, 0, 1, 3);
        list->setVisible(false);
    }
    grid->setColumnStretch(0, 1);
    for (PictureButton* button : {&cmdOKDataLogFile, &cmdCancelDataLogFile})
        button->setMinimumSize(80, 28);
    grid->addWidget(&cmdOKDataLogFile, 2, 1);
    grid->addWidget(&cmdCancelDataLogFile, 2, 2);
    setVisible(false);
}

void DataFileDialog::showOn(QWidget& page)
{
    constexpr int topTwips = 2100;
    if (parentWidget() != &page)
        moveTo(page);
    move((page.width() - width()) / 2, pixels(topTwips));
    bringToFront();
    setVisible(true);
}

/// The page must not delete the dialog with its other children.
void DataFileDialog::moveTo(QWidget& page)
{
    if (parentWidget())
        parentWidget()->disconnect(this);
    setParent(&page);
    QObject::connect(&page, &QObject::destroyed, this, [this] { setParent(nullptr); });
}

} // namespace orb
