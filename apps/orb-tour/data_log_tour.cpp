// SPDX-License-Identifier: GPL-3.0-or-later
#include "data_log_tour.h"

#include "channel_card.h"
#include "device_control.h"
#include "form_orb.h"
#include "served_log_comparison.h"
#include "simulator_process.h"
#include "tour.h"
#include "user_interface.h"

#include <cstdio>

namespace orb {

namespace {

constexpr int sampleCount = 5;

const QString failedAsUserCancel = QStringLiteral("Data Log CSV saved Failed as User Cancel Opeation!");

void pageStep(Tour& tour, FormORB& form, const QString& caption)
{
    tour.then(
        QStringLiteral("goes to the page ") + caption, [&form, caption] { return ui::find(form, caption); },
        [&form, caption] { ui::press(form, caption); });
}

void exportSteps(Tour& tour, FormORB& form, const QString& name)
{
    tour.then(QStringLiteral("presses the export"), [&tour, &form, name] {
        QFile::remove(tour.path(name)); // left by an earlier tour; the dialog would ask
        form.frmDatalog.cmdExport.click();
    });
    tour.chooseFile(name);
    tour.answer(QStringLiteral("Data Log CSV saved OK (FileName:%1)!").arg(tour.path(name)), QStringLiteral("OK"));
    tour.answer(failedAsUserCancel, QStringLiteral("OK"));
}

/// The lines of the record of served answers before the recording begins: the instrument control has queried before.
int servedLines(const Tour& tour)
{
    return static_cast<int>(linesOf(tour.path(QStringLiteral("served.txt"))).size());
}

void recordingSteps(Tour& tour, FormORB& form)
{
    const auto firstServed = std::make_shared<int>(0);
    DataLogPage& page = form.frmDatalog;
    tour.then(
        QStringLiteral("presses Start Log"), [&page] { return page.logStart.enabled(); },
        [&tour, &page, firstServed] {
            *firstServed = servedLines(tour);
            ui::press(page, QStringLiteral("Start Log"));
        });
    tour.then(
        QStringLiteral("waits for samples"), [&page] { return page.lLogRecNo >= sampleCount; }, [] {});
    tour.picture(form, QStringLiteral("data_log_recording.png"));
    tour.then(QStringLiteral("presses Stop Log"), [&page] { ui::press(page, QStringLiteral("Stop Log")); });
    tour.then(
        QStringLiteral("the recording has stopped"), [&page] { return !page.logStop.enabled(); }, [] {});
    tour.then(QStringLiteral("zooms into the first seconds"), [&page] {
        constexpr int belowAxis = 8;
        constexpr double firstSeconds = 0.01; // of the time that is shown
        const QRect area = page.graphLog.plotArea();
        const int x = area.left() + qRound(firstSeconds * area.width());
        ui::turnWheel(page.graphLog, {x, area.bottom() + belowAxis}, 21);
    });
    tour.picture(form, QStringLiteral("data_log_zoomed.png"));
    exportSteps(tour, form, QStringLiteral("log.csv"));
    tour.then(QStringLiteral("compares the file with what was served"), [&tour, firstServed] {
        const int rows = compareWithServed(tour.path(QStringLiteral("log.csv")),
                                           tour.path(QStringLiteral("served.txt")), *firstServed);
        std::printf("    %d rows are right to the last comma\n", rows);
    });
}

/// Saves the log and opens it again: the second export must equal the first.
void savedLogSteps(Tour& tour, FormORB& form)
{
    DataLogPage& page = form.frmDatalog;
    DataFileDialog& dialog = page.FrameDataFileOperate;
    const QString identifier = QDate::currentDate().toString(QStringLiteral("yyyyMMdd")) + QStringLiteral("001");
    tour.then(QStringLiteral("saves the log"), [&page] { page.logSave.click(); });
    tour.answer(QStringLiteral("Data Log Saved OK(Rec ID:%1)!").arg(identifier), QStringLiteral("OK"));
    tour.then(QStringLiteral("opens the list of saved logs"),
              [&page] { ui::press(page, QStringLiteral("Open Log File")); });
    tour.then(QStringLiteral("selects the log"), [&dialog] { dialog.lstLogMain.setCurrentRow(0); });
    tour.picture(form, QStringLiteral("data_log_open.png"));
    tour.then(QStringLiteral("opens it"), [&dialog] { ui::press(dialog, QStringLiteral("OK")); });
    tour.picture(form, QStringLiteral("data_log_opened.png"));
    exportSteps(tour, form, QStringLiteral("log_opened.csv"));
    tour.then(QStringLiteral("compares both exports byte for byte"), [&tour] {
        if (linesOf(tour.path(QStringLiteral("log.csv"))) != linesOf(tour.path(QStringLiteral("log_opened.csv"))))
            throw TourFailure(QStringLiteral("the exports differ"));
    });
}

void cursorSteps(Tour& tour, FormORB& form)
{
    DataLogPage& page = form.frmDatalog;
    tour.then(QStringLiteral("shows half an hour"), [&page] { ui::pick(page, QStringLiteral("30m")); });
    tour.picture(form, QStringLiteral("data_log_30m.png"));
    tour.then(QStringLiteral("chooses the cursor"), [&page] { ui::press(page, QStringLiteral("Cursor Coodinates")); });
    tour.then(QStringLiteral("checks a curve"), [&page] { ui::press(page, QStringLiteral("Ch1 A")); });
    tour.picture(form, QStringLiteral("data_log_cursor.png"));
    tour.then(QStringLiteral("goes back to the zoom"), [&page] { ui::press(page, QStringLiteral("Zoom")); });
}

void printSteps(Tour& tour, FormORB& form)
{
    DataLogPage& page = form.frmDatalog;
    tour.then(QStringLiteral("prints the picture"), [&tour, &page] {
        QFile::remove(tour.path(QStringLiteral("graph.pdf")));
        ui::press(page, QStringLiteral("Print Log Picture"));
    });
    tour.then(
        QStringLiteral("prints it to a PDF file"), [] { return ui::printDialogUp(); },
        [&tour] { ui::printTo(tour.path(QStringLiteral("graph.pdf"))); });
    tour.then(
        QStringLiteral("the page is there"), [&tour] { return ui::isPdf(tour.path(QStringLiteral("graph.pdf"))); },
        [] {});
    tour.picture(form, QStringLiteral("data_log_printed.png"));
}

} // namespace

void connectSteps(Tour& tour, FormORB& form, DeviceControl& CORB, const SimulatorProcess& simulator)
{
    tour.picture(form, QStringLiteral("control_without_link.png"));
    pageStep(tour, form, QStringLiteral("Connect"));
    tour.then(QStringLiteral("chooses the network"),
              [&CORB] { ui::pick(CORB.connectPage, QStringLiteral("Network (TCP)")); });
    tour.then(QStringLiteral("types the address"), [&CORB, &simulator] {
        ui::type(CORB.connectPage.cmbAddress, QStringLiteral("127.0.0.1:%1").arg(simulator.port()));
    });
    tour.picture(form, QStringLiteral("connect.png"));
    tour.then(QStringLiteral("presses Connect"), [&CORB] { ui::press(CORB.connectPage, QStringLiteral("Connect")); });
    tour.then(
        QStringLiteral("the instrument is connected"), [&CORB] { return CORB.IsConnected(); }, [] {});
    tour.then(
        QStringLiteral("the title says so"),
        [&form] { return form.caption() == QLatin1String("ZN ORB Device[Connected]"); }, [] {});
    tour.picture(form, QStringLiteral("connect_connected.png"));
    pageStep(tour, form, QStringLiteral("Control"));
    const auto channels = static_cast<std::size_t>(simulator.channels());
    tour.then(
        QStringLiteral("the channels have their readings"),
        [&CORB, channels] {
            return CORB.controlPage.cards.size() == channels && ui::find(CORB.controlPage, QStringLiteral("LOAD ON"));
        },
        [] {});
    const std::size_t inputsOn = (channels + 1) / 2;
    for (std::size_t channel = 0; channel < inputsOn; ++channel)
        tour.then(
            QStringLiteral("switches the input of channel %1 on").arg(channel + 1),
            [&CORB, channel] { return ui::find(*CORB.controlPage.cards[channel], QStringLiteral("LOAD ON")); },
            [&CORB, channel] { ui::press(*CORB.controlPage.cards[channel], QStringLiteral("LOAD ON")); });
    tour.then(
        QStringLiteral("the inputs are on"),
        [&CORB, inputsOn] { return ui::find(*CORB.controlPage.cards[inputsOn - 1], QStringLiteral("LOAD OFF")); },
        [] {});
    tour.picture(form, QStringLiteral("control.png"));
}

void dataLogSteps(Tour& tour, FormORB& form)
{
    pageStep(tour, form, QStringLiteral("Data Log"));
    tour.picture(form, QStringLiteral("data_log.png"));
    recordingSteps(tour, form);
    savedLogSteps(tour, form);
    cursorSteps(tour, form);
    printSteps(tour, form);
}

} // namespace orb
