// SPDX-License-Identifier: GPL-3.0-or-later
#include "first_test_tour.h"

#include "channel_card.h"
#include "device_control.h"
#include "form_orb.h"
#include "tour.h"
#include "user_interface.h"

#include <QApplication>
#include <QFile>

namespace orb {

namespace {

constexpr int channel = 4;
constexpr int dischargedRows = 120; // two minutes
constexpr int recoveredRows = 150;

const QString exportName = QStringLiteral("discharge.csv");

void goTo(Tour& tour, FormORB& form, const QString& caption)
{
    tour.then(
        QStringLiteral("goes to the page ") + caption, [&form, caption] { return ui::find(form, caption); },
        [&form, caption] { ui::press(form, caption); });
}

ChannelCard& card(DeviceControl& CORB)
{
    return *CORB.controlPage.cards.at(channel - 1);
}

void connectSteps(Tour& tour, FormORB& form, DeviceControl& CORB)
{
    tour.picture(form, QStringLiteral("first_window.png"));
    goTo(tour, form, QStringLiteral("Connect"));
    tour.then(QStringLiteral("chooses the simulated instrument"),
              [&CORB] { ui::pick(CORB.connectPage, QStringLiteral("Simulated instrument")); });
    tour.picture(form, QStringLiteral("first_connect.png"));
    tour.then(QStringLiteral("presses Connect"), [&CORB] { ui::press(CORB.connectPage, QStringLiteral("Connect")); });
    tour.then(
        QStringLiteral("the title says so"),
        [&form] { return form.caption() == QLatin1String("ZN ORB Device[Connected]"); }, [] {});
    tour.picture(form, QStringLiteral("first_connected.png"));
}

bool isReadBack(DeviceControl& CORB)
{
    return card(CORB).lblNote.caption() == QLatin1String("Read back");
}

/// Changes a setting on the card and waits until the instrument has it.
void setStep(Tour& tour, DeviceControl& CORB, const QString& description, const std::function<void()>& change,
             const std::function<bool()>& done)
{
    tour.then(
        description, [&CORB] { return card(CORB).cmbMode.isEnabled() && card(CORB).cmbRange.isEnabled(); }, change);
    tour.then(QStringLiteral("the instrument has it"), done, [] {});
}

void setSteps(Tour& tour, DeviceControl& CORB)
{
    setStep(
        tour, CORB, QStringLiteral("sets a constant current"), [&CORB] { ui::pick(card(CORB), QStringLiteral("CC")); },
        [&CORB] { return isReadBack(CORB) && card(CORB).txtSetValue.text() == QLatin1String("0.0000"); });
    setStep(
        tour, CORB, QStringLiteral("sets 10 A"),
        [&CORB] {
            ui::type(card(CORB).txtSetValue, QStringLiteral("10"));
            ui::pressKey(card(CORB).txtSetValue, Qt::Key_Return);
        },
        [&CORB] { return isReadBack(CORB) && card(CORB).txtSetValue.text() == QLatin1String("10.0000"); });
}

void loadSteps(Tour& tour, FormORB& form, DeviceControl& CORB)
{
    goTo(tour, form, QStringLiteral("Control"));
    tour.then(
        QStringLiteral("the channels have their readings"),
        [&CORB] { return CORB.controlPage.cards.size() >= channel && card(CORB).cmbMode.isEnabled(); }, [] {});
    setSteps(tour, CORB);
    tour.picture(form, QStringLiteral("first_set.png"));
    tour.then(
        QStringLiteral("switches the input on"),
        [&CORB] { return ui::find(card(CORB), QStringLiteral("LOAD ON")) != nullptr; },
        [&CORB] { ui::press(card(CORB), QStringLiteral("LOAD ON")); });
    tour.then(
        QStringLiteral("the current flows"), [&CORB] { return card(CORB).lblAmperes.caption().toDouble() > 9; }, [] {});
    tour.picture(form, QStringLiteral("first_on.png"));
}

/// Waits for rows up to that number and takes pictures of the growing curves.
void waitForRows(Tour& tour, FormORB& form, int after, int rows)
{
    constexpr int atOnce = 10;
    const DataLogPage& page = form.frmDatalog;
    for (int reached = after + atOnce; reached <= rows; reached += atOnce) {
        tour.then(
            QStringLiteral("waits for row %1").arg(reached), [&page, reached] { return page.lLogRecNo >= reached; },
            [] {});
        tour.picture(form, QStringLiteral("first_row_%1.png").arg(reached, 3, 10, QLatin1Char('0')));
    }
}

void recordSteps(Tour& tour, FormORB& form, DeviceControl& CORB)
{
    DataLogPage& page = form.frmDatalog;
    goTo(tour, form, QStringLiteral("Data Log"));
    tour.then(QStringLiteral("chooses the ends of the axes"), [&page] {
        ui::pick(page, QStringLiteral("20V"));
        ui::pick(page, QStringLiteral("15A"));
    });
    tour.then(QStringLiteral("presses Start Log"), [&page] { ui::press(page, QStringLiteral("Start Log")); });
    for (const int other : {1, 2, 3, 5, 6})
        for (const char* kind : {"V", "A"})
            tour.then(QStringLiteral("hides a curve of channel %1").arg(other), [&page, other, kind] {
                ui::press(page, QStringLiteral("Ch%1 %2").arg(other).arg(QLatin1String(kind)));
            });
    waitForRows(tour, form, 0, dischargedRows);
    tour.then(QStringLiteral("presses ALL OFF"), [&CORB] { CORB.allOffBar.cmdAllOff.click(); });
    waitForRows(tour, form, dischargedRows, recoveredRows);
    tour.then(QStringLiteral("presses Stop Log"), [&page] { ui::press(page, QStringLiteral("Stop Log")); });
    tour.then(
        QStringLiteral("the recording has stopped"), [&page] { return !page.logStop.enabled(); }, [] {});
    tour.picture(form, QStringLiteral("first_stopped.png"));
}

/// Takes a picture of the message box that is open and closes it.
void messageStep(Tour& tour, const QString& name)
{
    tour.then(
        QStringLiteral("takes the picture ") + name, [] { return !ui::messageUp().isEmpty(); },
        [&tour, name] {
            QWidget& box = *QApplication::activeModalWidget();
            if (!box.grab().save(tour.path(name)))
                throw TourFailure(QStringLiteral("can't write ") + tour.path(name));
            ui::press(box, QStringLiteral("OK"));
        });
}

void saveSteps(Tour& tour, FormORB& form)
{
    DataLogPage& page = form.frmDatalog;
    tour.then(QStringLiteral("saves the log"), [&page] { page.logSave.click(); });
    messageStep(tour, QStringLiteral("first_saved.png"));
    tour.then(QStringLiteral("presses the export"), [&tour, &page] {
        QFile::remove(tour.path(exportName)); // left by an earlier tour; the dialog would ask
        page.cmdExport.click();
    });
    tour.chooseFile(exportName);
    messageStep(tour, QStringLiteral("first_exported.png"));
    messageStep(tour, QStringLiteral("first_second_box.png"));
}

} // namespace

void firstTestSteps(Tour& tour, FormORB& form, DeviceControl& CORB)
{
    connectSteps(tour, form, CORB);
    loadSteps(tour, form, CORB);
    recordSteps(tour, form, CORB);
    saveSteps(tour, form);
}

} // namespace orb
