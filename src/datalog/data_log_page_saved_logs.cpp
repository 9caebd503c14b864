// SPDX-License-Identifier: GPL-3.0-or-later
#include "data_log_page.h"
#include "sample_columns.h"
#include "values.h"
#include "wait_pointer.h"

namespace orb {

namespace {

/// The date of a saved log as the list shows it. It stays a text, so that no time zone can refuse or shift it.
QString logDateOf(const Recordset& log)
{
    return log.field("LogDate").asText().replace(QLatin1Char('-'), QLatin1Char('/'));
}

/// The identifier at the beginning of a list line.
QString identifierOf(const QString& line)
{
    return line.section(QLatin1Char(','), 0, 0).trimmed();
}

} // namespace

void DataLogPage::logSaveClick()
{
    try {
        saveLog();
    } catch (const RuntimeFailure& failure) {
        dialogs_.message(QStringLiteral("Data Log Saved Failed! Caused by:") + failure.description(), Icon::Critical);
    }
}

void DataLogPage::saveLog()
{
    if (DataLog.recordset().recordCount() < 1) {
        dialogs_.message(QStringLiteral("Please Retrieve Sample Data from ORB Device first!"), Icon::Information);
        return;
    }
    WaitPointer wait;
    const QString identifier = nextLogID();
    dbMain_.execute(QStringLiteral("insert into DataMeasureM (logID,CHNum,RecNum) values('%1',%2,%3)")
                        .arg(identifier)
                        .arg(CORB_.ChannelCount())
                        .arg(DataLog.recordset().recordCount()));
    dbMain_.execute(QStringLiteral("insert into DataMeasureD  select '%1' as logID, %2 from DataMeasure")
                        .arg(identifier, sampleColumns));
    wait.end();
    dialogs_.message(QStringLiteral("Data Log Saved OK(Rec ID:%1)!").arg(identifier), Icon::Information);
}

/// Today's date and the count of today's logs plus one. After a log of today was deleted it can be an identifier that
/// is still there.
QString DataLogPage::nextLogID() const
{
    const QString today = clock_.now().toString(QStringLiteral("yyyyMMdd"));
    const auto logs =
        dbMain_.openRecordset(QStringLiteral("select count(*) from DataMeasureM where logid like '%1*'").arg(today));
    if (logs->isEof())
        return today + QStringLiteral("001");
    const int count = toLong(logs->field(0).toDouble());
    return today + (QStringLiteral("000") + QString::number(count + 1)).right(3);
}

void DataLogPage::logOpenClick()
{
    offerLogs(FrameDataFileOperate.lstLogMain, QStringLiteral("Please Select a Data Log File and Open this File"),
              QStringLiteral("OPENDATALOG"), {"CHNum", "RecNum"});
}

void DataLogPage::logDeleteClick()
{
    offerLogs(FrameDataFileOperate.listLogDel,
              QStringLiteral("Please Select a Data Log File and Ready to Delete this File"),
              QStringLiteral("DELETEDATALOG"), {"CHNum"});
}

/// Shows the dialog on this page with a line for each saved log, newest first.
void DataLogPage::offerLogs(ListBox& list, const QString& title, const QString& tag, const QStringList& fields)
{
    FrameDataFileOperate.showOn(*this);
    FrameDataFileOperate.lblLogTitle.setCaption(title);
    FrameDataFileOperate.cmdOKDataLogFile.setTag(tag);
    list.clear();
    const auto logs = dbMain_.openRecordset(QStringLiteral("select * from DataMeasureM order by logdate desc"));
    for (; !logs->isEof(); logs->moveNext()) {
        QStringList line{logs->field("LogID").asText(), logDateOf(*logs)};
        for (const QString& field : fields)
            line << logs->field(field).textOrEmpty();
        list.addItem(line.join(QStringLiteral(", ")));
    }
    list.setVisible(true);
    list.bringToFront(); // the lists share one place
    FrameDataFileOperate.focusOn(list);
}

void DataLogPage::cmdOKDataLogFileClick()
{
    const QString tag = FrameDataFileOperate.cmdOKDataLogFile.tag();
    if (tag == QLatin1String("OPENDATALOG"))
        OpenDataLog();
    else if (tag == QLatin1String("DELETEDATALOG"))
        DeleteDataLog();
    else if (tag == QLatin1String("PROCROGRAM") && ApplyProgramHistory)
        ApplyProgramHistory();
    FrameDataFileOperate.setVisible(false);
}

void DataLogPage::cmdCancelDataLogFileClick()
{
    FrameDataFileOperate.setVisible(false);
    FrameDataFileOperate.lstLogMain.setVisible(false);
    FrameDataFileOperate.listLogDel.setVisible(false);
}

void DataLogPage::OpenDataLog()
{
    const QString line = FrameDataFileOperate.lstLogMain.selectedText();
    const QString identifier = identifierOf(line);
    if (identifier.isEmpty())
        return;
    const WaitPointer wait;
    iLogChannels = toInteger(numericValue(line.section(QLatin1Char(','), 2, 2)));
    dbMain_.execute(QStringLiteral("delete * from DataMeasure"));
    dbMain_.execute(QStringLiteral("insert into DataMeasure  select %1 from DataMeasureD  where logid='%2'")
                        .arg(sampleColumns, identifier));
    logRefreshClick();
}

void DataLogPage::DeleteDataLog()
{
    try {
        const QString identifier = identifierOf(FrameDataFileOperate.listLogDel.selectedText());
        if (!identifier.isEmpty() && !deleteLog(identifier))
            return;
        // This box comes also when nothing was selected.
        dialogs_.message(QStringLiteral("Delete Data Log OK!"), Icon::Information);
    } catch (const RuntimeFailure& failure) {
        dialogs_.message(QStringLiteral("Delete Data Log Failed, Caused by:") + failure.description(), Icon::Critical);
    }
}

/// False if the operator answers No.
bool DataLogPage::deleteLog(const QString& identifier)
{
    const auto answer = dialogs_.message(QStringLiteral("Do you want to delete this Data Logfile(%1)?").arg(identifier),
                                         Icon::None, Buttons::YesNo);
    if (answer != Answer::Yes)
        return false;
    FrameDataFileOperate.lstLogMain.setVisible(false);
    dbMain_.execute(QStringLiteral("delete * from DataMeasureM where logid='%1'").arg(identifier));
    dbMain_.execute(QStringLiteral("delete * from DataMeasureD where logid='%1'").arg(identifier));
    return true;
}

} // namespace orb
