// SPDX-License-Identifier: GPL-3.0-or-later
#include "data_control_fixture.h"

#include <QToolButton>

using namespace orb;

namespace {

TEST_F(DataControlTest, ARefreshNeedsADatabaseNameAndARecordSource)
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

TEST_F(DataControlTest, ItIsASnapshotOfItsTableAsOfTheLastRefresh)
{
    addSamples(2);
    DataLog.refresh();
    addSamples(1, 2);
    EXPECT_EQ(samples(), "0 1");
    EXPECT_EQ(DataLog.recordset().recordCount(), 2);

    DataLog.refresh();
    EXPECT_EQ(samples(), "0 1 2");

    database.execute("delete * from DataMeasure");
    EXPECT_EQ(DataLog.rowCount(), 3);
    DataLog.refresh();
    EXPECT_EQ(samples(), "");
    addSamples(1, 7);
    DataLog.refresh();
    EXPECT_EQ(samples(), "7");
}

TEST_F(DataControlTest, ARefreshThatFailsLeavesTheSnapshotAsItWas)
{
    addSamples(2);
    DataLog.refresh();
    DataLog.setRecordSource("Nowhere");
    EXPECT_NE(failureIn([&] { DataLog.refresh(); }), "none");
    EXPECT_EQ(samples(), "0 1");
}

TEST_F(DataControlTest, ARefreshAfterOneRowReadsThatRowAloneHoweverManyThereAre)
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

TEST_F(DataControlTest, ALogThatWasCopiedIntoAnEmptiedTableIsCountedOnce)
{
    addSamples(5);
    DataLog.refresh();
    database.execute("delete * from DataMeasure");
    addSamples(50'000);

    EXPECT_EQ(rowsReadByRefresh(), 50'000); // SQLite's counters leave open how many rows there are now
    EXPECT_EQ(rowsReadByRefresh(), 0);

    EXPECT_EQ(DataLog.rowCount(), 50'000);
    EXPECT_EQ(sampleAt(49'999), 49'999);
}

TEST_F(DataControlTest, ATableOfAnotherConnectionIsCountedOnce)
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

TEST_F(DataControlTest, TheLastRowCostsNoMoreThanAPage)
{
    addSamples(100'000);
    DataLog.refresh();
    const std::int64_t before = DataLog.rowsRead();
    DataLog.recordset().moveLast();
    EXPECT_EQ(DataLog.recordset().field("SeqNo").asText(), "99999");
    EXPECT_LE(DataLog.rowsRead() - before, 256);
}

TEST_F(DataControlTest, EachRowIsFoundBetweenGaps)
{
    addSamples(3000);
    database.execute("delete from DataMeasure where SeqNo%3=1 or SeqNo between 500 and 1500");
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

TEST_F(DataControlTest, ARefreshShowsRowsThatWereInsertedBetweenTheOthers)
{
    database.execute("insert into DataMeasure (rowid,SeqNo) values(1,10),(5,50)");
    DataLog.refresh();
    database.execute("insert into DataMeasure (rowid,SeqNo) values(3,30),(7,70)");
    DataLog.refresh();
    EXPECT_EQ(samples(), "10 30 50 70");
    database.execute("insert into DataMeasure (rowid,SeqNo) values(-4,1)");
    DataLog.refresh();
    EXPECT_EQ(samples(), "1 10 30 50 70");
}

TEST_F(DataControlTest, ARefreshShowsWhatAnotherProgramHasChanged)
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

TEST_F(DataControlTest, ARefreshShowsWhatATriggerHasChanged)
{
    OtherProgram(path).run(
        "create trigger t after insert on ORBSeqHead begin delete from DataMeasure where SeqNo=1; end");
    addSamples(3);
    DataLog.refresh();
    database.execute("insert into ORBSeqHead values('a',1,1)");
    DataLog.refresh();
    EXPECT_EQ(samples(), "0 2");
}

TEST_F(DataControlTest, ARefreshShowsRowsThatWereReplaced)
{
    DataLog.setRecordSource("datameasureM");
    database.execute("insert into DataMeasureM (LogID,CHNum) values('a',1),('b',2)");
    DataLog.refresh();
    database.execute("insert or replace into DataMeasureM (LogID,CHNum) values('a',3)");
    DataLog.refresh();
    EXPECT_EQ(DataLog.rowCount(), 2);
    EXPECT_EQ(DataLog.valueAt(1, DataLog.columnOf("chnum")).integer, 3);
}

TEST_F(DataControlTest, AnotherRecordSourceShowsAnotherTable)
{
    addSamples(3);
    DataLog.refresh();
    database.execute("insert into ProgramChain values('x',0,'4')");
    DataLog.setRecordSource("ProgramChain");
    DataLog.refresh();
    EXPECT_EQ(DataLog.rowCount(), 1);
    EXPECT_EQ(DataLog.columns(), (std::vector<QString>{"MemCase", "ProgNo", "ProgData"}));
    EXPECT_EQ(DataLog.recordset().field("progdata").asText(), "4");
}

TEST_F(DataControlTest, ARefreshShowsAChangedValueBesideAnAddedRow)
{
    addSamples(3);
    DataLog.refresh();
    EXPECT_EQ(samples(), "0 1 2");
    database.execute("update DataMeasure set SeqNo=7 where SeqNo=1");
    addSamples(1, 3);
    DataLog.refresh();
    EXPECT_EQ(samples(), "0 7 2 3");
    database.execute("update DataMeasure set SeqNo=8 where SeqNo=7");
    DataLog.refresh();
    EXPECT_EQ(samples(), "0 8 2 3");
}

TEST_F(DataControlTest, ARefreshShowsAnEmptiedTableThatWasFilledBeyondItsOldRows)
{
    addSamples(3);
    DataLog.refresh();
    database.execute("delete * from DataMeasure");
    database.execute("insert into DataMeasure (rowid,SeqNo) values(4,40),(5,50),(6,60),(7,70),(8,80),(9,90),(20,200)");
    DataLog.refresh();
    EXPECT_EQ(samples(), "40 50 60 70 80 90 200");
}

TEST_F(DataControlTest, ItsButtonsMoveTheCurrentRow)
{
    DataLog.setParent(&form);
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
    DataLog.recordset().moveNext(); // past the last row
    EXPECT_EQ(press("Previous record"), 2);
    EXPECT_TRUE(processExit.reports.empty());
    DataLog.setCaption("Sequence Settings");
    EXPECT_EQ(DataLog.caption(), "Sequence Settings");
}

TEST_F(DataControlTest, ACellKnowsItsTextBeforeItsFirstEdit)
{
    addSamples(3);
    DataLog.refresh();
    const int column = DataLog.columnOf("PVal1");

    DataLog.setValueAt(1, column, "7");
    DataLog.setValueAt(1, column, "8");

    EXPECT_EQ(DataLog.textBeforeEdit(1, column), "1.50");
    EXPECT_EQ(DataLog.textBeforeEdit(0, column), std::nullopt);
    EXPECT_EQ(DataLog.textBeforeEdit(1, column + 1), std::nullopt);
    EXPECT_EQ(DataLog.textBeforeEdit(3, column), std::nullopt);
}

TEST_F(DataControlTest, ACellThatHasItsFirstTextAgainIsNotEdited)
{
    addSamples(2);
    DataLog.refresh();
    const int column = DataLog.columnOf("PVal1");

    DataLog.setValueAt(1, column, "7");
    DataLog.setValueAt(1, column, "1.50");

    EXPECT_EQ(DataLog.textBeforeEdit(1, column), std::nullopt);
}

TEST_F(DataControlTest, ARefreshKeepsTheEditsOfTheRowsThatStay)
{
    addSamples(3);
    DataLog.refresh();
    const int column = DataLog.columnOf("PVal1");
    DataLog.setValueAt(2, column, "7");
    database.execute("delete * from DataMeasure where SeqNo=0");
    addSamples(1, 3);

    DataLog.refresh();

    EXPECT_EQ(DataLog.textBeforeEdit(1, column), "2.50"); // the row is one place further up now
    EXPECT_EQ(DataLog.textBeforeEdit(2, column), std::nullopt);
}

TEST_F(DataControlTest, ARefreshOfAnEmptiedTableForgetsTheEdits)
{
    addSamples(2);
    DataLog.refresh();
    const int column = DataLog.columnOf("PVal1");
    DataLog.setValueAt(1, column, "7");
    database.execute("delete * from DataMeasure");
    DataLog.refresh();
    addSamples(2);
    DataLog.refresh();

    EXPECT_EQ(DataLog.textBeforeEdit(1, column), std::nullopt);
}

TEST_F(DataControlTest, ARefreshOfAnotherTableForgetsTheEdits)
{
    addSamples(2);
    database.execute("create table Copy as select * from DataMeasure");
    DataLog.refresh();
    const int column = DataLog.columnOf("PVal1");
    DataLog.setValueAt(1, column, "7");

    DataLog.setRecordSource("Copy");
    DataLog.refresh();

    EXPECT_EQ(DataLog.textBeforeEdit(1, column), std::nullopt);
}

TEST_F(DataControlTest, ARefusedValueIsNoEdit)
{
    database.execute("insert into ORBSeqHead values('a',3,3)");
    DataLog.setRecordSource("ORBSeqHead");
    DataLog.refresh();

    EXPECT_EQ(failureIn([&] { DataLog.setValueAt(0, 2, "abc"); }),
              "3075: CHECK constraint failed: Update must be a number");
    EXPECT_EQ(DataLog.textBeforeEdit(0, 2), std::nullopt);
}

TEST_F(DataControlTest, ItsButtonsAreNoStopsOfTheTabKey)
{
    for (const QToolButton* button : DataLog.findChildren<QToolButton*>())
        EXPECT_EQ(button->focusPolicy(), Qt::NoFocus) << button->accessibleName().toStdString();
}

} // namespace
