// SPDX-License-Identifier: GPL-3.0-or-later
#include "data_log_page_test.h"

#include <ctime>

using namespace orb;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const Shown noRows{"Please Retrieve Sample Data from ORB Device first!", Icon::Information, Buttons::Ok};
const Shown deleted{"Delete Data Log OK!", Icon::Information, Buttons::Ok};

Shown savedAs(const QString& identifier)
{
    return {"Data Log Saved OK(Rec ID:" + identifier + ")!", Icon::Information, Buttons::Ok};
}

Shown askToDelete(const QString& identifier)
{
    return {"Do you want to delete this Data Logfile(" + identifier + ")?", Icon::None, Buttons::YesNo};
}

/// The local time zone, for as long as it lives.
class LocalTimeZone {
public:
    explicit LocalTimeZone(const char* name) : before_(qgetenv("TZ"))
    {
        qputenv("TZ", name);
        tzset();
    }
    ~LocalTimeZone()
    {
        before_.isNull() ? qunsetenv("TZ") : qputenv("TZ", before_);
        tzset();
    }
    LocalTimeZone(const LocalTimeZone&) = delete;
    LocalTimeZone& operator=(const LocalTimeZone&) = delete;

private:
    QByteArray before_;
};

class DataLogPageSavedLogsTest : public DataLogPageTest {
protected:
    DataFileDialog& dialog() { return page.FrameDataFileOperate; }

    void recordAndSave(int samples)
    {
        record(samples);
        press(page.logSave);
    }

    void deleteLog(const QString& line)
    {
        press(page.logDelete);
        pick(dialog().listLogDel, line);
        dialogs.answers = {Answer::Yes};
        press(dialog().cmdOKDataLogFile);
    }

    QString masters() const { return table("select LogID,CHNum,RecNum from DataMeasureM order by LogID"); }
    QString details() const { return table("select LogID,count(*) from DataMeasureD group by LogID"); }

    /// Makes every insert into or delete from a table fail with this message.
    void breakStatement(const QString& verb, const QString& tableName, const QString& message)
    {
        alterDatabase(QStringLiteral("create trigger broken before %1 on %2 begin select raise(fail, '%3'); end")
                          .arg(verb, tableName, message));
    }
};

TEST_F(DataLogPageSavedLogsTest, TheFirstSaveOfADayIsNumberOneTheNextNumberTwoAndTheDayChangesThePrefix)
{
    recordAndSave(2);
    press(page.logSave);
    clock.setNow(QDateTime({2024, 2, 1}, {9, 0, 0}));
    press(page.logSave);

    EXPECT_THAT(dialogs.shown, ElementsAre(savedAs("20240131001"), savedAs("20240131002"), savedAs("20240201001")));
    EXPECT_EQ(masters(), "20240131001|4|2\n20240131002|4|2\n20240201001|4|2\n");
    EXPECT_EQ(details(), "20240131001|2\n20240131002|2\n20240201001|2\n");
}

TEST_F(DataLogPageSavedLogsTest, ADeleteEarlierInTheDayMakesTheNextSaveRepeatAnIdentifierAndFail)
{
    recordAndSave(1);
    press(page.logSave);
    press(page.logSave);
    deleteLog("20240131002, 2024/01/31 10:15:01, 4");
    dialogs.shown.clear();

    press(page.logSave);

    ASSERT_EQ(dialogs.shown.size(), 1);
    EXPECT_TRUE(dialogs.shown[0].text.startsWith("Data Log Saved Failed! Caused by:UNIQUE constraint failed"))
        << dialogs.shown[0].text.toStdString();
    EXPECT_EQ(dialogs.shown[0].icon, Icon::Critical);
    EXPECT_EQ(details(), "20240131001|1\n20240131003|1\n") << "nothing is mixed";
}

