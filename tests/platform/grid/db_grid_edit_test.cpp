// SPDX-License-Identifier: GPL-3.0-or-later
#include "dark_palette.h"
#include "db_grid_fixture.h"

#include <QApplication>
#include <QMenu>
#include <QPushButton>
#include <QToolTip>

using namespace orb;
using testing::IsEmpty;

namespace {

class DBGridEditTest : public DBGridTest {};

TEST_F(DBGridEditTest, EnterWritesAnEditedCellToTheTableAtOnce)
{
    show(300);
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
}

TEST_F(DBGridEditTest, ATypedCharacterReplacesTheText)
{
    show(2);
    click(1, 3);
    type("note");
    press(Qt::Key_Down);
    EXPECT_EQ(rows("select SeqNo,Comment from DataMeasure"), "0|-\n1|note\n");
}

TEST_F(DBGridEditTest, AnArrowWritesTheEditedCellAndGoesToTheNextRow)
{
    show(3);
    click(0, 3);
    press(Qt::Key_F2);
    type("a");
    press(Qt::Key_Down);
    EXPECT_EQ(currentRow(), 1);
    EXPECT_EQ(rows("select Comment from DataMeasure where SeqNo=0"), "a\n");
}

TEST_F(DBGridEditTest, EscapeCancelsAnEdit)
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

TEST_F(DBGridEditTest, AColumnThatIsNotEditableIsNotEdited)
{
    show(2);
    click(1, 0);
    press(Qt::Key_F2);
    type("5");
    EXPECT_FALSE(DBGrid1.isEditing());
    press(Qt::Key_Return);
    click(1, 0, QEvent::MouseButtonDblClick);
    EXPECT_FALSE(DBGrid1.isEditing());
}

TEST_F(DBGridEditTest, AnUnchangedTextIsNotWritten)
{
    show(2);
    const std::string changes = rows("select total_changes()");
    click(1, 3);
    press(Qt::Key_F2);
    press(Qt::Key_Return);
    EXPECT_FALSE(DBGrid1.isEditing());
    EXPECT_EQ(rows("select total_changes()"), changes);
}

class RefusedEditTest : public DBGridTest {
protected:
    RefusedEditTest()
    {
        database.execute("insert into ORBSeqHead values('Repeat Count',3,3)");
        DataLog.setRecordSource("ORBSeqHead");
        DBGrid1.setColumns({{"Item", ""}, {"The Current Settings", ""}, {"Update", "Set", 1200, true}});
        show(0);
        click(0, 2);
        press(Qt::Key_F2);
        type("abc");
    }

    const QString reason = "Update must be a number";
};

TEST_F(RefusedEditTest, ARefusedTextLeavesTheOldValueAndTheEditorOpen)
{
    press(Qt::Key_Return);

    EXPECT_TRUE(DBGrid1.isEditing());
    EXPECT_EQ(editor()->toolTip(), reason);
    EXPECT_EQ(QToolTip::text(), reason);
    EXPECT_EQ(editor()->selectedText(), "abc");
    EXPECT_EQ(rows("select \"Update\" from ORBSeqHead"), "Update\n"); // a text in this dialect
    EXPECT_EQ(rows("select [Update] from ORBSeqHead"), "3\n");
    EXPECT_THAT(processExit.reports, IsEmpty());

    type("4");
    press(Qt::Key_Return);
    EXPECT_FALSE(DBGrid1.isEditing());
    EXPECT_EQ(rows("select [Update] from ORBSeqHead"), "4\n");
}

TEST_F(RefusedEditTest, ARefusedTextIsReadableOnADarkDesktopToo)
{
    DBGrid1.setPalette(darkPalette());
    ASSERT_GT(editor()->palette().color(QPalette::Text).lightness(), 200);

    press(Qt::Key_Return);

    EXPECT_GT(editor()->palette().color(QPalette::Base).lightness(), 200);
    EXPECT_LT(editor()->palette().color(QPalette::Text).lightness(), 50);
}

TEST_F(RefusedEditTest, ARefusedTextIsGivenUpWhenTheOperatorGoesElsewhere)
{
    QPushButton elsewhere(&form);
    elsewhere.show();
    elsewhere.setFocus();
    settle();
    EXPECT_FALSE(DBGrid1.isEditing());
    EXPECT_EQ(QToolTip::text(), reason);
    EXPECT_EQ(DBGrid1.cellText(0, 2), "3");
}

TEST_F(RefusedEditTest, ARefusedTextIsGivenUpByAnotherCell)
{
    click(0, 0);
    EXPECT_FALSE(DBGrid1.isEditing());
    EXPECT_EQ(currentColumn(), 0);
    EXPECT_EQ(rows("select [Update] from ORBSeqHead"), "3\n");
}

TEST_F(RefusedEditTest, AnArrowDoesNotLeaveARefusedText)
{
    press(Qt::Key_Up);
    EXPECT_TRUE(DBGrid1.isEditing());
    EXPECT_EQ(editor()->toolTip(), reason);
}

TEST_F(DBGridEditTest, TheMenuOfTheEditorDoesNotEndTheEdit)
{
    show(2);
    click(1, 3);
    press(Qt::Key_F2);
    type("x");
    ASSERT_TRUE(editor()->hasFocus());
    const QPoint at = editor()->rect().center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, editor()->mapToGlobal(at));
    QCoreApplication::sendEvent(editor(), &event);
    settle();
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);

    EXPECT_TRUE(DBGrid1.isEditing());
    EXPECT_EQ(rows("select count(*) from DataMeasure where Comment is not null"), "0\n");

    menu->close();
    settle();
    press(Qt::Key_Escape);
    EXPECT_EQ(rows("select count(*) from DataMeasure where Comment is not null"), "0\n");
}

