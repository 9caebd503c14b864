// SPDX-License-Identifier: GPL-3.0-or-later
#include "program_process.h"

using namespace orb;
using testing::HasSubstr;

namespace {

class UnsavedRowsStartTest : public testing::Test {
protected:
    /// Runs statements on the database with SQLite's own shell. What it prints.
    std::string sql(const QString& statements)
    {
        QProcess shell;
        shell.start("sqlite3", {folder.filePath("orb.mdb"), statements});
        EXPECT_TRUE(shell.waitForFinished(60'000));
        return (shell.readAllStandardOutput() + shell.readAllStandardError()).toStdString();
    }

    QStringList recovered() const { return QDir(folder.filePath("recovered")).entryList(QDir::Files, QDir::Name); }

    ProgramFolder folder;
    ProgramProcess program{folder};
    const QString insertRows = "insert into DataMeasure (SeqNo,RecTime,PVal1,SVal1) values"
                               "(0,'2024/01/31 10:15:00','1.1','12.1'),(1,'2024/01/31 10:15:01','1.2','12.2')";
};

TEST_F(UnsavedRowsStartTest, AStartPutsRowsAsideBeforeItEmptiesTheTableAndTheConnectPageSaysSo)
{
    ASSERT_EQ(sql(insertRows), "");

    program.start("operated-program");

    ASSERT_TRUE(program.waitFor("started"));
    const QString file = folder.filePath("recovered/2024-01-31 10-15-00.csv");
    EXPECT_THAT(program.output().toStdString(),
                HasSubstr("2 rows of a recording that was not saved are in " + file.toStdString() + "\n"));
    EXPECT_EQ(sql("select count(*) from DataMeasure"), "0\n");
    QFile rows(file);
    ASSERT_TRUE(rows.open(QIODevice::ReadOnly));
    EXPECT_EQ(rows.readAll(), "No.,Time,Ch1A,Ch1V\r\n"
                              "0,2024/01/31 10:15:00,1.1,12.1\r\n"
                              "1,2024/01/31 10:15:01,1.2,12.2\r\n");
}

TEST_F(UnsavedRowsStartTest, ManyRowsArePutAsideAndTheStartGoesOn)
{
    ASSERT_EQ(sql("with recursive n(i) as (select 0 union all select i+1 from n where i<59999) insert into DataMeasure "
                  "(SeqNo,RecTime,PVal1,SVal1) select i,'2024/01/31 10:15:00','1.1','12.1' from n"),
              "");

    program.start("operated-program");

    ASSERT_TRUE(program.waitFor("started"));
    EXPECT_THAT(program.output().toStdString(), HasSubstr("60,000 rows of a recording that was not saved are in "));
    QFile rows(folder.filePath("recovered/2024-01-31 10-15-00.csv"));
    ASSERT_TRUE(rows.open(QIODevice::ReadOnly));
    EXPECT_EQ(rows.readAll().count('\n'), 60'001);
    EXPECT_TRUE(program.isRunning()) << "though the window that said so is closed";
}

TEST_F(UnsavedRowsStartTest, AStartWithAnEmptyTableSaysNothing)
{
    program.start("operated-program");

    ASSERT_TRUE(program.waitFor("started"));
    EXPECT_FALSE(program.output().contains("not saved"));
    EXPECT_FALSE(QDir(folder.filePath("recovered")).exists());
}

TEST_F(UnsavedRowsStartTest, ASecondStartPutsNothingAside)
{
    program.start("operated-program");
    ASSERT_TRUE(program.waitFor("started"));
    ASSERT_EQ(sql(insertRows), "");

    ProgramProcess second(folder);
    second.start("orb-service");

    EXPECT_EQ(second.exitStatus(), 0);
    EXPECT_EQ(sql("select count(*) from DataMeasure"), "2\n") << "the rows of the first program";
    EXPECT_EQ(recovered(), QStringList());
}

TEST_F(UnsavedRowsStartTest, WhereTheFolderCannotBeWrittenTheRowsGoToTheUsersOwnAndTheStartGoesOn)
{
    ASSERT_EQ(sql(insertRows), "");
    ASSERT_TRUE(QFile(folder.filePath("recovered")).open(QIODevice::WriteOnly)); // no folder can be made here

    program.start("operated-program");

    ASSERT_TRUE(program.waitFor("started"));
    const QString file = folder.environment().value("HOME") + "/.local/share/orb/recovered/2024-01-31 10-15-00.csv";
    EXPECT_TRUE(QFile::exists(file));
    EXPECT_THAT(program.output().toStdString(), HasSubstr("are in " + file.toStdString() + " ("));
}

} // namespace
