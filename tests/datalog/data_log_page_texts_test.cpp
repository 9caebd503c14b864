// SPDX-License-Identifier: GPL-3.0-or-later
#include "data_log_page_test.h"

#include <QLayout>

#include <map>

using namespace orb;
using testing::ElementsAre;

namespace {

class DataLogPageTextsTest : public DataLogPageTest {
protected:
    static QStringList textsOf(const char* name, const QAbstractButton& button)
    {
        return {QStringLiteral("%1 | %2 | %3").arg(name, button.text(), button.toolTip())};
    }

    /// The labels of a container, from top to bottom and from left to right.
    static QStringList labels(QWidget& container)
    {
        container.layout()->activate();
        std::map<std::pair<int, int>, QString> sorted;
        for (const Label* label : container.findChildren<Label*>(Qt::FindDirectChildrenOnly))
            sorted[{label->y() / 8, label->x()}] = label->caption();
        QStringList captions;
        for (const auto& [place, caption] : sorted)
            captions << caption;
        return captions;
    }

    DataFileDialog& dialog() { return page.FrameDataFileOperate; }

    /// Runs `work` while every statement of that kind fails on the table of the saved logs.
    void failing(const QString& verb, const std::function<void()>& work)
    {
        alterDatabase(QStringLiteral("create trigger broken before %1 on DataMeasureM begin "
                                     "select raise(fail, 'broken'); end")
                          .arg(verb));
        work();
        alterDatabase(QStringLiteral("drop trigger broken"));
    }

    void saveInto(const QString& file)
    {
        dialogs.files = {file};
        press(page.cmdExport);
    }

