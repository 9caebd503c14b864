// SPDX-License-Identifier: GPL-3.0-or-later
#include "program_tour.h"

#include "form_orb.h"
#include "tour.h"
#include "user_interface.h"

#include <QApplication>

namespace orb {

namespace {

/// What the page holds of the programs: the tags of the cells, then the selections of the chain.
QStringList contentOf(const ProgramPage& page)
{
    QStringList content;
    for (const MemoryCell& cell : page.txtMemSetting)
        content << cell.tag();
    for (const ComboBox& next : page.cmbProgChain)
        content << next.text();
    return content;
}

void require(bool holds, const QString& message)
{
    if (!holds)
        throw TourFailure(message);
}

/// The content at one step of the tour, to compare with at a later one.
using Kept = std::shared_ptr<QStringList>;

void loadSteps(Tour& tour, FormORB& form)
{
    ProgramPage& page = form.fraProgram;
    tour.then(
        QStringLiteral("goes to the page Program"), [&form] { return ui::find(form, QStringLiteral("Program")); },
        [&form] { ui::press(form, QStringLiteral("Program")); });
    tour.picture(form, QStringLiteral("program_empty.png"));
    tour.then(
        QStringLiteral("imports the programs of the instrument"), [&page] { return page.progLoad.enabled(); },
        [&page] { page.progLoad.click(); });
    tour.then(
        QStringLiteral("every cell is filled"), [&page] { return page.progSend.enabled(); },
        [&page] {
            for (const MemoryCell& cell : page.txtMemSetting)
                require(!cell.tag().isEmpty(), QStringLiteral("a cell is empty"));
        });
}

void editSteps(Tour& tour, FormORB& form)
{
    ProgramPage& page = form.fraProgram;
    tour.then(QStringLiteral("opens step 5 of program 4"), [&page] { ui::click(page.txtMemSetting[34]); });
    tour.then(QStringLiteral("sets memory, run mode, a time and a channel"), [&page] {
        ui::type(page.cmbMemory, QStringLiteral("17"));
        ui::type(page.cmbMemRun, QStringLiteral("AUTO"));
        if (page.chkMemSet[0].value() != CheckBox::Checked)
            page.chkMemSet[0].click();
        ui::type(page.txtProgMem[0], QStringLiteral("2.5"));
        ui::press(page, QStringLiteral("CH3"));
    });
    tour.picture(form, QStringLiteral("program_step.png"));
    tour.then(QStringLiteral("presses OK"), [&page] {
        ui::press(page.frameMemorySetting, QStringLiteral("OK"));
        require(page.txtMemSetting[34].text() == QLatin1String("17"), QStringLiteral("the cell does not show 17"));
    });
    tour.then(QStringLiteral("opens the chain"), [&page] { ui::press(page, QStringLiteral("Program Chain")); });
    tour.then(QStringLiteral("adds two programs and moves one up"), [&page] {
        for (const char* program : {"P04", "P02"}) {
            ui::choose(page.lstProgramOrder[0], QLatin1String(program));
            ui::press(page, QStringLiteral("Add >"));
        }
        ui::choose(page.lstProgramOrder[1], QStringLiteral("P02"));
        ui::press(page, QStringLiteral("Up"));
    });
    tour.picture(form, QStringLiteral("program_chain.png"));
    tour.then(QStringLiteral("confirms the chain"), [&page] {
        ui::press(page.fraProgramOrder, QStringLiteral("OK"));
        require(page.cmbProgChain[1].text() == QLatin1String("P04"), QStringLiteral("P02 is not followed by P04"));
    });
    tour.picture(form, QStringLiteral("program.png"));
}

void storeSteps(Tour& tour, FormORB& form, const Kept& edited)
{
    ProgramPage& page = form.fraProgram;
    tour.then(QStringLiteral("stores the programs in the history"), [&page, edited] {
        *edited = contentOf(page);
        page.progSave.click();
    });
    tour.then(
        QStringLiteral("confirms that they are stored"),
        [] { return ui::messageUp().startsWith(QStringLiteral("Store Program Setting(ID:")); },
        [] { ui::press(*QApplication::activeModalWidget(), QStringLiteral("OK")); });
    tour.then(QStringLiteral("transfers them to the instrument"), [&page] { page.progSend.click(); });
    tour.then(
        QStringLiteral("the transfer has ended"), [&page] { return !page.frameProgress.visible(); }, [] {});
}

/// Opens what was stored, and what was sent: both must be what was edited.
void compareSteps(Tour& tour, FormORB& form, const Kept& edited)
{
    ProgramPage& page = form.fraProgram;
    DataFileDialog& dialog = form.frmDatalog.FrameDataFileOperate;
    tour.then(QStringLiteral("clears the page"), [&page] { page.progReset.click(); });
    tour.then(QStringLiteral("opens the history"), [&page] { page.progOpenDB.click(); });
    tour.then(QStringLiteral("selects the stored program"),
              [&dialog] { ui::choose(dialog.lstProgFile, dialog.lstProgFile.list(0)); });
    tour.picture(form, QStringLiteral("program_history.png"));
    tour.then(QStringLiteral("opens it"), [&dialog] { ui::press(dialog, QStringLiteral("OK")); });
    tour.then(QStringLiteral("compares it with what was stored"),
              [&page, edited] { require(contentOf(page) == *edited, QStringLiteral("the stored program differs")); });
    tour.then(QStringLiteral("imports what was transferred"), [&page] { page.progLoad.click(); });
    tour.then(
        QStringLiteral("compares it with what was transferred"),
        [&page] { return !page.txtMemSetting[119].tag().isEmpty(); }, // filled last
        [&page] {
            require(page.txtMemSetting[34].text() == QLatin1String("17") &&
                        page.cmbProgChain[1].text() == QLatin1String("P04"),
                    QStringLiteral("the instrument has another program"));
        });
    tour.picture(form, QStringLiteral("program_imported.png"));
}

} // namespace

void programSteps(Tour& tour, FormORB& form)
{
    const auto edited = std::make_shared<QStringList>();
    loadSteps(tour, form);
    editSteps(tour, form);
    storeSteps(tour, form, edited);
    compareSteps(tour, form, edited);
}

} // namespace orb
