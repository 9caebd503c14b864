// SPDX-License-Identifier: GPL-3.0-or-later
#include "data_control_fixture.h"

using namespace orb;

namespace {

TEST_F(DataControlTest, NeedsADatabaseNameAndARecordSource)
{
    DataLog.setRecordSource(QString());
    EXPECT_EQ(failureIn([&] { DataLog.refresh(); }), "3075: The data control names no record source");
    DataLog.setRecordSource("Nowhere");
    EXPECT_EQ(failureIn([&] { DataLog.refresh(); }), "3075: no such table: Nowhere");
    DataLog.setDatabaseName("");
    EXPECT_EQ(failureIn([&] { DataLog.refresh(); }), "3024: The data control names no database");
    DataLog.setDatabaseName(folder.filePath("missing.mdb"));
    DataLog.setRecordSource("DataMeasure");
    EXPECT_EQ(failureIn([&] { DataLog.refresh(); }).substr(0, 24), "3024: Database not found");
    EXPECT_EQ(failureIn([&] { DataLog.recordset(); }), "91: Object variable not set");
    EXPECT_EQ(DataLog.rowCount(), 0);
}

TEST_F(DataControlTest, IsAPictureOfItsTableAsOfTheLastRefresh)
{
    addSamples(2);
    DataLog.refresh();
    addSamples(1, 2);
    EXPECT_EQ(samples(), "0 1");
    EXPECT_EQ(DataLog.recordset().recordCount(), 2);

    DataLog.refresh();
    EXPECT_EQ(samples(), "0 1 2");

    database->execute("delete * from DataMeasure");
    EXPECT_EQ(DataLog.rowCount(), 3);
    DataLog.refresh();
    EXPECT_EQ(samples(), "");
    addSamples(1, 7);
    DataLog.refresh();
    EXPECT_EQ(samples(), "7");
}

TEST_F(DataControlTest, ARefreshThatFailsLeavesThePictureAsItWas)
{
    addSamples(2);
    DataLog.refresh();
    DataLog.setRecordSource("Nowhere");
    EXPECT_NE(failureIn([&] { DataLog.refresh(); }), "none");
    EXPECT_EQ(samples(), "0 1");
}

TEST_F(DataControlTest, ARefreshAfterOneRowCostsTheSameBehindTenRowsAndBehindAHundredThousand)
{
    addSamples(10);
    DataLog.refresh();
    addSamples(1, 10);
    EXPECT_EQ(rowsReadByRefresh(), 1);

    addSamples(100'000, 11);
    DataLog.refresh();
    addSamples(1, 100'011);
    EXPECT_EQ(rowsReadByRefresh(), 1);
    EXPECT_EQ(DataLog.rowCount(), 100'012);
    EXPECT_EQ(rowsReadByRefresh(), 0);
}

TEST_F(DataControlTest, KnowsTheCountOfALogThatWasCopiedIntoAnEmptiedTable)
{
    addSamples(5);
    DataLog.refresh();
    database->execute("delete * from DataMeasure");
    addSamples(50'000);

    EXPECT_EQ(rowsReadByRefresh(), 0); // neither counted nor looked at

    EXPECT_EQ(DataLog.rowCount(), 50'000);
    EXPECT_EQ(sampleAt(49'999), 49'999);
}

TEST_F(DataControlTest, CountsATableOnceOfWhichItKnowsNothing)
{
    addSamples(1000);
    workspace.close();
    database = workspace.openDatabase(path);
    EXPECT_EQ(rowsReadByRefresh(), 1000);
    EXPECT_EQ(rowsReadByRefresh(), 0);
    EXPECT_EQ(samples().substr(0, 8), "0 1 2 3 ");
}

TEST_F(DataControlTest, AWalkReadsEachRowOnce)
{
    addSamples(10'000);
    DataLog.refresh();
    const std::int64_t before = DataLog.rowsRead();
    double sum = 0;
    auto& record = DataLog.recordset();
    const Field current = record.field("pval1");
    for (record.moveFirst(); !record.isEof(); record.moveNext())
        sum += current.toDouble();
    EXPECT_EQ(sum, 10'000 * 5000.0);
    EXPECT_EQ(DataLog.rowsRead() - before, 10'000);
}

TEST_F(DataControlTest, LooksAtNoMoreThanAPageForTheLastRow)
{
    addSamples(100'000);
    DataLog.refresh();
    const std::int64_t before = DataLog.rowsRead();
    DataLog.recordset().moveLast();
    EXPECT_EQ(DataLog.recordset().field("SeqNo").asText(), "99999");
    EXPECT_LE(DataLog.rowsRead() - before, 256);
}

TEST_F(DataControlTest, FindsEachRowBetweenGaps)
{
    addSamples(3000);
    database->execute("delete from DataMeasure where SeqNo%3=1 or SeqNo between 500 and 1500");
    DataLog.refresh();

    std::int64_t row = 0;
    for (std::int64_t sample = 0; sample < 3000; ++sample)
        if (sample % 3 != 1 && (sample < 500 || sample > 1500)) {
            ASSERT_EQ(sampleAt(row++), sample);
        }

    ASSERT_EQ(DataLog.rowCount(), row);

    addSamples(1, 3000);
    EXPECT_EQ(rowsReadByRefresh(), 1);
    EXPECT_EQ(sampleAt(row), 3000);
}

TEST_F(DataControlTest, SeesRowsThatCameBetweenTheOldOnes)
{
    database->execute("insert into DataMeasure (rowid,SeqNo) values(1,10),(5,50)");
    DataLog.refresh();
    database->execute("insert into DataMeasure (rowid,SeqNo) values(3,30),(7,70)");
    DataLog.refresh();
    EXPECT_EQ(samples(), "10 30 50 70");
    database->execute("insert into DataMeasure (rowid,SeqNo) values(-4,1)");
    DataLog.refresh();
    EXPECT_EQ(samples(), "1 10 30 50 70");
}

TEST_F(DataControlTest, SeesWhatAnotherProgramHasDone)
{
    addSamples(3);
    DataLog.refresh();
    OtherProgram other(path);
    other.run("insert into DataMeasure (SeqNo) values(3),(4)");
    DataLog.refresh();
    EXPECT_EQ(samples(), "0 1 2 3 4");
    other.run("delete from DataMeasure where SeqNo in (1,4); insert into DataMeasure (SeqNo) values(9)");
    DataLog.refresh();
    EXPECT_EQ(samples(), "0 2 3 9");
    addSamples(1, 10);
    EXPECT_EQ(rowsReadByRefresh(), 1);
    EXPECT_EQ(samples(), "0 2 3 9 10");
}

TEST_F(DataControlTest, SeesWhatATriggerHasDone)
{
    OtherProgram(path).run(
        "create trigger t after insert on ORBSeqHead begin delete from DataMeasure where SeqNo=1; end");
    addSamples(3);
    DataLog.refresh();
    database->execute("insert into ORBSeqHead values('a',1,1)");
    DataLog.refresh();
    EXPECT_EQ(samples(), "0 2");
}

TEST_F(DataControlTest, SeesRowsThatWereReplaced)
{
    DataLog.setRecordSource("datameasureM");
    database->execute("insert into DataMeasureM (LogID,CHNum) values('a',1),('b',2)");
    DataLog.refresh();
    database->execute("insert or replace into DataMeasureM (LogID,CHNum) values('a',3)");
    DataLog.refresh();
    EXPECT_EQ(DataLog.rowCount(), 2);
    EXPECT_EQ(DataLog.valueAt(1, DataLog.columnOf("chnum")).integer, 3);
}

TEST_F(DataControlTest, ShowsAnotherTableAfterAnotherRecordSource)
{
    addSamples(3);
    DataLog.refresh();
    database->execute("insert into ProgramChain values('x',0,'4')");
    DataLog.setRecordSource("ProgramChain");
    DataLog.refresh();
    EXPECT_EQ(DataLog.rowCount(), 1);
    EXPECT_EQ(DataLog.columns(), (std::vector<QString>{"MemCase", "ProgNo", "ProgData"}));
    EXPECT_EQ(DataLog.recordset().field("progdata").asText(), "4");
}

} // namespace
