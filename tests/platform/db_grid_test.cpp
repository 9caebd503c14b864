// SPDX-License-Identifier: GPL-3.0-or-later
#include "database_fixture.h"
#include "db_grid.h"
#include "form.h"
#include "recorded_ending.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>

using namespace orb;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// The form stands before the controls on it, so that they go first.
class DBGridTest : public DatabaseTest {
protected:
    DBGridTest()
    {
        form.resize(800, 400);
        DBGrid1.setParent(&form);
        DBGrid1.setGeometry(0, 0, 700, 300);
        DataLog.setDatabaseName(path);
        DataLog.setRecordSource("DataMeasure");
        DataLog.setCaption("Data Log");
        DBGrid1.setColumns({{"SeqNo", "SeqNo", 900, false},
                            {"RecTime", "RecTime", 2400, false},
                            {"PVal1", "CH1 A", 1200, true},
                            {"Comment", "", 1400, true}});
        DBGrid1.setDataSource(DataLog);
        form.show();
        form.activateWindow();
        DBGrid1.setFocus();
    }

    void show(int samples)
    {
        if (samples > 0)
            addSamples(samples);
        DataLog.refresh();
        settle();
    }

    static void settle()
    {
        for (int i = 0; i < 5; ++i)
            QCoreApplication::processEvents();
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, const QString& text = {})
    {
        QWidget* target = DBGrid1.isEditing() ? editor() : static_cast<QWidget*>(&DBGrid1);
        QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
        QCoreApplication::sendEvent(target, &event);
        settle();
    }

    void type(const QString& text)
    {
        for (const QChar c : text)
            press(Qt::Key_A, Qt::NoModifier, QString(c));
    }

    void click(std::int64_t row, int column, QEvent::Type kind = QEvent::MouseButtonPress)
    {
        const QPoint at = DBGrid1.cellRect(row, column).center();
        QMouseEvent event(kind, at, DBGrid1.viewport()->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(DBGrid1.viewport(), &event);
        settle();
    }

    QLineEdit* editor() { return DBGrid1.viewport()->findChild<QLineEdit*>(); }
    std::int64_t currentRow() { return DataLog.recordset().position(); }

    RecordedEnding ending;
    orb::Run run{ending};
    Form form{run};
    DataControl DataLog{workspace};
    DBGrid DBGrid1;
};

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
    EXPECT_THAT(ending.reports, IsEmpty());
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

TEST_F(DBGridTest, EnterWritesAnEditedCellToTheTableAtOnce)
{
    show(300);
    int told = 0;
    DBGrid1.onEdited = [&] { ++told; };
    DataLog.recordset().setPosition(280);
    settle();
    click(280, 2);
    click(280, 2, QEvent::MouseButtonDblClick);
    ASSERT_TRUE(DBGrid1.isEditing());
    EXPECT_EQ(editor()->text(), "280.50");

    type("9.9");
    press(Qt::Key_Return);

    EXPECT_FALSE(DBGrid1.isEditing());
    EXPECT_EQ(rows("select SeqNo,PVal1 from DataMeasure where PVal1='9.9'"), "280|9.9\n");
    EXPECT_EQ(DBGrid1.cellText(280, 2), "9.9");
    EXPECT_EQ(told, 1);
}

TEST_F(DBGridTest, ATypedCharacterBeginsToEditInThePlaceOfTheText)
{
    show(2);
    click(1, 3);
    type("note");
    press(Qt::Key_Down);
    EXPECT_EQ(rows("select SeqNo,Comment from DataMeasure"), "0|-\n1|note\n");
}

TEST_F(DBGridTest, AnArrowWritesAndGoesToTheNextRow)
{
    show(3);
    click(0, 3);
    press(Qt::Key_F2);
    type("a");
    press(Qt::Key_Down);
    EXPECT_EQ(currentRow(), 1);
    EXPECT_EQ(rows("select Comment from DataMeasure where SeqNo=0"), "a\n");
}

TEST_F(DBGridTest, EscapeGivesAnEditUp)
{
    show(2);
    click(1, 2);
    press(Qt::Key_Return);
    type("9.9");
    press(Qt::Key_Escape);
    EXPECT_FALSE(DBGrid1.isEditing());
    EXPECT_EQ(DBGrid1.cellText(1, 2), "1.50");
    EXPECT_EQ(rows("select count(*) from DataMeasure where PVal1='9.9'"), "0\n");
}

TEST_F(DBGridTest, AColumnThatIsNotEditableIsNotEdited)
{
    show(2);
    click(1, 0);
    press(Qt::Key_F2);
    type("5");
    EXPECT_FALSE(DBGrid1.isEditing());
    DBGrid1.setEditable(0, true);
    press(Qt::Key_F2);
    EXPECT_TRUE(DBGrid1.isEditing());
}

TEST_F(DBGridTest, AnUnchangedTextIsNotWritten)
{
    show(2);
    int told = 0;
    DBGrid1.onEdited = [&] { ++told; };
    click(1, 3);
    press(Qt::Key_F2);
    press(Qt::Key_Return);
    EXPECT_FALSE(DBGrid1.isEditing());
    EXPECT_EQ(told, 0);
    EXPECT_EQ(rows("select count(*) from DataMeasure where Comment is null"), "2\n");
}

class RefusedEditTest : public DBGridTest {
protected:
    RefusedEditTest()
    {
        database->execute("insert into ORBSeqHead values('Repeat Count',3,3)");
        DataLog.setRecordSource("ORBSeqHead");
        DBGrid1.setColumns({{"Item", ""}, {"The Current Settings", ""}, {"Update", "Set", 1200, true}});
        DBGrid1.onEditRefused = [this](const RuntimeFailure& failure) { refusals.push_back(failure.description()); };
        show(0);
        click(0, 2);
        press(Qt::Key_F2);
        type("abc");
    }

