// SPDX-License-Identifier: GPL-3.0-or-later
#include "console_tour.h"

#include "form_orb.h"
#include "tour.h"
#include "user_interface.h"

namespace orb {

namespace {

const QStringList expectedList{QStringLiteral(":CHAN 2"), QStringLiteral(":CHAN?"), QStringLiteral(":CURR 1.5"),
                               QStringLiteral(":CURR?"), QStringLiteral("*IDN?")};
const QStringList expectedLog{QStringLiteral(":CHAN 2"), QStringLiteral(":CHAN? => 2"), QStringLiteral(":CURR 1.5"),
                              QStringLiteral(":CURR? => 1.5000"), QStringLiteral("*IDN? => ZN,ORB3000,SIM0001,1.0")};

QStringList linesOfList(const ListBox& list)
{
    QStringList lines;
    for (int i = 0; i < list.listCount(); ++i)
        lines << list.list(i);
    return lines;
}

QStringList entriesOf(const CommandPage& page)
{
    return page.txtExecLog.text().split(QStringLiteral("\r\n"), Qt::SkipEmptyParts);
}

void requireEqual(const QStringList& seen, const QStringList& wanted, const QString& what)
{
    if (seen != wanted)
        throw TourFailure(what + QStringLiteral(" holds: ") + seen.join(QStringLiteral(" | ")));
}

/// The entries are those of the list, repeated. On a busy machine an answer may come too late for its entry, which is
/// then empty.
void requireRounds(const QStringList& entries)
{
    for (int i = 0; i < entries.size(); ++i) {
        const QString& wanted = expectedLog[i % expectedLog.size()];
        const QString unanswered = wanted.section(QStringLiteral(" => "), 0, 0) + QStringLiteral(" => ");
        if (entries[i] != wanted && entries[i] != unanswered)
            throw TourFailure(QStringLiteral("entry %1 of the log is %2").arg(i).arg(entries[i]));
    }
}

/// Puts an entry of the catalogue into the list, with a value or without one.
void insertStep(Tour& tour, CommandPage& page, const QString& entry, const QString& value = {})
{
    tour.then(QStringLiteral("inserts %1 %2").arg(entry, value).trimmed(), [&page, entry, value] {
        ui::choose(page.lstCommand, entry);
        if (!value.isEmpty()) {
            ui::press(page, QStringLiteral("Send Value:"));
            ui::type(page.txtValue, value);
        }
        page.cmdInsert.click();
    });
}

void buildSteps(Tour& tour, FormORB& form)
{
    CommandPage& page = form.fraCommand;
    insertStep(tour, page, QStringLiteral(":CHAN"), QStringLiteral("2"));
    insertStep(tour, page, QStringLiteral(":CHAN"));
    insertStep(tour, page, QStringLiteral("*IDN?"));
    insertStep(tour, page, QStringLiteral(":CURR"));
    insertStep(tour, page, QStringLiteral(":CURR"), QStringLiteral("1.5"));
    tour.then(QStringLiteral("brings the lines into their order"), [&page] {
        ui::choose(page.lstCmdPool, QStringLiteral(":CURR 1.5"));
        page.cmdUp.click();
        for (int i = 0; i < 2; ++i) { // a move clears the selection
            ui::choose(page.lstCmdPool, QStringLiteral("*IDN?"));
            page.cmdDown.click();
        }
        requireEqual(linesOfList(page.lstCmdPool), expectedList, QStringLiteral("the list"));
    });
    tour.picture(form, QStringLiteral("command.png"));
}

void runSteps(Tour& tour, FormORB& form)
{
    CommandPage& page = form.fraCommand;
    for (int i = 0; i < expectedList.size(); ++i)
        tour.then(QStringLiteral("sends the line %1").arg(i + 1),
                  [&page] { ui::press(page, QStringLiteral("Start Log")); });
    tour.then(QStringLiteral("reads the answers in the log"), [&page] { requireRounds(entriesOf(page)); });
    tour.then(QStringLiteral("shows the log"), [&page] { page.cmdShowPages.click(); });
    tour.then(QStringLiteral("chooses the repeat"), [&page] { ui::press(page, QStringLiteral("Single Step")); });
    tour.then(QStringLiteral("starts the list"), [&page] { ui::press(page, QStringLiteral("Start Log")); });
    tour.then(
        QStringLiteral("waits for two rounds"), [&page] { return entriesOf(page).size() >= 3 * expectedLog.size(); },
        [] {});
    tour.picture(form, QStringLiteral("command_running.png"));
    tour.then(QStringLiteral("stops it"), [&page] { ui::press(page, QStringLiteral("Stop Log")); });
    tour.then(QStringLiteral("reads the same answers again"), [&page] {
        const QStringList entries = entriesOf(page);
        requireRounds(entries);
        for (const QString& wanted : expectedLog)
            if (!entries.contains(wanted))
                throw TourFailure(QStringLiteral("the log never says ") + wanted);
    });
}

void fileSteps(Tour& tour, FormORB& form)
{
    CommandPage& page = form.fraCommand;
    const QString list = QStringLiteral("commands.scp");
    const QString log = QStringLiteral("commands.log");
    tour.then(QStringLiteral("saves the list"), [&tour, &page, list] {
        QFile::remove(tour.path(list)); // of an earlier tour: the dialog would ask
        ui::press(page, QStringLiteral("Save Command File"));
    });
    tour.chooseFile(list);
    tour.answer(QStringLiteral("ORB Commands saved OK (FileName:%1)!").arg(tour.path(list)), QStringLiteral("OK"));
    tour.then(QStringLiteral("saves the log"), [&tour, &page, log] {
        QFile::remove(tour.path(log));
        ui::press(page, QStringLiteral("Save Run Cmd's Log File"));
    });
    tour.chooseFile(log);
    tour.answer(QStringLiteral("ORB Command Log saved OK (FileName:%1)!").arg(tour.path(log)), QStringLiteral("OK"));
    tour.then(QStringLiteral("compares the file with the log"), [&tour, &page, log] {
        QFile file(tour.path(log));
        if (!file.open(QIODevice::ReadOnly) ||
            QString::fromUtf8(file.readAll()) != page.txtExecLog.text() + QStringLiteral("\r\n"))
            throw TourFailure(QStringLiteral("the file is not the log"));
    });
    tour.then(QStringLiteral("empties the log and the list"), [&page] {
        ui::press(page, QStringLiteral("Refresh"));
        while (page.lstCmdPool.listCount() > 0) {
            ui::choose(page.lstCmdPool, page.lstCmdPool.list(0));
            page.cmdDelete.click();
        }
    });
    tour.then(QStringLiteral("opens the list"), [&page] { ui::press(page, QStringLiteral("Open Commad File")); });
    tour.chooseFile(list);
    tour.then(QStringLiteral("compares it with the first one"),
              [&page] { requireEqual(linesOfList(page.lstCmdPool), expectedList, QStringLiteral("the opened list")); });
}

} // namespace

void consoleSteps(Tour& tour, FormORB& form)
{
    tour.then(
        QStringLiteral("goes to the page Command"), [&form] { return ui::find(form, QStringLiteral("Command")); },
        [&form] { ui::press(form, QStringLiteral("Command")); });
    buildSteps(tour, form);
    runSteps(tour, form);
    fileSteps(tour, form);
}

} // namespace orb
