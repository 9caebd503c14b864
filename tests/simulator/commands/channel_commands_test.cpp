// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_fixture.h"

namespace orb {
namespace {

class ChannelCommandsTest : public InstrumentFixture {};

TEST_F(ChannelCommandsTest, TheSelectedChannelCanBeShownOnTheScreen)
{
    send(":CHAN 2");
    EXPECT_EQ(query(":CHAN:DISP?"), "1");
    send(":CHAN:DISP");
    EXPECT_EQ(query(":CHAN:DISP?"), "2");
}

TEST_F(ChannelCommandsTest, TheModulesAndTheirRatingsAreAnswered)
{
    EXPECT_EQ(query("*OPT?"), "K11,K14,K12A");
    EXPECT_EQ(query(":CHAN2:RAT?"), "80.0000,8.0000,60.0000");
}

} // namespace
} // namespace orb
