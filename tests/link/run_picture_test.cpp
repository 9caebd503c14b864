// SPDX-License-Identifier: GPL-3.0-or-later
#include "run_picture.h"

#include "page_test.h"

using namespace orb;
using testing::ElementsAre;

namespace {

class RunPictureTest : public PageTest {};

TEST_F(RunPictureTest, AStartButtonFollowsTheLinkWithOneReadForItsPictureAndOneForItsState)
{
    PictureButton start;
    start.setEnabled(false);
    journal.watch(start, "start");
    instrument.connectedReads = {true, false, false, true};
    followLink(start, instrument, paths);
    followLink(start, instrument, paths);
    EXPECT_THAT(journal.lines(),
                ElementsAre("read IsConnected True", "picture start APP\\ICON\\B1RUNSTART.JPG",
                            "read IsConnected False", "read IsConnected False",
                            "picture start APP\\ICON\\B1RUNSTOP.jpg", "read IsConnected True", "enable start"));
}

} // namespace
