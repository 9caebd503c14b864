// SPDX-License-Identifier: GPL-3.0-or-later
#include "unsaved_rows.h"

#include "data_log_page_test.h"

using namespace orb;

namespace {

/// Recordings of the page's own, and what a start makes of them.
class UnsavedRowsTest : public DataLogPageTest {
protected:
    UnsavedRowsTest()
    {
        currents = "1.1000,2.1000,";
        voltages = "12.1000,12.2000,";
        instrument.channelCount = 2;
    }

    void record(int samples)
    {
        page.bLogRunning = false;
        DataLogPageTest::record(samples);
    }

    void append(int number)
    {
        alterDatabase(QStringLiteral("insert into DataMeasure (SeqNo,RecTime,PVal1,SVal1) "
                                     "values(%1,'2024/01/31 11:00:%2','%1.5','9.5')")
                          .arg(number)
                          .arg(number, 2, 10, QLatin1Char('0')));
    }

    /// What a start does before the table is emptied.
    QString atStart()
    {
        const UnsavedRows rows = findUnsavedRows(dbMain);
        return rows.isEmpty() ? QString() : putAside(dbMain, rows, folders);
    }

    QStringList files() const { return QDir(folders[0]).entryList(QDir::Files, QDir::Name); }
    QString contentOfFile(const QString& name) const { return contentOf(folders[0] + '/' + name); }

