// SPDX-License-Identifier: GPL-3.0-or-later
#include "control_fixture.h"
#include "label.h"
#include "press.h"

using namespace orb;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class ControlTest : public FormTest {};

TEST_F(ControlTest, AFailureInAHandlerLeavesTheAssignmentThatRanIt)
{
    CheckBox box;
    put(box).onClick = [] { throw RuntimeFailure(failure::Overflow); };

    EXPECT_EQ(failureOf([&] { box.setValue(1); }), failure::Overflow);
    EXPECT_EQ(box.value(), CheckBox::Checked);
    EXPECT_THAT(processExit.reports, IsEmpty());
}

TEST_F(ControlTest, AFailureInAHandlerThatUserInputRanEndsTheRun)
{
    CheckBox box;
    put(box).onClick = [] { throw RuntimeFailure(failure::Overflow); };

    press(box);

    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '6':\n\nOverflow"));
}

TEST_F(ControlTest, ThePressOfADisabledOrHiddenControlIsIgnored)
{
    int clicks = 0;
    Frame frame;
    PictureButton button;
    put(frame);
    button.setParent(&frame);
    button.onClick = [&] { ++clicks; };

    press(button);
    button.setEnabled(false);
    press(button);
    button.setEnabled(true);
    button.setVisible(false);
    press(button);
    button.setVisible(true);
    frame.setVisible(false);
    press(button);
    frame.setVisible(true);
    frame.setEnabled(false);
    press(button);

    EXPECT_EQ(clicks, 1);
}

TEST_F(ControlTest, VisibleAndEnabledReadBackTheControlsOwnSettingWhateverItsContainersIs)
{
    Frame frame;
    PictureButton button;
    put(frame);
    button.setParent(&frame);
    frame.setVisible(false);
    frame.setEnabled(false);

    EXPECT_TRUE(button.visible());
    EXPECT_TRUE(button.enabled());
    button.setEnabled(false);
    button.setVisible(false);
    frame.setVisible(true);
    frame.setEnabled(true);
    EXPECT_FALSE(button.visible());
    EXPECT_FALSE(button.enabled());
}

TEST_F(ControlTest, PositionsAndSizesAreTwips)
{
    PictureButton button;
    put(button).moveTwips(120, 960);
    button.resizeTwips(1005, 975);

    EXPECT_EQ(button.geometry(), QRect(8, 64, 67, 65));
    EXPECT_EQ(button.topTwips() + button.heightTwips(), 1935);
}

TEST_F(ControlTest, AHiddenOrDisabledControlStaysSoInAnotherContainer)
{
    Frame hidden, shown;
    PictureButton hiddenButton, shownButton;
    put(hidden).setVisible(false);
    put(shown);
    form.show();
    hiddenButton.setParent(&shown);
    hiddenButton.setVisible(false);
    hiddenButton.setEnabled(false);
    shownButton.setParent(&shown);
    shownButton.setVisible(true);

    hiddenButton.setParent(&hidden);
    shownButton.setParent(&hidden);

    EXPECT_FALSE(hiddenButton.visible());
    EXPECT_FALSE(hiddenButton.enabled());
    EXPECT_TRUE(shownButton.visible());
    EXPECT_TRUE(shownButton.enabled());
}

TEST_F(ControlTest, ASettingMadeThroughTheQtWidgetIsTheControlsOwn)
{
    PictureButton button;
    QWidget& widget = put(button);

    widget.setEnabled(false);
    widget.hide();
    EXPECT_FALSE(button.enabled());
    EXPECT_FALSE(button.visible());
    widget.setEnabled(true);
    widget.show();
    EXPECT_TRUE(button.enabled());
    EXPECT_TRUE(button.visible());
}

TEST_F(ControlTest, AControlArrayRefusesAnIndexThatNoControlHas)
{
    std::array<PictureButton, 3> buttons;

    EXPECT_EQ(&element(buttons, 0), &buttons[0]);
    EXPECT_EQ(&element(buttons, 2), &buttons[2]);
    EXPECT_EQ(failureOf([&] { element(buttons, 3); }), 340);
    EXPECT_EQ(failureOf([&] { element(buttons, -1); }), 340);
}

TEST_F(ControlTest, ATagIsReadBack)
{
    PictureButton button;
    EXPECT_EQ(button.tag(), "");
    button.setTag("A");
    EXPECT_EQ(button.tag(), "A");
}

} // namespace