TEST_F(DBGridEditTest, TheTabKeyLeavesTheGrid)
{
    show(2);
    click(1, 2);
    QPushButton elsewhere(&form);
    elsewhere.show();
    QWidget::setTabOrder(&DBGrid1, &elsewhere);
    press(Qt::Key_Tab);
    EXPECT_EQ(currentColumn(), 2);
    EXPECT_FALSE(DBGrid1.hasFocus());
}

TEST_F(DBGridEditTest, AGridThatIsDestroyedWritesNothing)
{
    auto grid = std::make_unique<DBGrid>(&form);
    grid->setColumns({{"Comment", "", 1400, true}});
    grid->setDataSource(DataLog);
    grid->show();
    show(1);
    grid->setFocus();
    grid->edit(grid->model()->index(0, 0));
    ASSERT_TRUE(grid->isEditing());
    grid->findChild<QLineEdit*>()->setText("x");
    grid.reset();
    settle();
    EXPECT_EQ(rows("select count(*) from DataMeasure where Comment is not null"), "0\n");
}

TEST_F(DBGridEditTest, GoingElsewhereWritesTheEditedCell)
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

TEST_F(DBGridEditTest, AnOpenEditorHoldsTheViewAndItsTextThroughARefresh)
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
    EXPECT_EQ(editor()->text(), "x");
    EXPECT_EQ(firstVisibleRow(), 0);
    press(Qt::Key_Return);
    EXPECT_TRUE(isInView(1000));
    EXPECT_EQ(rows("select SeqNo from DataMeasure where Comment='x'"), "1\n");
}

TEST_F(DBGridEditTest, AnEditEndsWhenItsCellHasAnotherValue)
{
    show(3);
    click(1, 2);
    press(Qt::Key_F2);
    database.execute("delete * from DataMeasure");
    show(0);
    EXPECT_FALSE(DBGrid1.isEditing());
    EXPECT_THAT(processExit.reports, IsEmpty());
}

class NumberColumnTest : public DBGridTest {
protected:
    NumberColumnTest()
    {
        database.execute("insert into ORBSeqHead values('Repeat Count',3,3)");
        DataLog.setRecordSource("ORBSeqHead");
        DBGrid1.setColumns({{"Item", ""}, {"Update", "Set", 1200, true, true}});
        show(0);
        click(0, 1);
        press(Qt::Key_F2);
    }

    /// What the grid says to a text, and the value that the table then has.
    QString answerTo(const QString& text)
    {
        editor()->setText(text);
        press(Qt::Key_Return);
        const QString answer = DBGrid1.isEditing() ? editor()->toolTip() : QStringLiteral("taken");
        if (!DBGrid1.isEditing())
            press(Qt::Key_F2);
        return answer + QLatin1Char('|') + QString::fromStdString(rows("select [Update] from ORBSeqHead")).trimmed();
    }
};

