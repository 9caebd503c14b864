// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_fixture.h"

namespace orb {
namespace {

class ModeCommandsTest : public InstrumentFixture {};

TEST_F(ModeCommandsTest, EveryModeCanBeSet)
{
    for (const char* mode : {"CCL", "CCH", "CRL", "CRH", "CV"}) {
        send(std::string(":MODE ") + mode);
        EXPECT_EQ(query(":MODE?"), mode);
    }
    send(":MODE CRL;MODE CV;:MODE CR");
    EXPECT_EQ(query(":MODE?"), "CRL") << "CR leaves the range as it was";
    send(":MODE CC");
    EXPECT_EQ(query(":MODE?"), "CCH");
    send(":MODE CX");
    EXPECT_EQ(errors(), "-224,\"Illegal parameter value\"");
}

TEST_F(ModeCommandsTest, ARangeThatTheModuleDoesNotHaveIsAnError)
{
    send(":CHAN 3;:MODE CCL");
    send(":MODE CRL");
    EXPECT_EQ(errors(), "-241,\"Hardware missing\",-241,\"Hardware missing\"");
    EXPECT_EQ(query(":MODE?"), "CCH");
}

TEST_F(ModeCommandsTest, AChangeOfTheModeSwitchesTheInputOff)
{
    send(":LOAD ON;:MODE CV");
    EXPECT_EQ(query(":LOAD?"), "0");
}

TEST_F(ModeCommandsTest, TheVoltageRangeIsReadInEveryForm)
{
    for (const auto& [word, range] : {std::pair{"L", "LOW"}, {"H", "HIGH"}, {"low", "LOW"}, {"High", "HIGH"}}) {
        send(std::string(":VOLT:RANG ") + word);
        EXPECT_EQ(query(":VOLT:RANG?"), range);
    }
    send(":VOLT:RANG L");
    EXPECT_EQ(query(":VOLT? MAX"), "16.0000");
}

} // namespace
} // namespace orb
