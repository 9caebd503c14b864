// SPDX-License-Identifier: GPL-3.0-or-later
#include "data_file_dialog.h"

#include <QGridLayout>
#include <QKeyEvent>

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
        QObject::connect(list, &QListWidget::itemDoubleClicked, this, [this] { enter(cmdOKDataLogFile.onClick); });
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

void DataFileDialog::focusOn(ListBox& list)
{
    QWidget* before = window()->focusWidget();
    if (!isAncestorOf(before))
        focusBefore_ = before;
    list.setFocus();
}

void DataFileDialog::keyPressEvent(QKeyEvent* event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter)
        cmdOKDataLogFile.click();
    else if (event->key() == Qt::Key_Escape)
        cmdCancelDataLogFile.click();
    else
        FloatingFrame::keyPressEvent(event);
}

/// Qt would pass the focus to the control after the dialog.
void DataFileDialog::hideEvent(QHideEvent* event)
{
    FloatingFrame::hideEvent(event);
    if (focusBefore_ && focusBefore_->isVisible())
        focusBefore_->setFocus();
    focusBefore_ = nullptr;
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
