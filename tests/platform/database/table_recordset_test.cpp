// SPDX-License-Identifier: GPL-3.0-or-later
#include "data_control_fixture.h"

using namespace orb;

namespace {

class TableRecordsetTest : public DataControlTest {};

TEST_F(TableRecordsetTest, ItsFirstRowIsCurrentAfterARefresh)
{
    addSamples(3);
    DataLog.refresh();
    auto& record = DataLog.recordset();
    record.moveLast();
    EXPECT_EQ(record.position(), 2);
    DataLog.refresh();
    EXPECT_EQ(&DataLog.recordset(), &record);
    EXPECT_EQ(record.position(), 0);
}

TEST_F(TableRecordsetTest, AMovePastTheLastRowLeavesNoCurrentRow)
{
    addSamples(2);
    DataLog.refresh();
    auto& record = DataLog.recordset();
    record.moveLast();
    EXPECT_FALSE(record.isEof());
    record.moveNext();
    EXPECT_TRUE(record.isEof());
    EXPECT_EQ(record.position(), -1);
    EXPECT_EQ(failureIn([&] { record.field("SeqNo").asText(); }), "3021: No current record");
    EXPECT_EQ(failureIn([&] { record.moveNext(); }), "3021: No current record");
    EXPECT_EQ(failureIn([&] { record.setPosition(2); }), "3021: No current record");
    EXPECT_EQ(failureIn([&] { record.setPosition(-1); }), "3021: No current record");
    record.moveFirst();
    EXPECT_EQ(record.field("SeqNo").asText(), "0");
}

TEST_F(TableRecordsetTest, ARecordsetWithoutRowsStaysAtItsEnd)
{
    DataLog.refresh();
    auto& record = DataLog.recordset();
    record.moveFirst();
    record.moveLast();
    record.findFirst("SeqNo=1");
    EXPECT_TRUE(record.isEof());
    EXPECT_EQ(record.recordCount(), 0);
}

TEST_F(TableRecordsetTest, ASearchGoesToTheFirstRowThatMeetsItsCriterion)
{
    addSamples(100'000);
    database.execute("insert into DataMeasure (SeqNo,Comment) values(70,'again')");
    DataLog.refresh();
    auto& record = DataLog.recordset();
    const std::int64_t before = DataLog.rowsRead();

    record.findFirst("SeqNo=70");

    EXPECT_EQ(record.position(), 70);
    EXPECT_LE(DataLog.rowsRead() - before, 70 + 256); // up to the row, and no further

    record.findFirst("Comment like \"AG*\"");
    EXPECT_EQ(record.position(), 100'000);
}

TEST_F(TableRecordsetTest, ASearchWithoutAMatchLeavesTheCurrentRow)
{
    addSamples(10);
    DataLog.refresh();
    addSamples(1, 10);
    auto& record = DataLog.recordset();
    record.setPosition(4);
    record.findFirst("SeqNo=10"); // inserted after the refresh
    EXPECT_EQ(record.position(), 4);
    record.findFirst("SeqNo=5 or 1=0");
    EXPECT_EQ(record.position(), 5);
}

TEST_F(TableRecordsetTest, ACriterionThatIsMoreThanOneIsRefused)
{
    addSamples(1);
    DataLog.refresh();
    auto& record = DataLog.recordset();
    EXPECT_EQ(failureIn([&] { record.findFirst("SeqNo=1; delete from DataMeasure"); }),
              "3075: Text after the end of the statement");
    EXPECT_EQ(failureIn([&] { record.findFirst("SeqNo="); }), "3075: near \")\": syntax error");
    EXPECT_EQ(failureIn([&] { record.findFirst(""); }), "3075: There is no statement to run");
    EXPECT_EQ(failureIn([&] { record.findFirst("SeqNo=?"); }), "3075: The statement lacks the value of a parameter");
}

TEST_F(TableRecordsetTest, AnEditedCellIsWrittenToTheTableAtOnce)
{
    addSamples(300);
    DataLog.refresh();
    DataLog.setValueAt(280, DataLog.columnOf("Comment"), "it's \"here\"; drop");
    DataLog.setValueAt(280, DataLog.columnOf("PVal1"), "1.50");

    EXPECT_EQ(rows("select SeqNo,PVal1,Comment from DataMeasure where Comment is not null"),
              "280|1.50|it's \"here\"; drop\n");
    EXPECT_EQ(DataLog.valueAt(280, DataLog.columnOf("PVal1")).text, "1.50");
    DataLog.setValueAt(280, DataLog.columnOf("Comment"), "");
    EXPECT_EQ(rows("select count(*) from DataMeasure where Comment is null"), "300\n");
    EXPECT_EQ(rowsReadByRefresh(), 0);
}

TEST_F(TableRecordsetTest, AnEditedNumberIsTakenAsANumberAndAnythingElseRefused)
{
    DataLog.setRecordSource("ORBSeqData");
    database.execute("insert into ORBSeqData values(1,0.02,15.0,1.6,1.6)");
    DataLog.refresh();
    const int current = DataLog.columnOf("current");
    DataLog.setValueAt(0, current, " 7.50 ");
    EXPECT_EQ(rows("select current,typeof(current) from ORBSeqData"), "7.5|real\n");
    EXPECT_EQ(failureIn([&] { DataLog.setValueAt(0, current, "7A"); }),
              "3075: CHECK constraint failed: Current must be a number");
    EXPECT_EQ(failureIn([&] { DataLog.setValueAt(0, current, ""); }),
              "3075: NOT NULL constraint failed: ORBSeqData.Current");
    EXPECT_EQ(DataLog.valueAt(0, current).real, 7.5);
}

TEST_F(TableRecordsetTest, ADeletedRowReadsAsNullAndIsNotWritten)
{
    addSamples(3);
    DataLog.refresh();
    database.execute("delete * from DataMeasure");
    EXPECT_EQ(DataLog.valueAt(1, 0).type, FieldType::Null);
    EXPECT_EQ(failureIn([&] { DataLog.setValueAt(1, 0, "5"); }), "3021: The row was changed or deleted meanwhile");
    EXPECT_EQ(failureIn([&] { DataLog.recordset().field("SeqNo").asText(); }), "3021: No current record");
}

TEST_F(TableRecordsetTest, WhatAnotherProgramHasWrittenMeanwhileIsNotOverwritten)
{
    addSamples(2);
    DataLog.refresh();
    const int comment = DataLog.columnOf("Comment");
    EXPECT_EQ(DataLog.valueAt(1, comment).type, FieldType::Null);
    OtherProgram(path).run("update DataMeasure set Comment='theirs' where SeqNo=1");
    EXPECT_EQ(failureIn([&] { DataLog.setValueAt(1, comment, "ours"); }),
              "3021: The row was changed or deleted meanwhile");
    EXPECT_EQ(DataLog.valueAt(1, comment).text, "theirs");
    DataLog.setValueAt(1, comment, "ours");
    EXPECT_EQ(rows("select Comment from DataMeasure where SeqNo=1"), "ours\n");
}

TEST_F(TableRecordsetTest, ACellOutsideOfTheSnapshotIsRefused)
{
    addSamples(1);
    DataLog.refresh();
    EXPECT_EQ(failureIn([&] { DataLog.valueAt(1, 0); }), "3021: No current record");
    EXPECT_EQ(failureIn([&] { DataLog.valueAt(-1, 0); }), "3021: No current record");
    EXPECT_EQ(failureIn([&] { DataLog.valueAt(0, 22); }), "3265: Item not found in this collection");
    EXPECT_EQ(failureIn([&] { DataLog.setValueAt(0, -1, ""); }), "3265: Item not found in this collection");
}

TEST_F(TableRecordsetTest, ARefreshOpensAClosedWorkspaceAgain)
{
    addSamples(3);
    DataLog.refresh();
    auto& record = DataLog.recordset();
    workspace.close();
    EXPECT_EQ(failureIn([&] { record.isEof(); }), "3420: Object is closed");
    EXPECT_EQ(failureIn([&] { record.field(0); }), "3420: Object is closed");
    EXPECT_EQ(failureIn([&] { DataLog.valueAt(0, 0); }), "3420: Object is closed");
    DataLog.refresh();
    EXPECT_EQ(samples(), "0 1 2");
}

TEST_F(TableRecordsetTest, ADeletedRowLeavesTheRowsAroundItInTheirPlaces)
{
    addSamples(200);
    DataLog.refresh();
    OtherProgram(path).run("delete from DataMeasure where SeqNo=70; insert into DataMeasure (SeqNo) values(200)");
    EXPECT_EQ(DataLog.valueAt(70, 0).type, FieldType::Null);
    EXPECT_EQ(DataLog.valueAt(71, 0).integer, 71);
    EXPECT_EQ(DataLog.valueAt(199, 0).integer, 199);
    EXPECT_EQ(failureIn([&] { DataLog.setValueAt(70, 19, "x"); }), "3021: The row was changed or deleted meanwhile");
}

TEST_F(TableRecordsetTest, ARowThatWasInsertedBetweenTheOthersIsNotInTheSnapshot)
{
    database.execute("insert into DataMeasure (rowid,SeqNo) values(1,10),(5,50)");
    DataLog.refresh();
    database.execute("insert into DataMeasure (rowid,SeqNo) values(3,30)");
    EXPECT_EQ(samples(), "10 50");
}

TEST_F(TableRecordsetTest, EachValueOfALongTableIsReadFromItsOwnPage)
{
    addSamples(3000);
    DataLog.refresh();
    for (std::int64_t row = 0; row < 3000; row += 37) {
        ASSERT_EQ(DataLog.valueAt(row, 0).integer, row);
        ASSERT_EQ(DataLog.valueAt(2999 - row, 0).integer, 2999 - row);
        ASSERT_EQ(DataLog.valueAt(row, DataLog.columnOf("PVal1")).text, std::to_string(row) + ".50");
    }
}

} // namespace
