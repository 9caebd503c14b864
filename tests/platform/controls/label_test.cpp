// SPDX-License-Identifier: GPL-3.0-or-later
#include "control_fixture.h"
#include "label.h"

using namespace orb;

namespace {

class LabelTest : public FormTest {};

TEST_F(LabelTest, AProgressBarRefusesAValueOutsideOfItsRange)
{
    ProgressBar bar(12);
    bar.setValue(12);
    EXPECT_EQ(failureOf([&] { bar.setValue(13); }), failure::InvalidPropertyValue);
    EXPECT_EQ(bar.value(), 12);
}

TEST_F(LabelTest, ACaptionIsShownAsPlainText)
{
    Label label("<b>Command:</b>");
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
    EXPECT_EQ(label.caption(), "<b>Command:</b>");
    label.setCaption("Format:");
    EXPECT_EQ(label.text(), "Format:");
}

TEST_F(LabelTest, AMouseMoveOverAFrameRunsItsHandler)
{
    int moves = 0;
    Frame frame("Display");
    put(frame).onMouseMove = [&] { ++moves; };

    mouse(frame, QEvent::MouseMove, QPointF(3, 3), Qt::NoButton);

    EXPECT_EQ(moves, 1);
    EXPECT_EQ(frame.caption(), "Display");
}

} // namespace