    QStringList folders{application.filePath("recovered"), application.filePath("user/recovered")};
};

TEST_F(UnsavedRowsTest, AStartWithAnEmptyTableWritesNothing)
{
    EXPECT_EQ(atStart(), "");
    EXPECT_FALSE(QDir(folders[0]).exists());
}

TEST_F(UnsavedRowsTest, RowsThatNoSavedLogHoldsAreInAFileNamedByTheFirstRowsTimeUnderTheirOwnUnits)
{
    record(3);

    EXPECT_EQ(atStart(), "3 rows of a recording that was not saved are in " + folders[0] + "/2024-01-31 10-15-00.csv");
    EXPECT_EQ(files(), QStringList{"2024-01-31 10-15-00.csv"});
    EXPECT_EQ(contentOfFile("2024-01-31 10-15-00.csv"), "No.,Time,Ch1A,Ch1V,Ch2A,Ch2V\r\n"
                                                        "0,2024/01/31 10:15:00,1.1000,12.1000,2.1000,12.2000\r\n"
                                                        "1,2024/01/31 10:15:01,1.1000,12.1000,2.1000,12.2000\r\n"
                                                        "2,2024/01/31 10:15:02,1.1000,12.1000,2.1000,12.2000\r\n");
}

TEST_F(UnsavedRowsTest, ASingleRowIsOneRow)
{
    append(7);

    EXPECT_EQ(atStart(), "1 row of a recording that was not saved is in " + folders[0] + "/2024-01-31 11-00-07.csv");
}

TEST_F(UnsavedRowsTest, RowsOfASavedLogAreNotWritten)
{
    record(3);
    press(page.logSave);
    EXPECT_EQ(atStart(), "");

    record(4);
    press(page.logSave);
    EXPECT_EQ(atStart(), "") << "each of several logs counts";
    EXPECT_FALSE(QDir(folders[0]).exists());
}

TEST_F(UnsavedRowsTest, ALogThatWasOpenedIsNotWritten)
{
    record(3);
    press(page.logSave);
    record(2);
    press(page.logOpen);
    page.FrameDataFileOperate.lstLogMain.setListIndex(0);
    press(page.FrameDataFileOperate.cmdOKDataLogFile);

    EXPECT_EQ(table("select count(*) from DataMeasure"), "3\n");
    EXPECT_EQ(atStart(), "");
}

TEST_F(UnsavedRowsTest, OnlyTheRowsAfterTheLastSaveAreWritten)
{
    record(3);
    press(page.logSave);
    append(3);
    press(page.logRefresh);
    press(page.logSave);
    append(4);
    append(5);

    EXPECT_EQ(atStart(), "2 rows of a recording that was not saved are in " + folders[0] + "/2024-01-31 11-00-04.csv");
    EXPECT_EQ(contentOfFile("2024-01-31 11-00-04.csv"), "No.,Time,Ch1A,Ch1V\r\n"
                                                        "4,2024/01/31 11:00:04,4.5,9.5\r\n"
                                                        "5,2024/01/31 11:00:05,5.5,9.5\r\n");
}

TEST_F(UnsavedRowsTest, ASavedLogWithAnotherFirstOrLastRowHoldsNone)
{
    for (const char* change :
         {"update DataMeasure set SVal1='0' where SeqNo=0",
          "update DataMeasure set RecTime='2024/01/31 23:00:00' where SeqNo=2",
          "update DataMeasure set Comment='x' where SeqNo=2", "update DataMeasureM set RecNum=2"}) {
        record(3);
        press(page.logSave);
        alterDatabase(change);

        EXPECT_EQ(findUnsavedRows(dbMain).count(), 3) << change;
    }
}

TEST_F(UnsavedRowsTest, ALogThatIsNotListedHoldsNoRowAndNeitherDoesOneWhoseRowsAreMissing)
{
    record(3);
    press(page.logSave);
    alterDatabase("delete from DataMeasureD");
    EXPECT_EQ(findUnsavedRows(dbMain).count(), 3);

    press(page.logSave);
    EXPECT_EQ(findUnsavedRows(dbMain).count(), 0);
    alterDatabase("delete from DataMeasureM");
    EXPECT_EQ(findUnsavedRows(dbMain).count(), 3);
}

TEST_F(UnsavedRowsTest, TheFileHasTheChannelsThatAnyRowHasAValueFor)
{
    append(0);
    alterDatabase("insert into DataMeasure (SeqNo,RecTime,SVal8) values(1,'2024/01/31 11:00:01','8.8');"
                  "insert into DataMeasure (SeqNo,RecTime,PVal3) values(2,'2024/01/31 11:00:02','3.3')");
    atStart();
    EXPECT_THAT(
        contentOfFile("2024-01-31 11-00-00.csv").toStdString(),
        testing::StartsWith("No.,Time,Ch1A,Ch1V,Ch2A,Ch2V,Ch3A,Ch3V,Ch4A,Ch4V,Ch5A,Ch5V,Ch6A,Ch6V,Ch7A,Ch7V,Ch8A,"
                            "Ch8V\r\n0,2024/01/31 11:00:00,0.5,9.5,,,,,,,,,,,,,,\r\n"
                            "1,2024/01/31 11:00:01,,,,,,,,,,,,,,,,8.8\r\n"));

    alterDatabase("delete from DataMeasure; "
                  "insert into DataMeasure (SeqNo,RecTime) values(5,'2024/01/31 12:00:00')");
    atStart();
    EXPECT_EQ(contentOfFile("2024-01-31 12-00-00.csv"), "No.,Time,Ch1A,Ch1V\r\n5,2024/01/31 12:00:00,,\r\n");
}

TEST_F(UnsavedRowsTest, AFolderThatTakesNothingLeavesTheRowsToTheNextOne)
{
    record(2);
    ASSERT_TRUE(QFile(folders[0]).open(QIODevice::WriteOnly)); // a file stands where the folder should be

    EXPECT_EQ(atStart(), "2 rows of a recording that was not saved are in " + folders[1] +
                             "/2024-01-31 10-15-00.csv (" + folders[0] + ": Path/File access error)");
    EXPECT_THAT(contentOf(folders[1] + "/2024-01-31 10-15-00.csv").toStdString(), testing::HasSubstr("\r\n1,2024"));
}

TEST_F(UnsavedRowsTest, WhereNoFolderTakesTheRowsASentenceSaysThatTheyAreLost)
{
    record(2);
    for (const QString& folder : folders) {
        QDir().mkpath(folder);
        ASSERT_TRUE(QFile::link("/dev/full", folder + "/unfinished.part"));
    }

    EXPECT_EQ(atStart(), "2 rows of a recording that was not saved are lost (" + folders[0] + ": Disk full; " +
                             folders[1] + ": Disk full)");
    EXPECT_EQ(files(), QStringList());
}

TEST_F(UnsavedRowsTest, RowsAreUnsavedWhereTheSavedLogsCannotBeRead)
{
    record(2);
    press(page.logSave);
    alterDatabase("drop table DataMeasureD");

    EXPECT_EQ(findUnsavedRows(dbMain).count(), 2);
}

TEST_F(UnsavedRowsTest, ATableThatCannotBeReadHasNoRows)
{
    record(2);
    alterDatabase("drop table DataMeasure");

    EXPECT_TRUE(findUnsavedRows(dbMain).isEmpty());
}

TEST_F(UnsavedRowsTest, OfADamagedTableTheRowsUpToTheDamageAreKept)
{
    alterDatabase("with recursive n(i) as (select 0 union all select i+1 from n where i<999) "
                  "insert into DataMeasure (SeqNo,RecTime,PVal1,SVal1) "
                  "select i,'2024/01/31 11:00:00','1.5','9.5' from n;"
                  "pragma wal_checkpoint(truncate)");
    page.DataLog.refresh();
    wsMain.close();
    QFile file(databasePath());
    ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.seek(file.size() - 4 * 4096));
    ASSERT_EQ(file.write(QByteArray(4096, '\x7f')), 4096);
    file.close();
    dbMain = wsMain.openDatabase(databasePath());

    EXPECT_EQ(atStart(), "1,000 rows of a recording that was not saved are in " + folders[0] +
                             "/2024-01-31 11-00-00.csv, as far as the database could be read");
    const QStringList lines = contentOfFile("2024-01-31 11-00-00.csv").split("\r\n");
    EXPECT_EQ(lines.value(100), "99,2024/01/31 11:00:00,1.5,9.5");
    EXPECT_GT(lines.size(), 500);
    EXPECT_LT(lines.size(), 1000);
}

TEST_F(UnsavedRowsTest, TheRowsGoBesideTheDatabaseOrToTheUsersOwnFolder)
{
    EXPECT_EQ(recoveredFolders(application.path() + "\\orb.mdb"),
              (QStringList{application.filePath("recovered"), userDataFolder() + "/recovered"}));
    EXPECT_EQ(recoveredFolders(userDataFolder() + "/orb.mdb"), QStringList{userDataFolder() + "/recovered"});
}

} // namespace
