// SPDX-License-Identifier: GPL-3.0-or-later
#include "db_grid_fixture.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QScrollBar>

using namespace orb;
using testing::IsEmpty;

namespace {

TEST_F(DBGridTest, ShowsTheRowsOfItsDataControl)
{
    database->execute("insert into DataMeasure (SeqNo,RecTime,PVal1) values(0,'2024/01/31 10:15:09',1.2340)");
    show(0);
    QStringList cells;
    for (int column = 0; column < DBGrid1.columnCount(); ++column)
        cells << DBGrid1.cellText(0, column);
    EXPECT_EQ(cells.join('|'), "0|2024/01/31 10:15:09|1.2340|"); // null is empty
    EXPECT_EQ(DBGrid1.cellText(1, 0), "");
    EXPECT_EQ(DBGrid1.cellText(0, 4), "");
    EXPECT_EQ(DBGrid1.accessibleName(), "Data Log");
}

TEST_F(DBGridTest, ShowsNumbersInTheirOrdinaryForm)
{
    database->execute("insert into ORBSeqData values(1,0.5,15.0,1.6,1.6)");
    DataLog.setRecordSource("ORBSeqData");
    DBGrid1.setColumns({{"Index", ""}, {"current", ""}, {"missing", ""}});
    DataLog.refresh();
    EXPECT_EQ(DBGrid1.cellText(0, 0), "1");
    EXPECT_EQ(DBGrid1.cellText(0, 1), "15");
    EXPECT_EQ(DBGrid1.cellText(0, 2), "");
}

TEST_F(DBGridTest, HasColumnsWithCaptionsAndWidthsInTwips)
{
    DBGrid1.setCaption(2, "Set");
    DBGrid1.setWidthTwips(3, 2709);
    const auto* header = DBGrid1.findChild<QHeaderView*>();

    EXPECT_EQ(DBGrid1.column(2).caption, "Set");
    EXPECT_EQ(header->model()->headerData(2, Qt::Horizontal).toString(), "Set");
    EXPECT_EQ(header->model()->headerData(3, Qt::Horizontal).toString(), "Comment"); // the field's name without one
    EXPECT_EQ(DBGrid1.column(3).widthTwips, 2709);
    EXPECT_EQ(header->sectionSize(3), 180);
    EXPECT_EQ(failureIn([&] { DBGrid1.setCaption(4, ""); }), "9: Subscript out of range");
    EXPECT_EQ(failureIn([&] { DBGrid1.setWidthTwips(-1, 0); }), "9: Subscript out of range");

    show(1);
    EXPECT_EQ(DBGrid1.column(2).caption, "Set"); // a refresh keeps them
    EXPECT_EQ(DBGrid1.column(3).widthTwips, 2709);
}

TEST_F(DBGridTest, AColumnThatTheOperatorDragsHasANewWidth)
{
    DBGrid1.findChild<QHeaderView*>()->resizeSection(0, 100);
    EXPECT_EQ(DBGrid1.column(0).widthTwips, 1500);
}

TEST_F(DBGridTest, ShowsEveryColumnOfTheTableWithoutADesign)
{
    DBGrid all(&form);
    all.setDataSource(DataLog);
    EXPECT_EQ(all.columnCount(), 0);
    show(1);
    EXPECT_EQ(all.columnCount(), 22);
    EXPECT_EQ(all.column(2).field, "PVal1");
    DataLog.setRecordSource("ProgramChain");
    show(0);
    EXPECT_EQ(all.columnCount(), 3);
}

TEST_F(DBGridTest, PaintsAMillionRowsWithoutReadingMoreThanThoseInView)
{
    show(1'000'000);
    const std::int64_t before = DataLog.rowsRead();

    EXPECT_FALSE(DBGrid1.grab().isNull());
    EXPECT_LE(DataLog.rowsRead() - before, 256);

    DBGrid1.verticalScrollBar()->setValue(DBGrid1.verticalScrollBar()->maximum());
    EXPECT_FALSE(DBGrid1.grab().isNull());
    EXPECT_LE(DataLog.rowsRead() - before, 768);
    EXPECT_EQ(DBGrid1.firstVisibleRow() + DBGrid1.visibleRows(), 1'000'000);
}

TEST_F(DBGridTest, FollowsTheCurrentRow)
{
    show(1000);
    EXPECT_EQ(DBGrid1.firstVisibleRow(), 0);
    DataLog.recordset().moveLast();
    EXPECT_EQ(DBGrid1.firstVisibleRow(), 1000 - DBGrid1.visibleRows());
    DataLog.recordset().findFirst("SeqNo=70");
    EXPECT_EQ(DBGrid1.firstVisibleRow(), 70);
    DataLog.recordset().moveNext(); // in view already
    EXPECT_EQ(DBGrid1.firstVisibleRow(), 70);
    addSamples(1, 1000);
    DataLog.refresh();
    DBGrid1.refresh();
    DataLog.recordset().moveLast();
    settle();
    EXPECT_EQ(DBGrid1.firstVisibleRow(), 1001 - DBGrid1.visibleRows());
}

TEST_F(DBGridTest, AWalkToTheEndLeavesTheViewAlone)
{
    show(1000);
    auto& record = DataLog.recordset();
    for (record.moveFirst(); !record.isEof(); record.moveNext()) {
    }
    EXPECT_EQ(DBGrid1.firstVisibleRow(), 0);
    EXPECT_FALSE(DBGrid1.grab().isNull());
}

TEST_F(DBGridTest, AnEmptiedTableShowsNoRow)
{
    show(1000);
    DataLog.recordset().moveLast();
    database->execute("delete * from DataMeasure");
    EXPECT_FALSE(DBGrid1.grab().isNull()); // rows that are gone, before the refresh
    show(0);
    EXPECT_EQ(DBGrid1.verticalScrollBar()->maximum(), 0);
    EXPECT_FALSE(DBGrid1.grab().isNull());
    press(Qt::Key_Down);
    press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_THAT(processExit.reports, IsEmpty());
}

TEST_F(DBGridTest, KeysMoveTheCurrentCell)
{
    show(1000);
    const int page = DBGrid1.visibleRows();
    int told = 0;
    DataLog.onReposition = [&] { ++told; };
    const auto cell = [&](Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        press(key, modifiers);
        return std::pair<std::int64_t, int>(currentRow(), DBGrid1.currentColumn());
    };
    using Cell = std::pair<std::int64_t, int>;
    EXPECT_EQ(cell(Qt::Key_Up), Cell(0, 0));
    EXPECT_EQ(cell(Qt::Key_Down), Cell(1, 0));
    EXPECT_EQ(cell(Qt::Key_Right), Cell(1, 1));
    EXPECT_EQ(cell(Qt::Key_PageDown), Cell(1 + page, 1));
    EXPECT_EQ(DBGrid1.firstVisibleRow(), 2);
    EXPECT_EQ(cell(Qt::Key_End), Cell(1 + page, 3));
    EXPECT_EQ(cell(Qt::Key_Right), Cell(1 + page, 3));
    EXPECT_EQ(cell(Qt::Key_End, Qt::ControlModifier), Cell(999, 3));
    EXPECT_EQ(cell(Qt::Key_Down), Cell(999, 3));
    EXPECT_EQ(cell(Qt::Key_Home), Cell(999, 0));
    EXPECT_EQ(cell(Qt::Key_Left), Cell(999, 0));
    EXPECT_EQ(cell(Qt::Key_PageUp), Cell(999 - page, 0));
    EXPECT_EQ(cell(Qt::Key_Home, Qt::ControlModifier), Cell(0, 0));
    EXPECT_EQ(told, 12);
}

TEST_F(DBGridTest, AClickMakesItsCellTheCurrentOne)
{
    show(100);
    click(3, 2);
    EXPECT_EQ(currentRow(), 3);
    EXPECT_EQ(DBGrid1.currentColumn(), 2);
    EXPECT_FALSE(DBGrid1.isEditing());
}

TEST_F(DBGridTest, CopiesTheCurrentRow)
{
    show(3);
    DataLog.recordset().setPosition(2);
    press(Qt::Key_C, Qt::ControlModifier, QString(QChar(3)));
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "2\t2024/01/31 10:15:09\t2.50\t");
}

TEST_F(DBGridTest, OutlivesItsDataControlAndTheOtherWayRound)
{
    DBGrid grid(&form);
    {
        DataControl other(workspace, &form);
        other.setDatabaseName(path);
        other.setRecordSource("DataMeasure");
        grid.setDataSource(other);
        {
            DBGrid shorter(&form);
            shorter.setDataSource(other);
        }
        addSamples(3);
        other.refresh();
        settle();
    }
    grid.refresh();
    EXPECT_FALSE(grid.grab().isNull());
    EXPECT_EQ(grid.cellText(0, 0), "");
}

TEST_F(DBGridTest, ShowsNothingOnceTheDatabaseIsClosed)
{
    show(10);
    workspace.close();
    EXPECT_FALSE(DBGrid1.grab().isNull());
    DBGrid1.refresh();
    EXPECT_THAT(processExit.reports, IsEmpty());
}

} // namespace