TEST_F(DataLogPageSavedLogsTest, TheThousandthSaveOfADayHasTheDigitsZero)
{
    record(1);
    alterDatabase("insert into DataMeasureM (LogID,LogDate) with recursive n(i) as (select 1 union all select i+1 from "
                  "n where i<999) select '20240131'||printf('%03d',i),'2024-01-31 09:00:00' from n");

    press(page.logSave);

    EXPECT_THAT(dialogs.shown, ElementsAre(savedAs("20240131000")));
}

TEST_F(DataLogPageSavedLogsTest, ASaveWithoutRowsSavesNothing)
{
    press(page.logSave);

    EXPECT_THAT(dialogs.shown, ElementsAre(noRows));
    EXPECT_EQ(masters(), "");
}

TEST_F(DataLogPageSavedLogsTest, TheChannelCountIsWhatTheInstrumentSaysAtTheSaveAndALaterOpenPlotsByIt)
{
    record(2);
    instrument.channelCount = 2;
    press(page.logSave);

    press(page.logOpen);
    pick(dialog().lstLogMain, "20240131001, 2024/01/31 10:15:02, 2, 2");
    press(dialog().cmdOKDataLogFile);

    EXPECT_EQ(page.iLogChannels, 2);
    EXPECT_THAT(plotted(3), ElementsAre(2.1, 2.1, 0));
    EXPECT_FALSE(page.cbPlot[4].enabled());
}

TEST_F(DataLogPageSavedLogsTest, TheColumnsThatNothingWritesSurviveASaveAndAnOpen)
{
    record(1);
    alterDatabase("update DataMeasure set Reason3='r', Comment='c', TimeTick='7', DiffLastTime='1.5'");
    press(page.logSave);
    record(1);

    press(page.logOpen);
    pick(dialog().lstLogMain, dialog().lstLogMain.list(0));
    press(dialog().cmdOKDataLogFile);

    EXPECT_EQ(table("select Reason3,Comment,TimeTick,DiffLastTime from DataMeasure"), "r|c|7|1.5\n");
}

TEST_F(DataLogPageSavedLogsTest, AnOpenedLogIsTheCurrentLog)
{
    recordAndSave(3);
    record(1);

    press(page.logOpen);
    pick(dialog().lstLogMain, dialog().lstLogMain.list(0));
    press(dialog().cmdOKDataLogFile);

    EXPECT_EQ(page.lLogRecNo, 3);
    EXPECT_THAT(gridColumn("SeqNo"), ElementsAre("0", "1", "2"));
    EXPECT_EQ(plotted(1).size(), 4);
    EXPECT_FALSE(dialog().visible());
}

TEST_F(DataLogPageSavedLogsTest, TheListsShowTheNewestLogFirstWithTheirOwnFields)
{
    recordAndSave(2);
    clock.setNow(QDateTime({2024, 2, 1}, {9, 0, 0}));
    press(page.logSave);

    press(page.logOpen);
    EXPECT_THAT(dialog().lstLogMain.items(),
                ElementsAre("20240201001, 2024/02/01 09:00:00, 4, 2", "20240131001, 2024/01/31 10:15:02, 4, 2"));
    EXPECT_EQ(dialog().cmdOKDataLogFile.tag(), "OPENDATALOG");
    EXPECT_EQ(dialog().lstLogMain.backColor(), QColor(255, 192, 192));

    press(page.logDelete);
    EXPECT_THAT(dialog().listLogDel.items(),
                ElementsAre("20240201001, 2024/02/01 09:00:00, 4", "20240131001, 2024/01/31 10:15:02, 4"));
    EXPECT_EQ(dialog().cmdOKDataLogFile.tag(), "DELETEDATALOG");
    EXPECT_EQ(dialog().listLogDel.backColor(), QColor(192, 255, 255));
}

