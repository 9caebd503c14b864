// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_fixture.h"

namespace orb {
namespace {

class SetValueCommandsTest : public InstrumentFixture {};

TEST_F(SetValueCommandsTest, AChannelHasTwoLevels)
{
    send(":CURR:STAT:L1 1;L2 3;:LOAD ON");
    EXPECT_EQ(query(":LEV?;:MEAS:CURR?"), "1;1.0000");
    send(":LEV 2");
    EXPECT_EQ(query(":LEV?;:MEAS:CURR?"), "2;3.0000");
}

TEST_F(SetValueCommandsTest, EachRangeKeepsItsSlewRates)
{
    EXPECT_EQ(query(":CURR:RISE?;FALL?"), "0.80000;0.80000");
    send(":CURR:RISE 0.1;FALL 0.2 A/us");
    send(":MODE CCL;:CURR:RISE MIN");
    EXPECT_EQ(query(":CURR:RISE?;FALL?"), "0.00032;0.08000");
    send(":MODE CCH");
    EXPECT_EQ(query(":CURR:RISE?;FALL?;RISE? MAX"), "0.09920;0.20160;0.80000") << "in steps of 0.0032";
    EXPECT_EQ(errors(), noError);
}

TEST_F(SetValueCommandsTest, AUnitMayHaveAMultiplier)
{
    const std::pair<const char*, const char*> written[] = {
        {":CURR 250mA", "0.2500"},     {":CURR 0.25 A", "0.2500"},        {":CURR 0.00025KA", "0.2500"},
        {":CURR 250000 uA", "0.2500"}, {":CURR 0.00000025MAA", "0.2500"}, {":CURR 2.5E-1", "0.2500"},
        {":CURR #H2", "2.0000"},
    };
    for (const auto& [message, answer] : written) {
        send(":CURR 0");
        send(message);
        EXPECT_EQ(query(":CURR?"), answer) << message;
    }
    send(":RES 0.0001MOHM"); // M is mega before ohm, and nowhere else
    EXPECT_EQ(query(":RES?"), "100.0000");
    send(":RES 2KOHM");
    EXPECT_EQ(query(":RES?"), "2000.0000");
    send(":VOLT 5V");
    EXPECT_EQ(query(":VOLT?"), "5.0000");
    EXPECT_EQ(errors(), noError);
}

TEST_F(SetValueCommandsTest, ASetValueIsRoundedToTheNearestStepOfTheRange)
{
    send(":CURR 1.2374");
    EXPECT_EQ(query(":CURR?"), "1.2350");
    send(":MODE CCL;:CURR 1.2374");
    EXPECT_EQ(query(":CURR?"), "1.2375");
}

TEST_F(SetValueCommandsTest, ASetValueOutsideOfTheRangeIsAnError)
{
    send(":CURR 3");
    for (const char* message : {":CURR 20.1", ":CURR -1", ":RES 1.9", ":VOLT 80.5", ":MODE CCL;:CURR 2.1"}) {
        send(message);
        EXPECT_EQ(errors(), "-222,\"Data out of range\"") << message;
    }
    EXPECT_EQ(query(":MODE CCH;:CURR?"), "3.0000");
}

} // namespace
} // namespace orb
