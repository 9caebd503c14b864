// SPDX-License-Identifier: GPL-3.0-or-later
#include "db_grid_fixture.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QScrollBar>

using namespace orb;
using testing::IsEmpty;

namespace {

TEST_F(DBGridTest, TheRowsOfTheDataControlAreShown)
{
    database.execute("insert into DataMeasure (SeqNo,RecTime,PVal1) values(0,'2024/01/31 10:15:09',1.2340)");
    show(0);
    QStringList cells;
    for (int column = 0; column < DBGrid1.columnCount(); ++column)
        cells << DBGrid1.cellText(0, column);
    EXPECT_EQ(cells.join('|'), "0|2024/01/31 10:15:09|1.2340|"); // null is empty
    EXPECT_EQ(DBGrid1.cellText(1, 0), "");
    EXPECT_EQ(DBGrid1.cellText(0, 4), "");
    EXPECT_EQ(DBGrid1.accessibleName(), "Data Log");
}

TEST_F(DBGridTest, ANumberIsShownInItsOrdinaryFormAndToTheRight)
{
    database.execute("insert into ORBSeqData values(1,0.5,15.0,1.6,1.6)");
    DataLog.setRecordSource("ORBSeqData");
    DBGrid1.setColumns({{"Index", ""}, {"current", ""}, {"missing", ""}});
    show(0);
    EXPECT_EQ(DBGrid1.cellText(0, 0), "1");
    EXPECT_EQ(DBGrid1.cellText(0, 1), "15");
    EXPECT_EQ(DBGrid1.cellText(0, 2), "");
    const auto alignment = [&](int column) {
        return DBGrid1.model()->index(0, column).data(Qt::TextAlignmentRole).toInt() & Qt::AlignHorizontal_Mask;
    };
    EXPECT_EQ(alignment(1), Qt::AlignRight);
    EXPECT_EQ(alignment(2), Qt::AlignLeft);
}

TEST_F(DBGridTest, AColumnHasACaptionAndAWidthInTwips)
{
    DBGrid1.setCaption(2, "Set");
    DBGrid1.setWidthTwips(3, 2709);
    const auto* header = DBGrid1.horizontalHeader();

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

TEST_F(DBGridTest, AColumnThatTheOperatorDragsKeepsItsWidthThroughARefresh)
{
    DBGrid1.horizontalHeader()->resizeSection(0, 100);
    show(1);
    EXPECT_EQ(DBGrid1.columnWidth(0), 100);
}

TEST_F(DBGridTest, TheColumnsFollowAnotherRecordSource)
{
    show(1);
    database.execute("insert into ProgramChain values('x',0,'4')");
    DBGrid1.setColumns({{"progdata", ""}, {"RecTime", ""}, {"memcase", ""}});
    DataLog.setRecordSource("ProgramChain");
    show(0);
    EXPECT_EQ(DBGrid1.cellText(0, 0) + "|" + DBGrid1.cellText(0, 1) + "|" + DBGrid1.cellText(0, 2), "4||x");
}

TEST_F(DBGridTest, AMillionRowsArePaintedWithoutReadingMoreThanThoseInView)
{
    show(1'000'000);
    const std::int64_t before = DataLog.rowsRead();

    EXPECT_FALSE(DBGrid1.grab().isNull());
    EXPECT_LE(DataLog.rowsRead() - before, 256);

    DBGrid1.verticalScrollBar()->setValue(DBGrid1.verticalScrollBar()->maximum());
    EXPECT_FALSE(DBGrid1.grab().isNull());
    EXPECT_LE(DataLog.rowsRead() - before, 768);
    EXPECT_TRUE(isInView(999'999));
    EXPECT_EQ(DBGrid1.model()->index(999'999, 0).data().toString(), "999999");
}

TEST_F(DBGridTest, TheViewFollowsTheCurrentRow)
{
    show(1000);
    EXPECT_EQ(firstVisibleRow(), 0);
    const auto topAfter = [this](const std::function<void(TableRecordset&)>& move) {
        move(DataLog.recordset());
        settle();
        EXPECT_EQ(DBGrid1.selectionModel()->selectedRows().value(0).row(), currentRow());
        return firstVisibleRow();
    };
    EXPECT_GE(topAfter([](auto& record) { record.moveLast(); }), 999 - visibleRows());
    EXPECT_TRUE(isInView(999));
    EXPECT_EQ(topAfter([](auto& record) { record.findFirst("SeqNo=70"); }), 70);
    EXPECT_EQ(topAfter([](auto& record) { record.moveNext(); }), 70); // in view already
    addSamples(1, 1000);
    DataLog.refresh();
    EXPECT_GE(topAfter([](auto& record) { record.moveLast(); }), 1000 - visibleRows());
    EXPECT_TRUE(isInView(1000));
}

TEST_F(DBGridTest, ASampleThatIsAddedDoesNotScrollTheViewToTheTopAndBack)
{
    show(1000);
    DataLog.recordset().moveLast();
    settle();
    int top = firstVisibleRow();
    QObject::connect(DBGrid1.verticalScrollBar(), &QScrollBar::valueChanged,
                     [&](int value) { top = std::min(top, value); });
    const int before = top;

    addSamples(1, 1000);
    DataLog.refresh();
    DBGrid1.refresh();
    DataLog.recordset().moveLast();
    settle();

    EXPECT_EQ(top, before);
    EXPECT_EQ(firstVisibleRow(), before + 1);
}

TEST_F(DBGridTest, ARowThatIsFollowedDoesNotScrollTheViewSideways)
{
    DBGrid1.setWidthTwips(1, 15000);
    show(1000);
    DBGrid1.horizontalScrollBar()->setValue(300);
    DataLog.recordset().moveLast();
    settle();
    EXPECT_EQ(DBGrid1.horizontalScrollBar()->value(), 300);
    EXPECT_EQ(currentColumn(), 0);
}

TEST_F(DBGridTest, AShorterTableMovesNoCurrentRow)
{
    show(1000);
    DataLog.recordset().moveLast();
    settle();
    database.execute("delete from DataMeasure where SeqNo>=5");
    DataLog.refresh();
    settle();
    EXPECT_EQ(currentRow(), 0);
    EXPECT_EQ(DBGrid1.model()->rowCount(), 5);
    EXPECT_EQ(DBGrid1.currentIndex().row(), 0);
}

TEST_F(DBGridTest, TheFontSetsTheHeightOfTheRows)
{
    show(1);
    QFont large = DBGrid1.font();
    large.setPointSize(30);
    DBGrid1.setFont(large);
    EXPECT_EQ(DBGrid1.rowHeight(0), DBGrid1.fontMetrics().height() + 4);
}

TEST_F(DBGridTest, AWalkToTheEndLeavesTheView)
{
    show(1000);
    auto& record = DataLog.recordset();
    record.findFirst("SeqNo=500");
    settle();
    const int before = firstVisibleRow();
    for (record.moveFirst(); !record.isEof(); record.moveNext()) {
    }
    settle();
    EXPECT_EQ(firstVisibleRow(), before);
    EXPECT_FALSE(DBGrid1.currentIndex().isValid());
    EXPECT_FALSE(DBGrid1.grab().isNull());
}

TEST_F(DBGridTest, AnEmptiedTableShowsNoRow)
{
    show(1000);
    DataLog.recordset().moveLast();
    database.execute("delete * from DataMeasure");
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
    using Cell = std::pair<std::int64_t, int>;
    const auto cellAfter = [&](Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        press(key, modifiers);
        EXPECT_EQ(DBGrid1.currentIndex().row(), currentRow());
        return Cell(currentRow(), currentColumn());
    };
    EXPECT_EQ(cellAfter(Qt::Key_Up), Cell(0, 0));
    EXPECT_EQ(cellAfter(Qt::Key_Down), Cell(1, 0));
    EXPECT_EQ(cellAfter(Qt::Key_Right), Cell(1, 1));
    const Cell page = cellAfter(Qt::Key_PageDown);
    EXPECT_GE(page.first, visibleRows());
    EXPECT_LE(page.first, 2 + visibleRows());
    EXPECT_EQ(page.second, 1);
    EXPECT_EQ(cellAfter(Qt::Key_End), Cell(page.first, 3));
    EXPECT_EQ(cellAfter(Qt::Key_Right), Cell(page.first, 3));
    EXPECT_EQ(cellAfter(Qt::Key_End, Qt::ControlModifier), Cell(999, 3));
    EXPECT_EQ(cellAfter(Qt::Key_Down), Cell(999, 3));
    EXPECT_EQ(cellAfter(Qt::Key_Home), Cell(999, 0));
    EXPECT_EQ(cellAfter(Qt::Key_Left), Cell(999, 0));
    EXPECT_LT(cellAfter(Qt::Key_PageUp).first, 1000 - visibleRows() + 1);
    EXPECT_EQ(cellAfter(Qt::Key_Home, Qt::ControlModifier), Cell(0, 0));
}

TEST_F(DBGridTest, ALetterOnACellThatIsNotEditableMovesNothing)
{
    show(100);
    click(3, 0);
    press(Qt::Key_5, Qt::NoModifier, "5");
    EXPECT_EQ(currentRow(), 3);
}

TEST_F(DBGridTest, AClickMakesItsCellTheCurrentOne)
{
    show(100);
    click(3, 2);
    EXPECT_EQ(currentRow(), 3);
    EXPECT_EQ(currentColumn(), 2);
    EXPECT_FALSE(DBGrid1.isEditing());
}

TEST_F(DBGridTest, AClickInAScrolledViewGoesToTheCellUnderThePointer)
{
    DBGrid1.setGeometry(0, 0, 200, 150);
    show(1000);
    DBGrid1.verticalScrollBar()->setValue(400);
    DBGrid1.horizontalScrollBar()->setValue(250);
    const QPoint at = cell(403, 2).center();
    ASSERT_TRUE(DBGrid1.viewport()->rect().contains(at));
    click(403, 2);
    EXPECT_EQ(currentRow(), 403);
    EXPECT_EQ(currentColumn(), 2);
    EXPECT_EQ(DataLog.recordset().field("SeqNo").asText(), "403");
}

TEST_F(DBGridTest, ACopyIsThatOfTheCurrentRow)
{
    show(3);
    DataLog.recordset().setPosition(2);
    settle();
    press(Qt::Key_C, Qt::ControlModifier, QString(QChar(3)));
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "2\t2024/01/31 10:15:09\t2.50\t");
}

TEST_F(DBGridTest, ACopyWithoutACurrentRowLeavesTheClipboard)
{
    show(0);
    QGuiApplication::clipboard()->setText("before");
    press(Qt::Key_C, Qt::ControlModifier, QString(QChar(3)));
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "before");
}

TEST_F(DBGridTest, ARefreshRepaintsTheRowsInView)
{
    show(3);
    int repainted = 0;
    QObject::connect(DBGrid1.model(), &QAbstractItemModel::dataChanged,
                     [&](const QModelIndex& first, const QModelIndex& last) {
                         EXPECT_EQ(first, DBGrid1.model()->index(0, 0));
                         EXPECT_EQ(last, DBGrid1.model()->index(2, 3));
                         ++repainted;
                     });
    database.execute("update DataMeasure set PVal1='7'");
    show(0);
    EXPECT_EQ(repainted, 1);
}

TEST_F(DBGridTest, ARefreshBringsTheCurrentRowBackIntoView)
{
    show(1000);
    DBGrid1.verticalScrollBar()->setValue(500);
    show(0);
    EXPECT_EQ(firstVisibleRow(), 0);
}

TEST_F(DBGridTest, ARefreshReportsTheRowsThatWereAddedAndNoOthers)
{
    QStringList reported;
    const auto report = [&](const QModelIndex&, int first, int last) {
        reported += QStringLiteral("%1 to %2").arg(first).arg(last);
    };
    QObject::connect(DBGrid1.model(), &QAbstractItemModel::rowsInserted, &form, report);

    show(3);
    show(0);
    show(2);

    EXPECT_EQ(reported, QStringList({"0 to 2", "3 to 4"}));
}

TEST_F(DBGridTest, TheGridAndTheDataControlMayBeDestroyedInEitherOrder)
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

TEST_F(DBGridTest, AClosedDatabaseShowsNoRow)
{
    show(10);
    workspace.close();
    EXPECT_FALSE(DBGrid1.grab().isNull());
    click(2, 0);
    DBGrid1.refresh();
    settle();
    EXPECT_EQ(DBGrid1.cellText(0, 0), "");
    EXPECT_THAT(processExit.reports, IsEmpty());
}

TEST_F(DBGridTest, TheFocusIsAnOutlineAndTheCurrentRowIsFilled)
{
    show(3);
    QLineEdit other(&form);
    other.show();
    const QColor accent = DBGrid1.palette().color(QPalette::Highlight);
    const auto pixel = [&](int x, int y) { return DBGrid1.viewport()->grab().toImage().pixelColor(x, y); };
    const int row = cell(0, 1).center().y();
    EXPECT_EQ(pixel(1, 200), accent);

    other.setFocus();

    EXPECT_NE(pixel(1, 200), accent);
    EXPECT_EQ(pixel(cell(0, 1).right() - 4, row), accent);
}

TEST_F(DBGridTest, AFittingColumnIsAsWideAsItsCaptionAndItsValuesNeedAndDoesNotShrink)
{
    DBGrid1.setColumns({{"SeqNo", "SeqNo", 0, false, false, true}, {"PVal1", "CH1 A", 0, false, false, true}});
    const auto needs = [&](const QString& text) { return DBGrid1.fontMetrics().horizontalAdvance(text) + 10; };
    EXPECT_EQ(DBGrid1.columnWidth(1), needs("CH1 A"));
    database.execute("insert into DataMeasure (SeqNo,PVal1) values(1,123456.789)");
    show(0);
    EXPECT_EQ(DBGrid1.columnWidth(1), needs("123456.789"));
    database.execute("update DataMeasure set PVal1=1");
    show(0);
    EXPECT_EQ(DBGrid1.columnWidth(1), needs("123456.789"));
    QFont large = DBGrid1.font();
    large.setPointSize(14);
    DBGrid1.setFont(large);
    EXPECT_GE(DBGrid1.columnWidth(0), needs("SeqNo"));
}

TEST_F(DBGridTest, AFittingColumnIsNoNarrowerThanItsWidthAndKeepsWhatTheOperatorSets)
{
    DBGrid1.setColumns({{"SeqNo", "SeqNo", 3000, false, false, true}, {"PVal1", "CH1 A", 0, false, false, true}});
    EXPECT_EQ(DBGrid1.columnWidth(0), 200);
    DBGrid1.horizontalHeader()->resizeSection(1, 20); // what a drag of the header's edge does
    database.execute("insert into DataMeasure (SeqNo,PVal1) values(1,123456.789)");
    show(0);
    EXPECT_EQ(DBGrid1.columnWidth(1), 20);
    DBGrid1.setWidthTwips(0, 300);
    EXPECT_EQ(DBGrid1.columnWidth(0), DBGrid1.fontMetrics().horizontalAdvance("SeqNo") + 10);
}

TEST_F(DBGridTest, FittingReadsOnlyTheRowsInView)
{
    DBGrid1.setColumns({{"SeqNo", "SeqNo", 0, false, false, true}});
    addSamples(1000);
    database.execute("update DataMeasure set SeqNo=123456789012 where SeqNo=900");
    show(0);
    EXPECT_EQ(DBGrid1.columnWidth(0), DBGrid1.fontMetrics().horizontalAdvance("SeqNo") + 10);
}

TEST_F(DBGridTest, AGridThatIsAsWideAsItsColumnsAsksForTheirWidth)
{
    const int least = DBGrid1.minimumSizeHint().width();
    EXPECT_LT(least, 200);
    DBGrid1.setWideAsColumns(true);
    EXPECT_GE(DBGrid1.minimumSizeHint().width(), DBGrid1.horizontalHeader()->length());
    EXPECT_LE(DBGrid1.minimumSizeHint().width(), DBGrid1.horizontalHeader()->length() + 30);
}

} // namespace
