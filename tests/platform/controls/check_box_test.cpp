// SPDX-License-Identifier: GPL-3.0-or-later
#include "control_fixture.h"
#include "press.h"

using namespace orb;
using testing::ElementsAre;

namespace {

class CheckBoxTest : public FormTest {};

TEST_F(CheckBoxTest, ACheckBoxAssignedInCodeRunsItsHandlerInsideTheAssignment)
{
    std::vector<QString> order;
    CheckBox box;
    put(box).onClick = [&] { order.push_back(QString("handler sees %1").arg(box.value())); };

    order.push_back("before");
    box.setValue(CheckBox::Checked);
    order.push_back("after");
    box.setValue(CheckBox::Checked);

    EXPECT_THAT(order, ElementsAre("before", "handler sees 1", "after"));
}

TEST_F(CheckBoxTest, ACheckBoxRefusesSeven)
{
    CheckBox box;
    EXPECT_EQ(failureOf([&] { box.setValue(7); }), failure::InvalidPropertyValue);
    EXPECT_EQ(failureOf([&] { box.setValue(-1); }), failure::InvalidPropertyValue);
    EXPECT_EQ(box.value(), CheckBox::Unchecked);
}

TEST_F(CheckBoxTest, AnOptionDeselectsItsSiblings)
{
    std::vector<QString> ran;
    OptionButton zoom("Zoom"), pan("Pan");
    put(zoom).onClick = [&] { ran.push_back("zoom"); };
    put(pan).onClick = [&] { ran.push_back("pan"); };

    zoom.setValue(true);
    press(pan);
    EXPECT_FALSE(zoom.value());
    zoom.setValue(true);
    EXPECT_FALSE(pan.value());
    zoom.setValue(false);

    EXPECT_FALSE(zoom.value());
    EXPECT_THAT(ran, ElementsAre("zoom", "pan", "zoom"));
}

TEST_F(CheckBoxTest, AGrayedBoxHasTwoStatesForTheOperator)
{
    CheckBox box;
    put(box).setValue(CheckBox::Grayed);
    EXPECT_EQ(box.value(), CheckBox::Grayed);

    press(box);
    EXPECT_EQ(box.value(), CheckBox::Unchecked);
    press(box);
    EXPECT_EQ(box.value(), CheckBox::Checked);
    press(box);
    EXPECT_EQ(box.value(), CheckBox::Unchecked);
}

} // namespace
