// SPDX-License-Identifier: GPL-3.0-or-later
#include "control_fixture.h"
#include "press.h"

using namespace orb;
using testing::ElementsAre;

namespace {

TEST_F(FormTest, AFormRunsItsHandlersWhenItIsActivatedAndClosedByItsFrame)
{
    std::vector<QString> events;
    form.onActivate = [&] { events.push_back("active"); };
    form.onUnload = [&] { events.push_back("unload"); };

    QEvent activate(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&form, &activate);
    form.close();

    EXPECT_THAT(events, ElementsAre("active", "unload"));
}

TEST_F(FormTest, AClosedFormIsHiddenAndAnotherSizeRunsItsHandler)
{
    int resizes = 0;
    form.onResize = [&] { ++resizes; };
    form.show();
    resizes = 0;

    form.setWidthTwips(9525);
    form.setHeightTwips(8000);
    EXPECT_EQ(resizes, 2);
    EXPECT_EQ(form.size(), QSize(635, 533));

    EXPECT_TRUE(form.close());
    EXPECT_FALSE(form.visible());
}

TEST_F(FormTest, TheCaptionIsTheWindowsTitle)
{
    form.setCaption("ZN ORB Device");
    EXPECT_EQ(form.windowTitle(), "ZN ORB Device");
    EXPECT_EQ(form.caption(), "ZN ORB Device");
}

} // namespace
