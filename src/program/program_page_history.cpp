// SPDX-License-Identifier: GPL-3.0-or-later
#include "program_page.h"
#include "values.h"
#include "wait_pointer.h"

namespace orb {

namespace {
const QString openMode = QStringLiteral("OPEN");
const QString deleteMode = QStringLiteral("DELETE");
} // namespace

void ProgramPage::progSaveClick()
{
    try {
        const QString identifier = clock_.now().toString(QStringLiteral("yyyyMMdd-HHmmss"));
        storeCase(identifier);
        dialogs_.message(QStringLiteral("Store Program Setting(ID:%1) Successfully!").arg(identifier),
                         Icon::Information);
    } catch (const RuntimeFailure& failure) {
        dialogs_.message(QStringLiteral("Store Program Setting Failed, caused by: ") + failure.description(),
                         Icon::Critical);
    }
}

/// An empty cell is stored too. The tag is put into the statement as it is: an apostrophe typed into a time breaks it.
void ProgramPage::storeCase(const QString& identifier)
{
    const WaitPointer wait;
    for (std::size_t n = 0; n < txtMemSetting.size(); ++n)
        dbMain_.execute(QStringLiteral("insert into ProgramMemory (MemCase,MemNo,MemData) values('%1',%2,'%3')")
                            .arg(identifier, QString::number(n), txtMemSetting[n].tag()));
    for (std::size_t i = 0; i < cmbProgChain.size(); ++i)
        dbMain_.execute(QStringLiteral("insert into ProgramChain (MemCase,ProgNo,ProgData) values('%1',%2,'%3')")
                            .arg(identifier, QString::number(i), QString::number(cmbProgChain[i].listIndex())));
}

void ProgramPage::progOpenDBClick()
{
    offerCases(openMode, QColor(255, 192, 192), QStringLiteral("Please Select a Program File and Open this File"));
}

void ProgramPage::progDeleteClick()
{
    offerCases(deleteMode, QColor(192, 255, 255),
               QStringLiteral("Please Select a Program File and Ready to Delete this File"));
}

/// A second click closes the list and does nothing else.
void ProgramPage::offerCases(const QString& tag, const QColor& color, const QString& title)
{
    ListBox& list = FrameDataFileOperate_.lstProgFile;
    if (list.visible()) {
        list.setVisible(false);
        return;
    }
    list.clear();
    const auto cases = dbMain_.openRecordset(QStringLiteral("select memcase from ProgramMemory group by memcase"));
    for (; !cases->isEof(); cases->moveNext())
        list.addItem(cases->field("memcase").asText());
    list.setVisible(true);
    list.bringToFront(); // the lists share one place
    list.setBackColor(color);
    list.setTag(tag);
    FrameDataFileOperate_.showOn(*this);
    FrameDataFileOperate_.lblLogTitle.setCaption(title);
    FrameDataFileOperate_.cmdOKDataLogFile.setTag(QStringLiteral("PROCROGRAM"));
    FrameDataFileOperate_.focusOn(list);
}

void ProgramPage::ApplyProgramHistory()
{
    ListBox& list = FrameDataFileOperate_.lstProgFile;
    const QString identifier = list.selectedText().trimmed();
    if (!identifier.isEmpty() && list.tag() == openMode) {
        list.setVisible(false);
        openCase(identifier);
    } else if (!identifier.isEmpty()) {
        deleteCase(identifier);
    }
    list.setVisible(false);
}

void ProgramPage::openCase(const QString& identifier)
{
    openCells(identifier);
    openChain(identifier);
    enableSendIfConnected();
}

/// Rows overwrite their cells, and the page is not cleared before. An empty row gets the values of the row before it. The
/// frame counts the rows, while the tag is that of the row's own cell: only a case with all its rows is certain to come
/// back as it was stored.
void ProgramPage::openCells(const QString& identifier)
{
    const auto rows = dbMain_.openRecordset(
        QStringLiteral("select * from ProgramMemory where MemCase='%1' order by memno asc").arg(identifier));
    for (int row = 0; !rows->isEof(); rows->moveNext(), ++row) {
        frameMemorySetting.setTag(QString::number(row));
        frameMemorySetting.setVisible(true);
        frameMemorySetting.bringToFront();
        MemoryCell& cell = element(txtMemSetting, toInteger(rows->field("memno").toDouble()));
        cell.setTag(rows->field("memdata").textOrEmpty());
        ShowMemSetting(cell.tag());
        cmdMemSetOKClick();
    }
}

void ProgramPage::openChain(const QString& identifier)
{
    const auto rows = dbMain_.openRecordset(
        QStringLiteral("select * from ProgramChain where MemCase='%1' order by progno asc").arg(identifier));
    for (int row = 0; !rows->isEof(); rows->moveNext(), ++row)
        element(cmbProgChain, row).setListIndex(toInteger(numericValue(rows->field("progdata").asText())));
}

void ProgramPage::deleteCase(const QString& identifier)
{
    const auto answer = dialogs_.message(QStringLiteral("Do you want to delete [%1] Record?").arg(identifier),
                                         Icon::None, Buttons::YesNo);
    if (answer != Answer::Yes)
        return;
    dbMain_.execute(QStringLiteral("delete from ProgramMemory where MemCase='%1'").arg(identifier));
    dbMain_.execute(QStringLiteral("delete from ProgramChain where MemCase='%1'").arg(identifier));
    dialogs_.message(QStringLiteral("Delete Data [%1]Finished!").arg(identifier));
}

} // namespace orb
