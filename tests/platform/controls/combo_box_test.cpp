// SPDX-License-Identifier: GPL-3.0-or-later
#include "control_fixture.h"
#include "press.h"

#include <QAccessible>
#include <QLineEdit>

using namespace orb;
using testing::ElementsAre;

namespace {

class ComboBoxTest : public FormTest {};

TEST_F(ComboBoxTest, ACombosFirstItemDoesNotSelectItself)
{
    for (const auto kind : {ComboBox::Kind::DropDown, ComboBox::Kind::DropDownList}) {
        ComboBox combo(kind);
        combo.addItem("a");
        EXPECT_EQ(combo.listIndex(), -1);
        EXPECT_EQ(combo.text(), "");
    }
}

TEST_F(ComboBoxTest, ACombosIndexOutOfRangeIsRefused)
{
    ComboBox combo;
    combo.addItem("a");
    EXPECT_EQ(failureOf([&] { combo.setListIndex(1); }), failure::InvalidPropertyValue);
    EXPECT_EQ(failureOf([&] { combo.list(1); }), failure::InvalidPropertyValue);
}

TEST_F(ComboBoxTest, TypedTextThatEqualsAnItemSelectsItAndAnyOtherLeavesNoSelection)
{
    ComboBox combo;
    put(combo);
    combo.addItem("OFF");
    combo.addItem("P01");

    combo.lineEdit()->selectAll();
    type(*combo.lineEdit(), "P01");
    EXPECT_EQ(combo.listIndex(), 1);
    combo.lineEdit()->selectAll();
    type(*combo.lineEdit(), "p1");
    EXPECT_EQ(combo.listIndex(), -1);
    EXPECT_EQ(combo.text(), "p1");
}

TEST_F(ComboBoxTest, TypedTextIsNotCompletedToAnItem)
{
    ComboBox combo;
    put(combo);
    combo.addItem("P01");
    form.show();
    form.activateWindow();
    QCoreApplication::processEvents();
    combo.setFocus(); // Qt completes only what is typed into a box with the focus

    type(*combo.lineEdit(), "P");

    EXPECT_EQ(combo.text(), "P");
}

TEST_F(ComboBoxTest, AssigningAComboItsTextSelectsTheItemAndRunsTheHandler)
{
    int clicks = 0;
    ComboBox combo;
    combo.addItem("OFF");
    combo.addItem("P01");
    combo.onClick = [&] { ++clicks; };

    combo.setText("P01");
    combo.setText("P01");
    combo.setText("other");

    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(combo.listIndex(), -1);
}

TEST_F(ComboBoxTest, ADropDownListRefusesATextThatIsNoItem)
{
    ComboBox combo(ComboBox::Kind::DropDownList);
    combo.addItem("5m");
    EXPECT_EQ(failureOf([&] { combo.setText("2Day"); }), failure::InvalidPropertyValue);
}

TEST_F(ComboBoxTest, ASelectionOfTheOperatorRunsTheHandlerOnce)
{
    int clicks = 0;
    ComboBox combo(ComboBox::Kind::DropDownList);
    put(combo).addItems({"5m", "1h"});
    combo.onClick = [&] { ++clicks; };

    pick(combo, "1h");

    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(combo.listIndex(), 1);
    EXPECT_EQ(combo.list(1), "1h");
    EXPECT_EQ(combo.listCount(), 2);
}

TEST_F(ComboBoxTest, AnIndexAssignedRunsTheHandlerAndShowsItsItemInBothKinds)
{
    for (const auto kind : {ComboBox::Kind::DropDown, ComboBox::Kind::DropDownList}) {
        QStringList shown;
        ComboBox combo(kind);
        combo.addItems({"a", "b"});
        combo.onClick = [&] { shown << combo.text(); };

        combo.setListIndex(1);
        combo.setListIndex(1);
        combo.setListIndex(0);
        combo.setListIndex(-1);

        EXPECT_THAT(shown, ElementsAre("b", "a", ""));
    }
}

TEST_F(ComboBoxTest, RemovingTheSelectedItemLeavesNoSelectionAndRemovingAnotherKeepsIt)
{
    for (const auto kind : {ComboBox::Kind::DropDown, ComboBox::Kind::DropDownList}) {
        ComboBox combo(kind);
        combo.addItems({"a", "b", "c"});
        combo.setListIndex(1);

        combo.removeItem(0);
        EXPECT_EQ(combo.text(), "b");
        EXPECT_EQ(combo.listIndex(), 0);
        combo.removeItem(0);
        EXPECT_EQ(combo.listIndex(), -1);
        EXPECT_EQ(combo.text(), "");
        EXPECT_EQ(failureOf([&] { combo.removeItem(1); }), failure::InvalidPropertyValue);
    }
}

TEST_F(ComboBoxTest, TypedTextSurvivesANewItemAndIsNotCompleted)
{
    ComboBox combo;
    put(combo).addItem("P01");
    type(*combo.lineEdit(), "P0");
    EXPECT_EQ(combo.text(), "P0");

    combo.addItem("P02");
    EXPECT_EQ(combo.text(), "P0");
    EXPECT_EQ(combo.listIndex(), -1);
}

TEST_F(ComboBoxTest, TypingRunsTheChangeHandlerAndAnAssignmentDoesNot)
{
    QStringList typed;
    ComboBox combo;
    put(combo).addItem("P01");
    combo.onChange = [&] { typed << combo.text(); };

    combo.setText("other");
    combo.setListIndex(0);
    combo.lineEdit()->selectAll();
    type(*combo.lineEdit(), "ab");

    EXPECT_THAT(typed, ElementsAre("a", "ab"));
}

TEST_F(ComboBoxTest, ClearingEmptiesListAndTextAndRunsNoHandler)
{
    int clicks = 0;
    ComboBox combo;
    combo.addItem("a");
    combo.setListIndex(0);
    combo.onClick = [&] { ++clicks; };

    combo.clear();

    EXPECT_EQ(combo.listCount(), 0);
    EXPECT_EQ(combo.text(), "");
    EXPECT_EQ(clicks, 0);
}

TEST_F(ComboBoxTest, AnAssistiveToolIsGivenTheNameBesideTheSelectedText)
{
    ComboBox combo(ComboBox::Kind::DropDownList);
    put(combo);
    combo.addItems({"CC", "CV"});
    combo.setText("CV");
    combo.setAccessibleName("Mode, channel 2");
    const QAccessibleInterface* tool = QAccessible::queryAccessibleInterface(&combo);
    EXPECT_EQ(tool->text(QAccessible::Value), "CV");
    EXPECT_EQ(tool->text(QAccessible::Description), "Mode, channel 2");
    EXPECT_EQ(combo.accessibleName(), "Mode, channel 2");
}

} // namespace
