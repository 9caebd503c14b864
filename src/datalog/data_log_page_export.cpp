// SPDX-License-Identifier: GPL-3.0-or-later
#include "csv_export.h"
#include "data_log_page.h"
#include "text_file.h"

namespace orb {

void DataLogPage::cmdExportClick()
{
    if (lLogRecNo < 1) {
        dialogs_.message(QStringLiteral("Please Record or Load existing data first!"), Icon::Information);
        return;
    }
    CommonDialog& dialog = dialogs_.CommonDialog1;
    dialog.initialDirectory = paths_.inApplication(QStringLiteral("\\"));
    dialog.filter = QStringLiteral("ORB Data Log文件(*.csv)|*.csv");
    dialogs_.showSave();
    const QString name = dialog.fileName; // after a Cancel, what the dialog held before
    if (!name.isEmpty())
        exportTo(name);
    // This box comes after every successful save too.
    dialogs_.message(QStringLiteral("Data Log CSV saved Failed as User Cancel Opeation!"));
}

void DataLogPage::exportTo(const QString& name)
{
    OutputFile file(name);
    file.writeLine(csvHeader(iLogChannels));
    auto rows = dbMain_.openRecordset(csvSelect(iLogChannels));
    writeCsvRows(*rows, iLogChannels, file);
    rows.reset();
    file.close();
    dialogs_.message(QStringLiteral("Data Log CSV saved OK (FileName:") + name + QStringLiteral(")!"),
                     Icon::Information);
}

} // namespace orb
