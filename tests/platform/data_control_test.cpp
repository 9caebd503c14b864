// SPDX-License-Identifier: GPL-3.0-or-later
#include "data_control.h"
#include "database_fixture.h"
#include "form.h"
#include "press.h"
#include "recorded_ending.h"

#include <QToolButton>

using namespace orb;

namespace {

class DataControlTest : public DatabaseTest {
protected:
    DataControlTest()
    {
        DataLog.setConnectText("Access 2000;");
        DataLog.setDatabaseName(path);
        DataLog.setRecordSource("DataMeasure");
    }

    /// The sample numbers of the picture, read by row.
    std::string samples()
    {
        QStringList numbers;
        const int column = DataLog.columnOf("seqno");
        for (std::int64_t row = 0; row < DataLog.rowCount(); ++row)
            numbers << QString::number(DataLog.valueAt(row, column).integer);
        return numbers.join(' ').toStdString();
    }

    std::int64_t sampleAt(std::int64_t row) { return DataLog.valueAt(row, DataLog.columnOf("SeqNo")).integer; }

    /// What a refresh reads, scans or counts in the file.
    std::int64_t rowsReadByRefresh()
    {
        const std::int64_t before = DataLog.rowsRead();
        DataLog.refresh();
        return DataLog.rowsRead() - before;
    }

    RecordedEnding ending;
    orb::Run run{ending};
    Form form{run};
    DataControl DataLog{workspace};
};

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

TEST_F(DataControlTest, StandsOnItsFirstRowAfterARefresh)
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

TEST_F(DataControlTest, MovesItsRecordsetBothWays)
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

TEST_F(DataControlTest, WithoutRowsIsAtBothEnds)
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

TEST_F(DataControlTest, FindsTheFirstRowThatMeetsACriterion)
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

TEST_F(DataControlTest, StaysWhereItIsWhenNoRowMeetsTheCriterion)
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

TEST_F(DataControlTest, RefusesACriterionThatIsMoreThanOne)
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

TEST_F(DataControlTest, WritesAnEditedCellToTheTableAtOnce)
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

TEST_F(DataControlTest, TakesAnEditedNumberAsANumberAndRefusesAnythingElse)
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

TEST_F(DataControlTest, ARowThatIsGoneReadsAsNothingAndTakesNothing)
{
    addSamples(3);
    DataLog.refresh();
    database->execute("delete * from DataMeasure");
    EXPECT_EQ(DataLog.valueAt(1, 0).type, FieldType::Null);
    EXPECT_EQ(failureIn([&] { DataLog.setValueAt(1, 0, "5"); }), "3021: No current record");
    EXPECT_EQ(failureIn([&] { DataLog.recordset().field("SeqNo").asText(); }), "3021: No current record");
}

TEST_F(DataControlTest, RefusesACellOutsideOfThePicture)
{
    addSamples(1);
    DataLog.refresh();
    EXPECT_EQ(failureIn([&] { DataLog.valueAt(1, 0); }), "3021: No current record");
    EXPECT_EQ(failureIn([&] { DataLog.valueAt(-1, 0); }), "3021: No current record");
    EXPECT_EQ(failureIn([&] { DataLog.valueAt(0, 22); }), "3265: Item not found in this collection");
    EXPECT_EQ(failureIn([&] { DataLog.setValueAt(0, -1, ""); }), "3265: Item not found in this collection");
}

TEST_F(DataControlTest, FailsOnceTheWorkspaceIsClosedAndOpensAgainWithARefresh)
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

TEST_F(DataControlTest, ItsButtonsMoveTheCurrentRow)
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
    EXPECT_TRUE(ending.reports.empty());
    DataLog.setCaption("Sequence Settings");
    EXPECT_EQ(DataLog.caption(), "Sequence Settings");
}

} // namespace