    void deleteFirstLog()
    {
        press(page.logDelete);
        if (dialog().listLogDel.listCount() > 0)
            dialog().listLogDel.setListIndex(0);
        dialogs.answers = {Answer::Yes};
        press(dialog().cmdOKDataLogFile);
    }
};

TEST_F(DataLogPageTextsTest, ButtonsBoxesAndOptionsHaveTheirCaptionsAndToolTips)
{
    QStringList texts;
    texts << textsOf("logStart", page.logStart) << textsOf("logStop", page.logStop)
          << textsOf("logRefresh", page.logRefresh) << textsOf("logSave", page.logSave)
          << textsOf("logOpen", page.logOpen) << textsOf("logDelete", page.logDelete)
          << textsOf("logPrint", page.logPrint) << textsOf("cmdExport", page.cmdExport)
          << textsOf("OK", dialog().cmdOKDataLogFile) << textsOf("Cancel", dialog().cmdCancelDataLogFile);
    for (const OptionButton& option : page.optGraphMode)
        texts << textsOf("optGraphMode", option);
    for (const CheckBox& box : page.cbPlot)
        texts << textsOf("cbPlot", box);

    EXPECT_THAT(texts, ElementsAre("logStart | Start Log | ", "logStop | Stop Log | ", "logRefresh | Refresh | ",
                                   "logSave | Save Log File | Add the current log to the saved logs",
                                   "logOpen | Open Log File | ", "logDelete | Delete Log File | ",
                                   "logPrint | Print Log Picture | ",
                                   "cmdExport | Save Log File | Write the current log to a CSV file", "OK | OK | ",
                                   "Cancel | Cancel | ", "optGraphMode | Zoom | ", "optGraphMode | Pan | ",
                                   "optGraphMode | Cursor Coodinates | ", "cbPlot | Ch1 V | ", "cbPlot | Ch1 A | ",
                                   "cbPlot | Ch2 V | ", "cbPlot | Ch2 A | ", "cbPlot | Ch3 V | ", "cbPlot | Ch3 A | ",
                                   "cbPlot | Ch4 V | ", "cbPlot | Ch4 A | ", "cbPlot | Ch5 V | ", "cbPlot | Ch5 A | ",
                                   "cbPlot | Ch6 V | ", "cbPlot | Ch6 A | ", "cbPlot | Ch7 V | ", "cbPlot | Ch7 A | ",
                                   "cbPlot | Ch8 V | ", "cbPlot | Ch8 A | "));
}

TEST_F(DataLogPageTextsTest, FramesLabelsAndPositionsHaveTheirCaptions)
{
    form.show();
    press(page.optGraphMode[2]);

    EXPECT_THAT((QStringList{page.caption(), page.Frame3.caption(), page.FrameChannel.caption(),
                             page.FrameGraphOperations.caption(), page.FrameCursor.caption(), page.DataLog.caption()}),
                ElementsAre("Data Log", "", "", "Graph Operations", "Cursor Information", "Sequence Settings"));
    EXPECT_THAT(page.GraphMode.positions(), ElementsAre("Axis", "Zoom", "Cursor Coordinates", "Cursor Measurements"));
    EXPECT_THAT(labels(page), ElementsAre("Time Len", "Voltage", "Current"));
    EXPECT_THAT(labels(page.FrameCursor),
                ElementsAre("X Position:", "Y Position:", "", "Measurements", "Amplitude:", "Period:"))
        << "the third is the unit, empty while no curve is read";
}

TEST_F(DataLogPageTextsTest, EachLabelBelongsToItsControl)
{
    QStringList pairs;
    const std::array<std::pair<const char*, QWidget*>, 7> controls{{{"cmbXLength", &page.cmbXLength},
                                                                    {"cmbYVoltage", &page.cmbYVoltage},
                                                                    {"cmbYCurrent", &page.cmbYCurrent},
                                                                    {"XPosition", &page.XPosition},
                                                                    {"YPosition", &page.YPosition},
                                                                    {"AmplitudeVal", &page.AmplitudeVal},
                                                                    {"PeriodVal", &page.PeriodVal}}};
    for (const auto& [name, control] : controls)
        for (const Label* label : page.findChildren<Label*>())
            if (label->buddy() == control)
                pairs << QStringLiteral("%1 %2").arg(name, label->caption());
    EXPECT_THAT(pairs, ElementsAre("cmbXLength Time Len", "cmbYVoltage Voltage", "cmbYCurrent Current",
                                   "XPosition X Position:", "YPosition Y Position:", "AmplitudeVal Amplitude:",
                                   "PeriodVal Period:"));
}

TEST_F(DataLogPageTextsTest, TheGridShowsTwentyTwoColumnsUnderTheirCaptions)
{
    QStringList captions;
    for (int column = 0; column < page.DBGrid1.columnCount(); ++column)
        captions << page.DBGrid1.column(column).field + ' ' + page.DBGrid1.column(column).caption;

    EXPECT_THAT(captions, ElementsAre("SeqNo SeqNo", "RecTime RecTime", "PVal1 CH1 A", "SVal1 CH1 V", "PVal2 CH2 A",
                                      "SVal2 CH2 V", "PVal3 CH3 A", "SVal3 CH3 V", "PVal4 CH4 A", "SVal4 CV4 V",
                                      "PVal5 CH5 A", "SVal5 CH5 V", "PVal6 CH6 A", "SVal6 CH6 V", "PVal7 CH7 A",
                                      "SVal7 CH7 V", "PVal8 CH8 A", "SVal8 CH8 V", "Reason3 Reason3", "Comment Comment",
                                      "TimeTick TimeTick", "DiffLastTime DiffLastTime"));
}

TEST_F(DataLogPageTextsTest, TheListDialogHasATitleForEachUse)
{
    press(page.logOpen);
    EXPECT_EQ(dialog().lblLogTitle.caption(), "Please Select a Data Log File and Open this File");
    press(page.logDelete);
    EXPECT_EQ(dialog().lblLogTitle.caption(), "Please Select a Data Log File and Ready to Delete this File");
}

TEST_F(DataLogPageTextsTest, EveryMessageAndEveryFileDialogHasItsTextItsIconAndItsButtons)
{
    const QString csv = application.filePath("log.csv");
    const std::vector<std::pair<const char*, std::function<void()>>> uses{
        {"start without a link",
         [&] {
             instrument.connected = false;
             press(page.logStart);
             instrument.connected = true;
         }},
        {"save without rows", [&] { press(page.logSave); }},
        {"export without rows", [&] { saveInto(csv); }},
        {"link lost",
         [&] {
             instrument.connectedReads = {true, false};
             press(page.logStart);
         }},
        {"No to a missing reply",
         [&] {
             instrument.replies = {"", "", "", ""};
             press(page.logStart);
         }},
        {"Yes to a missing reply",
         [&] {
             instrument.replies = {"", "", "", "", ""};
             dialogs.answers = {Answer::Yes};
             press(page.logStart);
         }},
        {"save", [&] { record(1), press(page.logSave); }},
        {"export", [&] { saveInto(csv); }},
        {"delete", [&] { deleteFirstLog(); }},
        {"failing delete", [&] { failing("delete", [&] { press(page.logSave), deleteFirstLog(); }); }},
        {"failing save", [&] { failing("insert", [&] { press(page.logSave); }); }},
    };
    QStringList texts;
    for (const auto& [name, use] : uses) {
        journal.clear();
        use();
        texts << QStringLiteral("-- ") + name << journal.linesOf({"message", "open", "save"});
    }
    EXPECT_THAT(
        texts,
        ElementsAre("-- start without a link",
                    "message \"Please Connect Device first, and then try again!\" critical Ok", "-- save without rows",
                    "message \"Please Retrieve Sample Data from ORB Device first!\" information Ok",
                    "-- export without rows", //
                    "message \"Please Record or Load existing data first!\" information Ok", "-- link lost",
                    "message \"Please Setup Device first, and then try again!\" critical Ok",
                    "message \"91:Object variable not set\" critical Ok", "-- No to a missing reply",
                    "message \"Device is Busy or Device is not connected\\r\\nWait or not?\" none YesNo",
                    "message \"9:Subscript out of range\" critical Ok", "-- Yes to a missing reply",
                    "message \"Device is Busy or Device is not connected\\r\\nWait or not?\" none YesNo",
                    "message \"Device is not connected.\\r\\nPlease reconnect device and try again!\" critical Ok",
                    "message \"9:Subscript out of range\" critical Ok",
                    "-- save", //
                    "message \"Data Log Saved OK(Rec ID:20240131001)!\" information Ok", "-- export",
                    "save directory \"APP\\\" filter \"ORB Data Log文件(*.csv)|*.csv\" title \"\" name \"\"",
                    "message \"Data Log CSV saved OK (FileName:APP/log.csv)!\" information Ok",
                    "message \"Data Log CSV saved Failed as User Cancel Opeation!\" none Ok", "-- delete",
                    "message \"Do you want to delete this Data Logfile(20240131001)?\" none YesNo",
                    "message \"Delete Data Log OK!\" information Ok", "-- failing delete",
                    "message \"Data Log Saved OK(Rec ID:20240131001)!\" information Ok",
                    "message \"Do you want to delete this Data Logfile(20240131001)?\" none YesNo",
                    "message \"Delete Data Log Failed, Caused by:broken\" critical Ok", "-- failing save",
                    "message \"Data Log Saved Failed! Caused by:broken\" critical Ok"));
}

} // namespace
