// SPDX-License-Identifier: GPL-3.0-or-later
#include "db_grid_fixture.h"

#include <QPushButton>

using namespace orb;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using DBGridEditTest = DBGridTest;

TEST_F(DBGridEditTest, EnterWritesAnEditedCellToTheTableAtOnce)
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

TEST_F(DBGridEditTest, ATypedCharacterBeginsToEditInThePlaceOfTheText)
{
    show(2);
    click(1, 3);
    type("note");
    press(Qt::Key_Down);
    EXPECT_EQ(rows("select SeqNo,Comment from DataMeasure"), "0|-\n1|note\n");
}

TEST_F(DBGridEditTest, AnArrowWritesAndGoesToTheNextRow)
{
    show(3);
    click(0, 3);
    press(Qt::Key_F2);
    type("a");
    press(Qt::Key_Down);
    EXPECT_EQ(currentRow(), 1);
    EXPECT_EQ(rows("select Comment from DataMeasure where SeqNo=0"), "a\n");
}

TEST_F(DBGridEditTest, EscapeGivesAnEditUp)
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
    DBGrid1.setEditable(0, true);
    press(Qt::Key_F2);
    EXPECT_TRUE(DBGrid1.isEditing());
}

TEST_F(DBGridEditTest, AnUnchangedTextIsNotWritten)
{
    show(2);
    int told = 0;
    DBGrid1.onEdited = [&] { ++told; };
    const std::string changes = rows("select total_changes()");
    click(1, 3);
    press(Qt::Key_F2);
    press(Qt::Key_Return);
    EXPECT_FALSE(DBGrid1.isEditing());
    EXPECT_EQ(told, 0);
    EXPECT_EQ(rows("select total_changes()"), changes);
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
    EXPECT_THAT(processExit.reports, IsEmpty());

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
    EXPECT_EQ(DBGrid1.firstVisibleRow(), 0);
    press(Qt::Key_Return);
    EXPECT_EQ(rows("select SeqNo from DataMeasure where Comment='x'"), "1\n");
}

TEST_F(DBGridEditTest, AnEditEndsWhenItsCellHasAnotherValue)
{
    show(3);
    click(1, 2);
    press(Qt::Key_F2);
    database->execute("delete * from DataMeasure");
    show(0);
    EXPECT_FALSE(DBGrid1.isEditing());
    EXPECT_THAT(processExit.reports, IsEmpty());
}

} // namespace