    std::vector<QString> refusals;
    const QString reason = "CHECK constraint failed: Update must be a number";
};

TEST_F(RefusedEditTest, LeavesTheOldValueAndTheEditorOpen)
{
    press(Qt::Key_Return);

    EXPECT_TRUE(DBGrid1.isEditing());
    EXPECT_EQ(editor()->toolTip(), reason);
    EXPECT_THAT(refusals, ElementsAre(reason));
    EXPECT_EQ(rows("select \"Update\" from ORBSeqHead"), "Update\n"); // a text in this dialect
    EXPECT_EQ(rows("select [Update] from ORBSeqHead"), "3\n");
    EXPECT_THAT(ending.reports, IsEmpty());

    type("4");
    press(Qt::Key_Return);
    EXPECT_FALSE(DBGrid1.isEditing());
    EXPECT_EQ(rows("select [Update] from ORBSeqHead"), "4\n");
}

TEST_F(RefusedEditTest, IsGivenUpWhenTheOperatorGoesElsewhere)
{
    QPushButton elsewhere(&form);
    elsewhere.show();
    elsewhere.setFocus();
    settle();
    EXPECT_FALSE(DBGrid1.isEditing());
    EXPECT_THAT(refusals, ElementsAre(reason));
    EXPECT_EQ(DBGrid1.cellText(0, 2), "3");
}

TEST_F(DBGridTest, GoingElsewhereWritesTheEditedCell)
{
    show(2);
    click(1, 3);
    press(Qt::Key_F2);
    type("x");
    QPushButton elsewhere(&form);
    elsewhere.show();
    elsewhere.setFocus();
    settle();
    EXPECT_EQ(rows("select Comment from DataMeasure"), "-\nx\n");
    EXPECT_TRUE(elsewhere.hasFocus());
}

TEST_F(DBGridTest, AnOpenEditorHoldsTheViewAndItsTextThroughARefresh)
{
    show(1000);
    click(1, 3);
    press(Qt::Key_F2);
    type("x");
    addSamples(1, 1000);
    DataLog.refresh();
    DataLog.recordset().moveLast();
    settle();
    EXPECT_TRUE(DBGrid1.isEditing());
    EXPECT_EQ(DBGrid1.firstVisibleRow(), 0);
    press(Qt::Key_Return);
    EXPECT_EQ(rows("select SeqNo from DataMeasure where Comment='x'"), "1\n");
}

TEST_F(DBGridTest, AnEditEndsWhenItsCellHasAnotherValue)
{
    show(3);
    click(1, 2);
    press(Qt::Key_F2);
    database->execute("delete * from DataMeasure");
    show(0);
    EXPECT_FALSE(DBGrid1.isEditing());
    EXPECT_THAT(ending.reports, IsEmpty());
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
    EXPECT_THAT(ending.reports, IsEmpty());
}

} // namespace
