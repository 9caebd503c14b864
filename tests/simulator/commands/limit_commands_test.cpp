// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_fixture.h"

namespace orb {
namespace {

/// Three channels with sources of 12 V and 0.5 ohm: a K11, a K14 and a K12A.
class LimitCommandsTest : public InstrumentFixture {};

TEST_F(LimitCommandsTest, ReadingsAreJudgedByTheirLimits)
{
    EXPECT_EQ(query(":LIM:ALL:RES?;:LIM:RES?"), "OFF,OFF,OFF;OFF");
    send(":LIM1 ON;:LIM2 ON;:LIM1:VOLT:LOW 10.9;HIGH 11.1;:LIM1:CURR:LOW 1.9;HIGH 2.1;:LIM1:POW:LOW 21;HIGH 23");
    EXPECT_EQ(query(":LIM:ALL:RES?;:LIM:VOLT:RES?;:LIM:CURR:RES?;:LIM:POW:RES?"), "FAIL,PASS,OFF;HIGH;LOW;LOW");
    send(":CURR 2;:LOAD ON");
    EXPECT_EQ(query(":LIM:ALL:RES?;:LIM:VOLT:RES?;:LIM:CURR:RES?;:LIM:POW:RES?"), "PASS,PASS,OFF;PASS;PASS;PASS");
    send(":CURR 2.5");
    EXPECT_EQ(query(":LIM:RES?;:LIM:VOLT:RES?;:LIM:CURR:RES?;:LIM:POW:RES?"), "FAIL;LOW;HIGH;HIGH");
    send(":LIM:CLE");
    EXPECT_EQ(query(":LIM:RES?;:LIM?;:LIM:CURR:HIGH?;LOW?;HIGH? MAX"), "OFF;0;20.0000;0.0000;20.0000");
    EXPECT_EQ(errors(), noError);
}

} // namespace
} // namespace orb
