// SPDX-License-Identifier: GPL-3.0-or-later
#include "control_fixture.h"
#include "press.h"

#include <QLineEdit>

using namespace orb;

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

} // namespace