TEST_F(DataLogPageSavedLogsTest, TheListsAreInTheOrderOfTheDatesAndNotOfTheIdentifiers)
{
    alterDatabase("insert into DataMeasureM (LogID,LogDate,CHNum,RecNum) values"
                  "('20240103001','2024-01-01 08:00:00',1,10),('20240101001','2024-01-03 08:00:00',2,20),"
                  "('20240102001','2024-01-02 08:00:00',3,30)");

    press(page.logOpen);
    press(page.logDelete);

    EXPECT_THAT(dialog().lstLogMain.items(),
                ElementsAre("20240101001, 2024/01/03 08:00:00, 2, 20", "20240102001, 2024/01/02 08:00:00, 3, 30",
                            "20240103001, 2024/01/01 08:00:00, 1, 10"));
    EXPECT_THAT(dialog().listLogDel.items(),
                ElementsAre("20240101001, 2024/01/03 08:00:00, 2", "20240102001, 2024/01/02 08:00:00, 3",
                            "20240103001, 2024/01/01 08:00:00, 1"));
}

TEST_F(DataLogPageSavedLogsTest, ADateInTheHourThatDaylightSavingSkipsIsListedOpenedAndDeleted)
{
    const LocalTimeZone berlin("Europe/Berlin");
    record(1);
    alterDatabase("insert into DataMeasureM (LogID,LogDate,CHNum,RecNum) values"
                  "('20240331001','2024-03-31 02:30:00',2,2);"
                  "insert into DataMeasureD (LogID,SeqNo,RecTime,PVal1,SVal1,PVal2,SVal2) values"
                  "('20240331001',0,'t','1','2','3','4'),('20240331001',1,'t','1','2','3','4')");

    press(page.logOpen);
    EXPECT_THAT(dialog().lstLogMain.items(), ElementsAre("20240331001, 2024/03/31 02:30:00, 2, 2"));
    pick(dialog().lstLogMain, dialog().lstLogMain.list(0));
    press(dialog().cmdOKDataLogFile);
    EXPECT_EQ(page.lLogRecNo, 2);
    EXPECT_EQ(page.iLogChannels, 2);

    deleteLog("20240331001, 2024/03/31 02:30:00, 2");
    EXPECT_EQ(masters() + details(), "");
    EXPECT_THAT(processExit.reports, IsEmpty());
}

TEST_F(DataLogPageSavedLogsTest, AListLineIsCutAtEveryComma)
{
    recordAndSave(2);
    press(page.logOpen);
    dialog().lstLogMain.clear();
    dialog().lstLogMain.addItem(" 20240131001 ,a, 3 channels,b,7");
    dialog().lstLogMain.setListIndex(0);
    page.lLogRecNo = 0;

    press(dialog().cmdOKDataLogFile);

    EXPECT_EQ(page.lLogRecNo, 2) << "the identifier is the first field, trimmed";
    EXPECT_EQ(page.iLogChannels, 3) << "the channel count is the third field";
}

TEST_F(DataLogPageSavedLogsTest, ASaveWithNoneConnectedStoresNoChannelAndALaterOpenPlotsNothing)
{
    record(2);
    instrument.connected = false;
    instrument.channelCount = 0;

    press(page.logSave);
    EXPECT_THAT(dialogs.shown, ElementsAre(savedAs("20240131001")));
    EXPECT_EQ(masters(), "20240131001|0|2\n");

    press(page.logOpen);
    pick(dialog().lstLogMain, "20240131001, 2024/01/31 10:15:02, 0, 2");
    press(dialog().cmdOKDataLogFile);
    EXPECT_EQ(boxesPlotsAndCursors(), "enabled [] checked [] plots [] cursors []");
    EXPECT_EQ(page.lLogRecNo, 2);
}

TEST_F(DataLogPageSavedLogsTest, TheDialogComesToTheFrontOfThisPageFromWhereverItWasShown)
{
    Frame program;
    program.setParent(&form);
    for (PictureButton* button : {&page.logOpen, &page.logDelete}) {
        dialog().showOn(program);
        page.DBGrid1.raise();

        press(*button);

        EXPECT_EQ(dialog().parentWidget(), &page);
        EXPECT_TRUE(dialog().visible());
        EXPECT_EQ(page.children().last(), &dialog());
        EXPECT_TRUE(page.rect().contains(dialog().geometry()));
    }
}

