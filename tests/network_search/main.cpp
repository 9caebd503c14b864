// SPDX-License-Identifier: GPL-3.0-or-later
// Presses "Search network" on the Connect page and, when the search has ended, prints what the page says and, one a line,
// the addresses in its list with their titles.
#include "device_control.h"
#include "form.h"
#include "press.h"
#include "real_clock.h"
#include "recorded_exit.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <cstdio>

namespace {

using namespace orb;

constexpr int longestSearchMs = 60'000;

void print(const QString& line)
{
    std::puts(line.toUtf8().constData());
}

void waitForEnd(const ConnectPage& page)
{
    QElapsedTimer timer;
    timer.start();
    const QString caption = QStringLiteral("Search network");
    while (page.cmdSearch.caption() != caption && !timer.hasExpired(longestSearchMs))
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    RecordedExit processExit;
    Run run(processExit);
    RealClock clock(run);
    Form form(run);
    const QTemporaryDir settings;
    DeviceControl control(clock, standardLinkKinds(clock), settings.filePath(QStringLiteral("link.ini")));
    control.setParent(&form);
    control.allOffBar.setParent(&form);
    control.setVisible(true);
    form.setVisible(true);
    control.ShowConnectPage();

    ConnectPage& page = control.connectPage;
    pick(page.cmbKind, QStringLiteral("Network (TCP)"));
    press(page.cmdSearch);
    waitForEnd(page);

    print(page.lblStatus.caption());
    for (int i = 0; i < page.cmbAddress.listCount(); ++i)
        print(page.cmbAddress.list(i) + QStringLiteral(" ") + page.cmbAddress.itemData(i, Qt::ToolTipRole).toString());
}