TEST_F(NumberColumnTest, ATextThatIsNoNumberIsRefusedWithASentence)
{
    EXPECT_EQ(answerTo("abc"), "\"abc\" is not a number. Numbers are entered like 12.5 or -0.02.|3");
    EXPECT_EQ(answerTo("1,5"), "\"1,5\" is not a number. Numbers are entered like 12.5 or -0.02.|3");
    EXPECT_EQ(answerTo("5 A"), "\"5 A\" is not a number. Numbers are entered like 12.5 or -0.02.|3");
    EXPECT_EQ(answerTo(""), "\"\" is not a number. Numbers are entered like 12.5 or -0.02.|3");
}

TEST_F(NumberColumnTest, ANumberIsTaken)
{
    EXPECT_EQ(answerTo("12.5"), "taken|12.5");
    EXPECT_EQ(answerTo("-0.02"), "taken|-0.02");
    EXPECT_EQ(answerTo(" 7 "), "taken|7");
}

TEST_F(NumberColumnTest, ANumberThatTheTableRefusesIsRefusedWithTheTablesSentence)
{
    EXPECT_EQ(answerTo("1e300"), "Update must be a number|3");
    EXPECT_EQ(answerTo("1e999"), "Update must be a number|3");
}

class EditedCellTest : public DBGridTest {
protected:
    EditedCellTest()
    {
        show(2);
        click(1, 2);
        press(Qt::Key_F2);
        type("9.9");
        press(Qt::Key_Return);
    }

    QVariant data(int row, int column, int role) { return DBGrid1.model()->index(row, column).data(role); }
    QString toolTip(int row, int column) { return data(row, column, Qt::ToolTipRole).toString(); }
    bool isBold(int row, int column) { return data(row, column, Qt::FontRole).value<QFont>().bold(); }
    QImage picture(int row, int column)
    {
        click(0, 0); // the row below is not the selected one
        return DBGrid1.viewport()->grab(cell(row, column)).toImage();
    }
};

TEST_F(EditedCellTest, ItIsBoldAndItsToolTipHasTheTextBeforeTheEdit)
{
    EXPECT_TRUE(isBold(1, 2));
    EXPECT_EQ(toolTip(1, 2), "Edited. It was 1.50.");
    EXPECT_EQ(data(1, 2, Qt::AccessibleDescriptionRole), "Edited. It was 1.50.");
    EXPECT_FALSE(isBold(0, 2));
    EXPECT_FALSE(isBold(1, 1));
    EXPECT_EQ(toolTip(0, 2), "");
}

TEST_F(EditedCellTest, ItHasAMarkInItsUpperLeftCorner)
{
    const QImage edited = picture(1, 2);
    const QColor mark = DBGrid1.palette().color(QPalette::Highlight);
    EXPECT_EQ(edited.pixelColor(1, 1), mark);
    EXPECT_EQ(edited.pixelColor(3, 1), mark);
    EXPECT_EQ(edited.pixelColor(1, 3), mark);
    EXPECT_NE(edited.pixelColor(7, 7), mark);
    EXPECT_NE(picture(1, 3).pixelColor(1, 1), mark);
}

TEST_F(EditedCellTest, ItsMarkCanBeSeenInTheSelectedRow)
{
    picture(1, 2);
    click(1, 0);
    const QImage selected = DBGrid1.viewport()->grab(cell(1, 2)).toImage();
    EXPECT_EQ(selected.pixelColor(1, 1), DBGrid1.palette().color(QPalette::HighlightedText));
}

TEST_F(EditedCellTest, ACellThatWasEmptySaysSo)
{
    click(0, 3);
    press(Qt::Key_F2);
    type("note");
    press(Qt::Key_Return);
    EXPECT_EQ(toolTip(0, 3), "Edited. It was empty.");
}

TEST_F(EditedCellTest, ItLooksEditedUntilARefreshFindsTheTableEmpty)
{
    addSamples(1, 2);
    show(0);
    EXPECT_TRUE(isBold(1, 2));

    database.execute("delete * from DataMeasure");
    show(0);
    show(3);
    EXPECT_FALSE(isBold(1, 2));
}

} // namespace