TEST_F(DataLogPageSavedLogsTest, OkWithoutASelectionInOpenModeClosesTheFrameAndChangesNothing)
{
    recordAndSave(2);
    press(page.logOpen);

    press(dialog().cmdOKDataLogFile);

    EXPECT_FALSE(dialog().visible());
    EXPECT_EQ(page.lLogRecNo, 2);
    EXPECT_EQ(plotted(1).size(), 2) << "no refresh was made";
}

TEST_F(DataLogPageSavedLogsTest, OkWithoutASelectionInDeleteModeStillSaysThatTheDeleteIsOk)
{
    recordAndSave(2);
    dialogs.shown.clear();
    press(page.logDelete);

    press(dialog().cmdOKDataLogFile);

    EXPECT_THAT(dialogs.shown, ElementsAre(deleted));
    EXPECT_EQ(masters(), "20240131001|4|2\n");
}

TEST_F(DataLogPageSavedLogsTest, ADeletedLogIsGoneFromBothTables)
{
    recordAndSave(2);
    dialogs.shown.clear();

    deleteLog("20240131001, 2024/01/31 10:15:02, 4");

    EXPECT_THAT(dialogs.shown, ElementsAre(askToDelete("20240131001"), deleted));
    EXPECT_EQ(masters() + details(), "");
    EXPECT_FALSE(dialog().visible());
}

TEST_F(DataLogPageSavedLogsTest, AYesToTheDeleteHidesTheListToOpenAndANoDoesNot)
{
    recordAndSave(2);
    press(page.logOpen);
    press(page.logDelete);
    pick(dialog().listLogDel, dialog().listLogDel.list(0));
    press(dialog().cmdOKDataLogFile); // No
    EXPECT_TRUE(dialog().lstLogMain.visible());

    deleteLog("20240131001, 2024/01/31 10:15:02, 4");
    EXPECT_FALSE(dialog().lstLogMain.visible());
}

TEST_F(DataLogPageSavedLogsTest, ANoToTheDeleteKeepsTheLogAndSaysNothing)
{
    recordAndSave(2);
    dialogs.shown.clear();
    press(page.logDelete);
    pick(dialog().listLogDel, dialog().listLogDel.list(0));
    dialogs.answers = {Answer::No};

    press(dialog().cmdOKDataLogFile);

    EXPECT_THAT(dialogs.shown, ElementsAre(askToDelete("20240131001")));
    EXPECT_EQ(masters(), "20240131001|4|2\n");
    EXPECT_FALSE(dialog().visible());
}

TEST_F(DataLogPageSavedLogsTest, CancelHidesTheFrameAndItsListsAndTheTagStays)
{
    recordAndSave(1);
    press(page.logDelete);
    press(page.logOpen);
    ASSERT_TRUE(dialog().listLogDel.visible());

    press(dialog().cmdCancelDataLogFile);

    EXPECT_FALSE(dialog().visible());
    EXPECT_FALSE(dialog().lstLogMain.visible());
    EXPECT_FALSE(dialog().listLogDel.visible());
    EXPECT_EQ(dialog().cmdOKDataLogFile.tag(), "OPENDATALOG");
}

TEST_F(DataLogPageSavedLogsTest, TheTagOfTheProgramsRunsTheirRoutineAndAnUnknownTagOnlyHidesTheFrame)
{
    int applied = 0;
    page.ApplyProgramHistory = [&] { ++applied; };
    for (const char* tag : {"PROCROGRAM", "SOMETHING"}) {
        dialog().setVisible(true);
        dialog().cmdOKDataLogFile.setTag(tag);
        press(dialog().cmdOKDataLogFile);
        EXPECT_FALSE(dialog().visible());
    }
    EXPECT_EQ(applied, 1);
}

