// SPDX-License-Identifier: GPL-3.0-or-later
#include "data_control_fixture.h"

#include <QToolButton>

using namespace orb;

namespace {

using TableRecordsetTest = DataControlTest;

TEST_F(TableRecordsetTest, StandsOnItsFirstRowAfterARefresh)
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

TEST_F(TableRecordsetTest, MovesItsRecordsetBothWays)
{
    addSamples(2);
    DataLog.refresh();
    auto& record = DataLog.recordset();
    record.moveNext();
    record.movePrevious();
    record.movePrevious();
    EXPECT_TRUE(record.isBof());
    EXPECT_EQ(record.position(), -1);
    EXPECT_EQ(failureIn([&] { record.movePrevious(); }), "3021: No current record");
    EXPECT_EQ(failureIn([&] { record.field("SeqNo").asText(); }), "3021: No current record");
    record.moveLast();
    record.moveNext();
    EXPECT_TRUE(record.isEof());
    EXPECT_EQ(failureIn([&] { record.moveNext(); }), "3021: No current record");
    EXPECT_EQ(failureIn([&] { record.setPosition(2); }), "3021: No current record");
    EXPECT_EQ(failureIn([&] { record.setPosition(-1); }), "3021: No current record");
}

TEST_F(TableRecordsetTest, WithoutRowsIsAtBothEnds)
{
    DataLog.refresh();
    auto& record = DataLog.recordset();
    record.moveFirst();
    record.moveLast();
    EXPECT_TRUE(record.isEof());
    EXPECT_TRUE(record.isBof());
    record.findFirst("SeqNo=1");
    EXPECT_TRUE(record.noMatch());
}

TEST_F(TableRecordsetTest, FindsTheFirstRowThatMeetsACriterion)
{
    addSamples(100'000);
    database->execute("insert into DataMeasure (SeqNo,Comment) values(70,'again')");
    DataLog.refresh();
    auto& record = DataLog.recordset();
    const std::int64_t before = DataLog.rowsRead();

    record.findFirst("SeqNo=70");

    EXPECT_FALSE(record.noMatch());
    EXPECT_EQ(record.position(), 70);
    EXPECT_LE(DataLog.rowsRead() - before, 70 + 256); // as far as the row and its page, and no further

    record.findFirst("Comment like \"AG*\"");
    EXPECT_EQ(record.position(), 100'000);
}

TEST_F(TableRecordsetTest, StaysWhereItIsWhenNoRowMeetsTheCriterion)
{
    addSamples(10);
    DataLog.refresh();
    addSamples(1, 10);
    auto& record = DataLog.recordset();
    record.setPosition(4);
    record.findFirst("SeqNo=10"); // came after the picture was taken
    EXPECT_TRUE(record.noMatch());
    EXPECT_EQ(record.position(), 4);
    record.findFirst("SeqNo=5 or 1=0");
    EXPECT_FALSE(record.noMatch());
    EXPECT_EQ(record.position(), 5);
}

TEST_F(TableRecordsetTest, RefusesACriterionThatIsMoreThanOne)
{
    addSamples(1);
    DataLog.refresh();
    auto& record = DataLog.recordset();
    EXPECT_EQ(failureIn([&] { record.findFirst("SeqNo=1; delete from DataMeasure"); }),
              "3075: Text behind the end of the statement");
    EXPECT_EQ(failureIn([&] { record.findFirst("SeqNo="); }), "3075: near \")\": syntax error");
    EXPECT_EQ(failureIn([&] { record.findFirst(""); }), "3075: There is no statement to run");
    EXPECT_EQ(failureIn([&] { record.findFirst("SeqNo=?"); }), "3075: The statement lacks the value of a parameter");
}

TEST_F(TableRecordsetTest, WritesAnEditedCellToTheTableAtOnce)
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

TEST_F(TableRecordsetTest, TakesAnEditedNumberAsANumberAndRefusesAnythingElse)
{
    DataLog.setRecordSource("ORBSeqData");
    database->execute("insert into ORBSeqData values(1,0.02,15.0,1.6,1.6)");
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

TEST_F(TableRecordsetTest, ARowThatIsGoneReadsAsNothingAndTakesNothing)
{
    addSamples(3);
    DataLog.refresh();
    database->execute("delete * from DataMeasure");
    EXPECT_EQ(DataLog.valueAt(1, 0).type, FieldType::Null);
    EXPECT_EQ(failureIn([&] { DataLog.setValueAt(1, 0, "5"); }), "3021: The row was changed or deleted meanwhile");
    EXPECT_EQ(failureIn([&] { DataLog.recordset().field("SeqNo").asText(); }), "3021: No current record");
}

TEST_F(TableRecordsetTest, WritesNothingOverWhatAnotherHasWrittenMeanwhile)
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

TEST_F(TableRecordsetTest, RefusesACellOutsideOfThePicture)
{
    addSamples(1);
    DataLog.refresh();
    EXPECT_EQ(failureIn([&] { DataLog.valueAt(1, 0); }), "3021: No current record");
    EXPECT_EQ(failureIn([&] { DataLog.valueAt(-1, 0); }), "3021: No current record");
    EXPECT_EQ(failureIn([&] { DataLog.valueAt(0, 22); }), "3265: Item not found in this collection");
    EXPECT_EQ(failureIn([&] { DataLog.setValueAt(0, -1, ""); }), "3265: Item not found in this collection");
}

TEST_F(TableRecordsetTest, FailsOnceTheWorkspaceIsClosedAndOpensAgainWithARefresh)
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
    record.close();
    EXPECT_EQ(failureIn([&] { record.moveFirst(); }), "3420: Object is closed");
}

TEST_F(TableRecordsetTest, ItsButtonsMoveTheCurrentRow)
{
    DataLog.setParent(&form);
    int told = 0;
    DataLog.onReposition = [&] { ++told; };
    const auto press = [&](const char* name) {
        DataLog.findChild<QToolButton*>(name)->click();
        return DataLog.hasRecordset() ? DataLog.recordset().position() : -1;
    };
    EXPECT_EQ(press("Next record"), -1); // nothing to move over yet
    addSamples(3);
    DataLog.refresh();
    EXPECT_EQ(press("Last record"), 2);
    EXPECT_EQ(press("Next record"), 2);
    EXPECT_EQ(press("Previous record"), 1);
    EXPECT_EQ(press("First record"), 0);
    EXPECT_EQ(press("Previous record"), 0);
    DataLog.recordset().moveLast();
    DataLog.recordset().moveNext();
    EXPECT_EQ(press("Previous record"), 2);
    EXPECT_EQ(told, 6);
    EXPECT_TRUE(processExit.reports.empty());
    DataLog.setCaption("Sequence Settings");
    EXPECT_EQ(DataLog.caption(), "Sequence Settings");
}

} // namespace
