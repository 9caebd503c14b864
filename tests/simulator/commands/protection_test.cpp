// SPDX-License-Identifier: GPL-3.0-or-later
#include "bench.h"

namespace orb {
namespace {

/// Three channels on 12 V behind 0.5 ohm: a K11, a K14 and a K12A.
class ProtectionTest : public BenchTest {};

TEST_F(ProtectionTest, ReachesAsFarAsTheModuleAtFirst)
{
    EXPECT_EQ(ask(":LOAD:PROT:VOLT?;CURR?;POW?;VOLT? MAX;VOLT? MIN"), "84.0000;21.0000;105.0000;84.0000;0.0000");
    tell(":LOAD:PROT:VOLT 84.1;:LOAD:PROT:POW -1");
    EXPECT_EQ(errors(), "-222,\"Data out of range\",-222,\"Data out of range\"");
}

TEST_F(ProtectionTest, TripsBeyondWhatWasSet)
{
    tell(":LOAD:PROT:CURR 2.5;:CURR 2.5;:LOAD ON");
    EXPECT_EQ(ask(":LOAD?;:LOAD:PROT?"), "1;NONE");
    tell(":CURR 2.505");
    EXPECT_EQ(ask(":LOAD?;:LOAD:PROT?;:STAT:QUES:COND?"), "0;OC;2");
    tell(":LOAD:PROT:CURR MAX;:LOAD:PROT:POW 20;:LOAD ON");
    EXPECT_EQ(ask(":LOAD?;:LOAD:PROT?"), "0;OP") << "26.9 W";
    tell(":LOAD:PROT:POW MAX;:LOAD:PROT:VOLT 10;:LOAD ON");
    EXPECT_EQ(ask(":LOAD?;:LOAD:PROT?"), "0;OV");
    tell("*RST;:LOAD ON");
    EXPECT_EQ(ask(":LOAD?;:LOAD:PROT?"), "1;NONE");
}

TEST_F(ProtectionTest, TripsAtOnceWhenItIsSetBelowWhatFlows)
{
    tell(":CURR 2;:LOAD ON;:LOAD:PROT:CURR 1");
    EXPECT_EQ(ask(":LOAD?;:LOAD:PROT?"), "0;OC");
}

TEST_F(ProtectionTest, IsKeptByAMemory)
{
    tell(":LOAD2:PROT:POW 7;:CONF2:VOLT:ON 3;:CONF2:VOLT:LATC ON;:LIM2:VOLT:LOW 4;:LIM2 ON;*SAV 1;*RST");
    EXPECT_EQ(ask(":LOAD2:PROT:POW?;:CONF2:VOLT:ON?;LATC?;:LIM2:VOLT:LOW?;:LIM2?"), "63.0000;0.0000;0;0.0000;0");
    tell("*RCL 1");
    EXPECT_EQ(ask(":LOAD2:PROT:POW?;:CONF2:VOLT:ON?;LATC?;:LIM2:VOLT:LOW?;:LIM2?"), "7.0000;3.0000;1;4.0000;1");
}

TEST_F(ProtectionTest, AnInputDrawsNothingBelowItsLoadOnVoltage)
{
    tell(":CONF:VOLT:ON 12.1;:CURR 2;:LOAD ON");
    EXPECT_EQ(ask(":LOAD?;:MEAS:CURR?;VOLT?"), "1;0.0000;12.0000");
    instrument->connectSource(1, quietSource(12.1, 0.5));
    EXPECT_EQ(ask(":MEAS:CURR?;VOLT?"), "2.0000;11.1000") << "the source counts, not what is left of it under load";
    instrument->connectSource(1, quietSource(12, 0.5));
    EXPECT_EQ(ask(":MEAS:CURR?"), "0.0000");
}

TEST_F(ProtectionTest, ALatchedInputGoesOnBelowItsLoadOnVoltageUntilItIsSwitchedOff)
{
    tell(":CONF:VOLT:ON 11;LATC ON;:CURR 2;:LOAD ON");
    instrument->connectSource(1, quietSource(5, 0.5));
    EXPECT_EQ(ask(":MEAS:CURR?"), "2.0000");
    tell(":LOAD OFF;:LOAD ON");
    EXPECT_EQ(ask(":LOAD?;:MEAS:CURR?"), "1;0.0000");
}

TEST_F(ProtectionTest, AShortDrawsAllTheCurrentOfTheModule)
{
    tell(":LOAD:SHOR ON");
    EXPECT_EQ(errors(), "-221,\"Settings conflict\"") << "the input is off";
    tell(":MODE CCL;:CURR 1;:LOAD ON;:LOAD:SHOR ON");
    EXPECT_EQ(ask(":LOAD:SHOR?;:LOAD:PROT?"), "1;OC");
    EXPECT_DOUBLE_EQ(channel(1).operatingPoint().current, 20);
    tell(":LOAD:SHOR OFF");
    EXPECT_EQ(ask(":LOAD:SHOR?;:LOAD:PROT?;:MEAS:CURR?"), "0;NONE;1.0000");
    tell(":LOAD:SHOR ON;:LOAD OFF;:LOAD ON");
    EXPECT_EQ(ask(":LOAD:SHOR?;:MEAS:CURR?"), "0;1.0000");
}

TEST_F(ProtectionTest, AShortThatIsTooMuchPowerTrips)
{
    instrument->connectSource(1, quietSource(60, 0.5));
    tell(":LOAD ON;:LOAD:SHOR ON");
    EXPECT_EQ(ask(":LOAD?;:LOAD:SHOR?;:LOAD:PROT?"), "0;0;OP");
}

TEST_F(ProtectionTest, ReadingsAreJudgedByTheirLimits)
{
    EXPECT_EQ(ask(":LIM:ALL:RES?;:LIM:RES?"), "OFF,OFF,OFF;OFF");
    tell(":LIM1 ON;:LIM2 ON;:LIM1:VOLT:LOW 10.9;HIGH 11.1;:LIM1:CURR:LOW 1.9;HIGH 2.1;:LIM1:POW:LOW 21;HIGH 23");
    EXPECT_EQ(ask(":LIM:ALL:RES?;:LIM:VOLT:RES?;:LIM:CURR:RES?;:LIM:POW:RES?"), "FAIL,PASS,OFF;HIGH;LOW;LOW");
    tell(":CURR 2;:LOAD ON");
    EXPECT_EQ(ask(":LIM:ALL:RES?;:LIM:VOLT:RES?;:LIM:CURR:RES?;:LIM:POW:RES?"), "PASS,PASS,OFF;PASS;PASS;PASS");
    tell(":CURR 2.5");
    EXPECT_EQ(ask(":LIM:RES?;:LIM:VOLT:RES?;:LIM:CURR:RES?;:LIM:POW:RES?"), "FAIL;LOW;HIGH;HIGH");
    tell(":LIM:CLE");
    EXPECT_EQ(ask(":LIM:RES?;:LIM?;:LIM:CURR:HIGH?;LOW?;HIGH? MAX"), "OFF;0;20.0000;0.0000;20.0000");
    EXPECT_EQ(errors(), noError);
}

TEST_F(ProtectionTest, AProgramJudgesAtItsTime)
{
    using namespace std::chrono_literals;
    tell(":CURR 2;:LIM ON;:LIM:VOLT:LOW 10;*SAV 1;:CURR 5;*SAV 2;*RST");
    const char* step = ":PROG:SEQ:MODE AUTO;:PROG:ONT 1S;:PROG:PFT 0.5S";
    tell(step);
    tell(std::string(":PROG:SEQ 2;") + step);
    tell(":PROG:MEM 2;:LOAD ON;:PROG:RUN");
    time.advance(499ms);
    EXPECT_EQ(ask(":PROG:RES?"), "NONE,0,0");
    time.advance(1ms);
    EXPECT_EQ(ask(":PROG:RES?"), "PASS,1,0");
    time.advance(10s);
    EXPECT_EQ(ask(":PROG:RES?;:PROG:STAT?"), "FAIL,2,1;IDLE") << "9.5 V";
}

TEST_F(ProtectionTest, AProgramJudgesAtTheEndOfTheOnTimeAtTheLatest)
{
    using namespace std::chrono_literals;
    tell(":CURR 2;:LIM ON;:LIM:CURR:LOW 1;*SAV 1;*RST");
    tell(":PROG:SEQ:MODE AUTO;:PROG:ONT 1S;:PROG:OFFT 9S;:PROG:PFT 5S;:LOAD ON;:PROG:RUN");
    time.advance(10s);
    EXPECT_EQ(ask(":PROG:RES?"), "PASS,1,0") << "while the input is still on";
}

TEST_F(ProtectionTest, AProgramFailsAStepInWhichProtectionTrips)
{
    using namespace std::chrono_literals;
    tell(":CURR 5;:LOAD:PROT:CURR 4;*SAV 1;*RST;:PROG:SEQ:MODE AUTO;:PROG:ONT 1S;:PROG:PFT 5S;:LOAD ON;:PROG:RUN");
    time.advance(1s);
    EXPECT_EQ(ask(":PROG:RES?;:PROG:STAT?;:LOAD:PROT?"), "FAIL,1,1;IDLE;OC");
}

} // namespace
} // namespace orb
