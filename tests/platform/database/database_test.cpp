// SPDX-License-Identifier: GPL-3.0-or-later
#include "database_fixture.h"
#include "prepared_statement.h"

using namespace orb;

namespace {

TEST_F(DatabaseTest, AColumnOfTextsKeepsANumberAsItWasWritten)
{
    database.execute("insert into DataMeasure (SeqNo,RecTime,PVal1,SVal1,PVal2,SVal2,PVal3,SVal3)  "
                     "values(0,'2024/01/31 10:15:09',1.2340,-0.0500,1.20E-03,+7, -.5 ,0012)");

    EXPECT_EQ(rows("select SeqNo,PVal1,SVal1,PVal2,SVal2,PVal3,SVal3 from DataMeasure"),
              "0|1.2340|-0.0500|1.20E-03|+7|-.5|0012\n");
    EXPECT_EQ(rows("select typeof(SeqNo),typeof(PVal1),typeof(PVal8) from DataMeasure"), "integer|text|null\n");
}

TEST_F(DatabaseTest, AColumnOfNumbersTakesANumberAsANumber)
{
    database.execute("insert into ORBSeqData values(3,0.02,15.0,1.6,1.6)");

    EXPECT_EQ(rows("select * from ORBSeqData"), "3|0.02|15|1.6|1.6\n");
    EXPECT_EQ(rows("select typeof(index),typeof(durtime),typeof(current) from ORBSeqData"), "integer|real|real\n");
}

TEST_F(DatabaseTest, AnUnquotedValueThatIsNoNumberIsRefused)
{
    const auto insert = [&](const QString& value) {
        return failureIn([&] { database.execute("insert into DataMeasure (SeqNo,PVal1) values(1," + value + ")"); });
    };
    EXPECT_EQ(insert("abc"), "3075: no such column: abc");
    EXPECT_EQ(insert(""), "3075: near \")\": syntax error");
    EXPECT_EQ(insert("1.2 V"), "3075: near \"V\": syntax error");
    EXPECT_EQ(insert("12V"), "3075: unrecognized token: \"12V\"");
    EXPECT_EQ(insert("1.2.3"), "3075: near \".3\": syntax error");
    EXPECT_EQ(insert("?"), "3075: The statement lacks the value of a parameter");
    EXPECT_EQ(insert(":a"), "3075: The statement lacks the value of a parameter");
    EXPECT_EQ(insert("'it's'"), "3075: near \"s\": syntax error");
    EXPECT_EQ(rows("select count(*) from DataMeasure"), "0\n");
}

TEST_F(DatabaseTest, NeitherOfTwoStatementsIsRun)
{
    const std::string refusal = "3075: Text after the end of the statement";
    EXPECT_EQ(failureIn([&] { database.execute("insert into ORBSeqHead values('a',1,1); drop table DataMeasure"); }),
              refusal);
    EXPECT_EQ(failureIn([&] {
                  database.execute("insert into DataMeasure (SeqNo) values(1);/* x */drop table ORBSeqHead --)");
              }),
              refusal);
    EXPECT_EQ(failureIn([&] { database.openRecordset("select 1; delete from ORBSeqHead"); }), refusal);
    EXPECT_EQ(rows("select count(*) from ORBSeqHead union all select count(*) from DataMeasure"), "0\n0\n");
}

TEST_F(DatabaseTest, TheStatementsOfThePagesRun)
{
    database.execute(R"(Insert into OrbseqHead values("VRange 0:16V, 1:80V",1,1))");
    database.execute(R"(Insert into OrbseqHead values("On_End_Of_Seq Value",0,2.50))");
    for (int i = 1; i <= 12; ++i)
        database.execute(QString("insert into ORBSeqData values(%1,0.02,15.0,1.6,1.6)").arg(13 - i));

    EXPECT_EQ(rows(R"(select * from ORBSeqHead where item like "*on_end_of_seq value*")"),
              "On_End_Of_Seq Value|0|2.5\n");
    EXPECT_EQ(rows("select * from ORBSeqHead where item like \"VRange #:##V, [!2-9]:??V\""),
              "VRange 0:16V, 1:80V|1|1\n");
    EXPECT_EQ(rows("select index from ORBSeqData where index between 9 and 11 order by index asc"), "9\n10\n11\n");
    database.execute("delete * from ORBSeqHead");
    EXPECT_EQ(rows("select count(*) from ORBSeqHead"), "0\n");
}

TEST_F(DatabaseTest, TheCaseOfNamesMakesNoDifference)
{
    database.execute("INSERT INTO PROGRAMMEMORY (MEMCASE,memno,MemData) VALUES('20260115-093012',7,'')");

    const auto record = database.openRecordset("select memcase,MEMNO from programmemory group by MemCase");

    EXPECT_EQ(record->field("MemCase").asText(), "20260115-093012");
    EXPECT_EQ(record->field("memno").asText(), "7");
}

TEST_F(DatabaseTest, NullMatchesNoPattern)
{
    database.execute("insert into DataMeasure (SeqNo) values(1)");
    EXPECT_EQ(rows("select SeqNo from DataMeasure where Comment like '*'"), "");
    EXPECT_EQ(rows("select SeqNo from DataMeasure where SeqNo like '#'"), "1\n");
}

TEST_F(DatabaseTest, APatternMayBeAColumn)
{
    database.execute("insert into DataMeasure (Reason3,Comment) values('abc','a*'),('abc','b*'),('x','?')");
    EXPECT_EQ(rows("select Comment from DataMeasure where Reason3 like Comment"), "a*\n?\n");
}

TEST_F(DatabaseTest, TheDateOfASavedLogIsFilledFromTheClock)
{
    database.execute("insert into DataMeasureM (logID,CHNum,RecNum) values('20240131001',4,1200)");

    EXPECT_EQ(rows("select * from DataMeasureM order by logdate desc"), "20240131001|2024-01-31 10:15:09|4|1200\n");
}

TEST_F(DatabaseTest, ALogIdentifierThatIsThereAlreadyIsRefused)
{
    database.execute("insert into DataMeasureM (logID) values('20240131001')");
    EXPECT_EQ(failureIn([&] { database.execute("insert into DataMeasureM (logID) values('20240131001')"); }),
              "3022: UNIQUE constraint failed: DataMeasureM.LogID");
}

TEST_F(DatabaseTest, ASequenceValueThatIsNoNumberIsRefused)
{
    EXPECT_EQ(failureIn([&] { database.execute("insert into ORBSeqData values(1,1,'5A',1,1)"); }),
              "3075: CHECK constraint failed: Current must be a number");
    EXPECT_EQ(failureIn([&] { database.execute("insert into ORBSeqHead values('Repeat Count',1,'1e999')"); }),
              "3075: CHECK constraint failed: Update must be a number");
    EXPECT_EQ(failureIn([&] { database.execute("insert into ORBSeqHead values('Repeat Count',1,null)"); }),
              "3075: NOT NULL constraint failed: ORBSeqHead.Update");
}

TEST_F(DatabaseTest, AFailureHasTheMessageOfSqlite)
{
    EXPECT_EQ(failureIn([&] { database.execute("delete * from Nowhere"); }), "3075: no such table: Nowhere");
    EXPECT_EQ(failureIn([&] { database.execute("nonsense"); }), "3075: near \"nonsense\": syntax error");
    EXPECT_EQ(failureIn([&] { database.openRecordset("select x from DataMeasure"); }), "3075: no such column: x");
}

TEST_F(DatabaseTest, AQueryIsNotExecutedAndAStatementIsNotOpened)
{
    EXPECT_EQ(failureIn([&] { database.execute("select * from DataMeasure"); }), "3075: The statement returns rows");
    EXPECT_EQ(failureIn([&] { database.openRecordset("delete from DataMeasure"); }), "3075: The statement is no query");
    EXPECT_EQ(failureIn([&] { database.openRecordset("insert into DataMeasure (SeqNo) values(1) returning SeqNo"); }),
              "3075: The statement is no query");
    EXPECT_EQ(rows("select count(*) from DataMeasure"), "0\n");
}

TEST_F(DatabaseTest, AFileThatAnotherProgramHoldsIsLocked)
{
    OtherProgram other(path);
    other.run("begin immediate");
    EXPECT_EQ(failureIn([&] { database.execute("delete * from DataMeasure"); }), "3260: database is locked");
    other.run("rollback");
    database.execute("delete * from DataMeasure");
}

TEST_F(DatabaseTest, AClosedDatabaseRefusesEveryCall)
{
    auto record = database.openRecordset("select 1");
    EXPECT_FALSE(Database().isOpen());
    workspace.close();
    workspace.close();

    const std::string closed = "3420: Object is closed";
    EXPECT_FALSE(database.isOpen());
    EXPECT_EQ(failureIn([&] { database.execute("delete * from DataMeasure"); }), closed);
    EXPECT_EQ(failureIn([&] { database.openRecordset("select 1"); }), closed);
    EXPECT_EQ(failureIn([&] { record->isEof(); }), closed);
    EXPECT_EQ(failureIn([&] { record->field(0); }), closed);
}

TEST_F(DatabaseTest, ClosingTheWorkspaceClosesTheFileForAll)
{
    const auto second = workspace.openDatabase(path);
    second.execute("insert into DataMeasure (SeqNo) values(1)");
    EXPECT_TRUE(QFile::exists(path + "-wal"));

    workspace.close();

    EXPECT_FALSE(second.isOpen());
    EXPECT_FALSE(database.isOpen());
    EXPECT_FALSE(QFile::exists(path + "-wal")); // all of it is in the one file now
    EXPECT_EQ(failureIn([&] { second.execute("delete * from DataMeasure"); }), "3420: Object is closed");
}

TEST_F(DatabaseTest, ADatabaseThatWasOpenedTwiceStaysOpenForTheOther)
{
    const auto second = workspace.openDatabase(path);
    database.close();
    database.close();
    EXPECT_FALSE(database.isOpen());
    second.execute("insert into DataMeasure (SeqNo) values(1)");
    EXPECT_TRUE(second.isOpen());
}

TEST_F(DatabaseTest, AnotherPathIsAnotherDatabase)
{
    const QString copy = folder.filePath("copy.mdb");
    OtherProgram(copy).run("create table x(y)");
    const Database second = workspace.openDatabase(copy);
    second.execute("insert into x values(1)");
    EXPECT_EQ(failureIn([&] { database.execute("insert into x values(1)"); }), "3075: no such table: x");
}

TEST_F(DatabaseTest, EveryStatementIsWrittenThroughToTheDisk)
{
    const auto setting = [&](const char* name) {
        PreparedStatement query(database.connection(), std::string("pragma ") + name);
        query.step();
        return textOf(query.value(0));
    };
    EXPECT_EQ(setting("journal_mode"), "wal");
    EXPECT_EQ(setting("synchronous"), "2"); // FULL
    EXPECT_EQ(setting("busy_timeout"), "500");
    EXPECT_EQ(setting("journal_size_limit"), "16777216");
    EXPECT_EQ(setting("secure_delete"), "0");
}

TEST_F(DatabaseTest, AValueLongerThanAMillionBytesIsRefused)
{
    database.execute("insert into DataMeasure (Comment) values(hex(zeroblob(400000)))");
    EXPECT_EQ(failureIn([&] { database.execute("insert into DataMeasure (Comment) values(zeroblob(900000000))"); }),
              "3075: string or blob too big");
    EXPECT_EQ(failureIn([&] { rows("select length(hex(zeroblob(500001)))"); }), "3075: string or blob too big");
    EXPECT_EQ(rows("select length(Comment) from DataMeasure"), "800000\n");
}

TEST_F(DatabaseTest, AStatementLongerThanAMillionBytesIsRefused)
{
    const QString statement = "insert into DataMeasure (Comment) values('%1')";
    database.execute(statement.arg(QString(999'000, 'x')));
    EXPECT_EQ(failureIn([&] { database.execute(statement.arg(QString(1'000'000, 'x'))); }), "3075: statement too long");
    EXPECT_EQ(rows("select count(*) from DataMeasure"), "1\n");
}

} // namespace
