// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_fixture.h"

namespace orb {
namespace {

class MemoryCommandsTest : public InstrumentFixture {};

TEST_F(MemoryCommandsTest, AMemoryKeepsProtectionAndLimits)
{
    send(":LOAD2:PROT:POW 7;:CONF2:VOLT:ON 3;:CONF2:VOLT:LATC ON;:LIM2:VOLT:LOW 4;:LIM2 ON;*SAV 1;*RST");
    EXPECT_EQ(query(":LOAD2:PROT:POW?;:CONF2:VOLT:ON?;LATC?;:LIM2:VOLT:LOW?;:LIM2?"), "63.0000;0.0000;0;0.0000;0");
    send("*RCL 1");
    EXPECT_EQ(query(":LOAD2:PROT:POW?;:CONF2:VOLT:ON?;LATC?;:LIM2:VOLT:LOW?;:LIM2?"), "7.0000;3.0000;1;4.0000;1");
}

TEST_F(MemoryCommandsTest, MemoriesAreCountedQueriedAndEmptied)
{
    send("*SAV 1;*SAV 2;*SAV 3;*SAV 4;*SAV 5");
    EXPECT_EQ(query(":MEM:COUN?;USED?;STAT? 5;STAT? 6"), "120;5;1;0");
    EXPECT_THAT(query(":MEM:STAT?"), testing::StartsWith("1,1,1,1,1,0,"));
    send(":CURR 1.5;:MEM:SAVE 6;:CURR 2;:MEM:REC 6");
    EXPECT_EQ(query(":CURR?;:MEM:USED?"), "1.5000;6");
    send(":MEM:CLE 6;REC 6");
    EXPECT_EQ(query(":CURR?;:MEM:USED?"), "0.0000;5");
    send(":MEM:CLE:ALL");
    EXPECT_EQ(query(":MEM:USED?"), "0");
    send(":MEM:SAVE 121;:MEM:CLE 0");
    EXPECT_EQ(errors(), "-222,\"Data out of range\",-222,\"Data out of range\"");
}

TEST_F(MemoryCommandsTest, MemoriesKeepTheSettingsOfAllChannelsButNoInputThatIsOn)
{
    send(":CURR1 1.5;:MODE2 CRL;:RES2 33;:LOAD:ALL ON;*SAV 120");
    send("*RST;*RCL 120");
    EXPECT_EQ(query(":CURR1?;:MODE2?;:RES2?;:LOAD:ALL?"), "1.5000;CRL;33.0000;0,0,0");
}

TEST_F(MemoryCommandsTest, RecallingSwitchesAllInputsOff)
{
    send("*SAV 1;:LOAD:ALL ON;*RCL 1");
    EXPECT_EQ(query(":LOAD:ALL?"), "0,0,0");
}

TEST_F(MemoryCommandsTest, AMemoryThatWasNeverWrittenHoldsTheSettingsAfterAReset)
{
    send(":CURR1 1.5;:MODE2 CV;*RCL 5");
    EXPECT_EQ(query(":CURR1?;:MODE2?"), "0.0000;CCH");
    EXPECT_EQ(errors(), noError);
}

TEST_F(MemoryCommandsTest, AResetKeepsTheMemories)
{
    send(":CURR 1.5;*SAV 3;*RST;*CLS;*RCL 3");
    EXPECT_EQ(query(":CURR?"), "1.5000");
}

} // namespace
} // namespace orb
