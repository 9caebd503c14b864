// SPDX-License-Identifier: GPL-3.0-or-later
#include "log_page.h"

#include <QCoreApplication>

namespace orb::bench {

LogPage::LogPage(int rows) : application_(applicationWith(rows))
{
    clock_.allow(1LL << 60);
    page.setParent(&form_);
    page.setVisible(true);
    form_.resize(720, 600);
    dbMain_ = wsMain_.openDatabase(databasePath());
    for (ComboBox* combo : {&page.cmbYVoltage, &page.cmbYCurrent}) {
        combo->addItem(QStringLiteral("Default"));
        combo->setListIndex(0);
    }
    enter([this] {
        page.DataLog.setDatabaseName(databasePath());
        page.DataLog.refresh();
    });
    page.lLogRecNo = rows;
    page.iLogChannels = 8;
    form_.show();
}

void LogPage::enter(const std::function<void()>& work)
{
    run_.enter(work);
    QCoreApplication::processEvents();
}

} // namespace orb::bench