TEST_F(DataLogPageSavedLogsTest, AFailureOfTheCountIsShownAndNothingIsSaved)
{
    record(2);
    alterDatabase("alter table DataMeasureM rename to Gone");

    press(page.logSave);

    EXPECT_THAT(dialogs.shown, ElementsAre(Shown{"Data Log Saved Failed! Caused by:no such table: DataMeasureM",
                                                 critical, Buttons::Ok}));
    EXPECT_EQ(details(), "");
}

TEST_F(DataLogPageSavedLogsTest, AFailureOfTheFirstInsertIsShownAndNothingIsSaved)
{
    record(2);
    breakStatement("insert", "DataMeasureM", "no more logs");

    press(page.logSave);

    EXPECT_THAT(dialogs.shown,
                ElementsAre(Shown{"Data Log Saved Failed! Caused by:no more logs", critical, Buttons::Ok}));
    EXPECT_EQ(masters() + details(), "");
}

TEST_F(DataLogPageSavedLogsTest, AFailureOfTheSecondInsertLeavesTheRowOfTheFirst)
{
    record(2);
    breakStatement("insert", "DataMeasureD", "disk full");

    press(page.logSave);

    EXPECT_THAT(dialogs.shown, ElementsAre(Shown{"Data Log Saved Failed! Caused by:disk full", critical, Buttons::Ok}));
    EXPECT_EQ(masters(), "20240131001|4|2\n");
    EXPECT_EQ(table("select count(*) from DataMeasure"), "2\n");
}

TEST_F(DataLogPageSavedLogsTest, AFailureOfTheFirstDeleteIsShownAndEverythingStands)
{
    recordAndSave(2);
    breakStatement("delete", "DataMeasureM", "kept");
    dialogs.shown.clear();

    deleteLog("20240131001, 2024/01/31 10:15:02, 4");

    EXPECT_THAT(dialogs.shown, ElementsAre(askToDelete("20240131001"),
                                           Shown{"Delete Data Log Failed, Caused by:kept", critical, Buttons::Ok}));
    EXPECT_EQ(masters(), "20240131001|4|2\n");
    EXPECT_EQ(details(), "20240131001|2\n");
}

TEST_F(DataLogPageSavedLogsTest, AFailureOfTheSecondDeleteLeavesTheRowsStanding)
{
    recordAndSave(2);
    breakStatement("delete", "DataMeasureD", "kept");
    dialogs.shown.clear();

    deleteLog("20240131001, 2024/01/31 10:15:02, 4");

    EXPECT_THAT(dialogs.shown, ElementsAre(askToDelete("20240131001"),
                                           Shown{"Delete Data Log Failed, Caused by:kept", critical, Buttons::Ok}));
    EXPECT_EQ(masters(), "");
    EXPECT_EQ(details(), "20240131001|2\n");
}

TEST_F(DataLogPageSavedLogsTest, ASaveInARecordingSavesTheRowsSoFar)
{
    clock.at(2500, [&] { press(page.logSave); });
    clock.at(4500, [&] { press(page.logStop); });

    press(page.logStart);

    EXPECT_EQ(details(), "20240131001|3\n");
    EXPECT_EQ(page.lLogRecNo, 6);
}

TEST_F(DataLogPageSavedLogsTest, AnOpenInARecordingReplacesTheTableAndTheNextCycleInsertsAfterItsRows)
{
    recordAndSave(2);
    press(page.logOpen);
    pick(dialog().lstLogMain, dialog().lstLogMain.list(0));
    const qint64 start = clock.elapsed();
    clock.at(start + 3500, [&] { press(dialog().cmdOKDataLogFile); });
    clock.at(start + 3600, [&] { press(page.logStop); });

    press(page.logStart);

    // The refresh of the opening takes the row count for the record number, as it does without a recording.
    EXPECT_EQ(table("select SeqNo from DataMeasure"), "0\n1\n2\n");
    EXPECT_EQ(page.lLogRecNo, 3);
}

} // namespace
