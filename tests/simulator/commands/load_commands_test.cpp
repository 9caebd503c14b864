// SPDX-License-Identifier: GPL-3.0-or-later
#include "bench.h"
#include "rows.h"

namespace orb {
namespace {

class LoadCommandsTest : public BenchTest {};

TEST_F(LoadCommandsTest, AllInputsAreOffAtFirstAndReadNoCurrent)
{
    build(defaultConfiguration(8));
    EXPECT_EQ(ask(":LOAD:ALL?"), "0,0,0,0,0,0,0,0");
    EXPECT_EQ(ask(":FETC:ALLC?"), "0.0000,0.0000,0.0000,0.0000,0.0000,0.0000,0.0000,0.0000,");
    EXPECT_EQ(ask(":FETC:ALLP?"), "0.0000,0.0000,0.0000,0.0000,0.0000,0.0000,0.0000,0.0000,");
}

TEST_F(LoadCommandsTest, TheDefaultInstrumentDrawsSensibleLoadsOnceSwitchedOn)
{
    build(defaultConfiguration(8));
    tell(":LOAD:ALL ON");
    EXPECT_EQ(ask(":LOAD:ALL?;:STAT:QUES:COND?"), "1,1,1,1,1,1,1,1;0");
    for (int number = 1; number <= 8; ++number) {
        const OperatingPoint& point = channel(number).operatingPoint();
        EXPECT_GT(point.current, 0.1) << number;
        EXPECT_GT(point.voltage, 0.5 * channel(number).source().openCircuitVoltage) << number;
        EXPECT_LT(point.power(), channel(number).module().maxPower) << number;
    }
}

TEST_F(LoadCommandsTest, TheDefaultInstrumentRunsForAnHourUnderLoadWithoutTripping)
{
    build(defaultConfiguration(8));
    tell(":LOAD:ALL ON");
    for (int second = 0; second < 3600; ++second) {
        time.advance(std::chrono::seconds(1));
        ASSERT_EQ(ask(":LOAD:ALL?"), "1,1,1,1,1,1,1,1") << second;
    }
}

TEST_F(LoadCommandsTest, KnowsEveryMode)
{
    for (const char* mode : {"CCL", "CCH", "CRL", "CRH", "CV"}) {
        tell(std::string(":MODE ") + mode);
        EXPECT_EQ(ask(":MODE?"), mode);
    }
    tell(":MODE CRL;MODE CV;:MODE CR");
    EXPECT_EQ(ask(":MODE?"), "CRL") << "CR leaves the range as it was";
    tell(":MODE CC");
    EXPECT_EQ(ask(":MODE?"), "CCH");
    tell(":MODE CX");
    EXPECT_EQ(errors(), "-224,\"Illegal parameter value\"");
}

TEST_F(LoadCommandsTest, RefusesARangeThatTheModuleDoesNotHave)
{
    tell(":CHAN 3;:MODE CCL");
    tell(":MODE CRL");
    EXPECT_EQ(errors(), "-241,\"Hardware missing\",-241,\"Hardware missing\"");
    EXPECT_EQ(ask(":MODE?"), "CCH");
}

TEST_F(LoadCommandsTest, HoldsCurrentResistanceAndVoltage)
{
    tell(":CURR 2;:LOAD ON");
    EXPECT_EQ(ask(":MEAS:VOLT?;CURR?;POW?"), "11.0000;2.0000;22.0000");
    tell(":MODE CRL;:RES 5.5;:LOAD ON");
    EXPECT_EQ(ask(":MEAS:VOLT?;CURR?"), "11.0000;2.0000");
    tell(":MODE CV;:VOLT 10;:LOAD ON");
    EXPECT_EQ(ask(":MEAS:VOLT?;CURR?"), "10.0000;4.0000");
}

TEST_F(LoadCommandsTest, ChangingTheModeSwitchesTheInputOff)
{
    tell(":LOAD ON;:MODE CV");
    EXPECT_EQ(ask(":LOAD?"), "0");
}

TEST_F(LoadCommandsTest, ChangesBetweenTwoLevels)
{
    tell(":CURR:STAT:L1 1;L2 3;:LOAD ON");
    EXPECT_EQ(ask(":LEV?;:MEAS:CURR?"), "1;1.0000");
    tell(":LEV 2");
    EXPECT_EQ(ask(":LEV?;:MEAS:CURR?"), "2;3.0000");
}

TEST_F(LoadCommandsTest, KeepsSlewRatesOfEachRange)
{
    EXPECT_EQ(ask(":CURR:RISE?;FALL?"), "0.80000;0.80000");
    tell(":CURR:RISE 0.1;FALL 0.2 A/us");
    tell(":MODE CCL;:CURR:RISE MIN");
    EXPECT_EQ(ask(":CURR:RISE?;FALL?"), "0.00032;0.08000");
    tell(":MODE CCH");
    EXPECT_EQ(ask(":CURR:RISE?;FALL?;RISE? MAX"), "0.09920;0.20160;0.80000") << "in steps of 0.0032";
    EXPECT_EQ(errors(), noError);
}

TEST_F(LoadCommandsTest, TakesTheVoltageRangeInEveryForm)
{
    for (const auto& [word, range] : {std::pair{"L", "LOW"}, {"H", "HIGH"}, {"low", "LOW"}, {"High", "HIGH"}}) {
        tell(std::string(":VOLT:RANG ") + word);
        EXPECT_EQ(ask(":VOLT:RANG?"), range);
    }
    tell(":VOLT:RANG L");
    EXPECT_EQ(ask(":VOLT? MAX"), "16.0000");
}

TEST_F(LoadCommandsTest, SwitchesAllInputsAtOnce)
{
    tell(":LOAD:ALL ON");
    EXPECT_EQ(ask(":LOAD:ALL?"), "1,1,1");
    tell(":LOAD:ALL OFF");
    EXPECT_EQ(ask(":LOAD:ALL?"), "0,0,0");
    tell(":LOAD:ALL ON;:ABOR");
    EXPECT_EQ(ask(":LOAD:ALL?"), "0,0,0");
}

TEST_F(LoadCommandsTest, TellsWhichProtectionTripped)
{
    EXPECT_EQ(ask(":LOAD:PROT?"), "NONE");
    instrument->connectSource(2, quietSource(12, 0.01));
    tell(":CHAN 2;:CURR 6;:LOAD ON");
    EXPECT_EQ(ask(":LOAD?;:LOAD:PROT?;:STAT:QUES:COND?"), "0;OP;8");
    tell(":LOAD:PROT:CLE");
    EXPECT_EQ(ask(":LOAD?;:LOAD:PROT?;:STAT:QUES:COND?"), "0;NONE;0");
    EXPECT_EQ(ask(":STAT:QUES?;:STAT:QUES?"), "8;0") << "the event stays until it is read";

    instrument->connectSource(1, quietSource(90, 1));
    tell(":LOAD1 ON");
    EXPECT_EQ(ask(":LOAD1:PROT?;:LOAD2:PROT?;:STAT:QUES:COND?"), "OV;NONE;1");
}

TEST_F(LoadCommandsTest, TellsThatTheRangeLimitsTheInput)
{
    instrument->connectSource(1, quietSource(3, 0.1));
    tell(":MODE CV;:VOLT 0.5;:LOAD ON");
    EXPECT_EQ(ask(":LOAD?;:LOAD:PROT?;:STAT:QUES:COND?;:MEAS:CURR?"), "1;OC;2;20.0000");
}

TEST_F(LoadCommandsTest, AResetTurnsAllBackAndSwitchesAllOff)
{
    tell(":MODE2 CV;:VOLT2 5;:VOLT2:RANG L;:CURR 3;:LEV 2;:CHAN 2;:CHAN:DISP;:LOAD:ALL ON");
    tell("*RST");
    EXPECT_EQ(ask(":LOAD:ALL?;:MODE2?;:CURR1?;:LEV1?;:VOLT2:RANG?;:VOLT2?;:CHAN?;:CHAN:DISP?"),
              "0,0,0;CCH;0.0000;1;HIGH;80.0000;1;1");
}

TEST_F(LoadCommandsTest, OnlyAResetAClearAndSwitchingOnForgetWhatTripped)
{
    instrument->connectSource(1, quietSource(90, 1));
    tell(":LOAD ON;:LOAD OFF;*SAV 1;*RCL 1;:MODE CV;:ABOR");
    EXPECT_EQ(ask(":LOAD:PROT?"), "OV");
    tell("*RST");
    EXPECT_EQ(ask(":LOAD:PROT?"), "NONE");
}

TEST_F(LoadCommandsTest, MemoriesKeepTheSettingsOfAllChannelsButNoInputThatIsOn)
{
    tell(":CURR1 1.5;:MODE2 CRL;:RES2 33;:LOAD:ALL ON;*SAV 120");
    tell("*RST;*RCL 120");
    EXPECT_EQ(ask(":CURR1?;:MODE2?;:RES2?;:LOAD:ALL?"), "1.5000;CRL;33.0000;0,0,0");
}

TEST_F(LoadCommandsTest, RecallingSwitchesAllInputsOff)
{
    tell("*SAV 1;:LOAD:ALL ON;*RCL 1");
    EXPECT_EQ(ask(":LOAD:ALL?"), "0,0,0");
}

TEST_F(LoadCommandsTest, AMemoryThatWasNeverWrittenHoldsTheSettingsAfterAReset)
{
    tell(":CURR1 1.5;:MODE2 CV;*RCL 5");
    EXPECT_EQ(ask(":CURR1?;:MODE2?"), "0.0000;CCH");
    EXPECT_EQ(errors(), noError);
}

TEST_F(LoadCommandsTest, MemoriesOutliveAReset)
{
    tell(":CURR 1.5;*SAV 3;*RST;*CLS;*RCL 3");
    EXPECT_EQ(ask(":CURR?"), "1.5000");
}

TEST_F(LoadCommandsTest, NoOtherCommandSwitchesAnInputOn)
{
    tell("*SAV 2;*RCL 2;*RST;*CLS;:MODE CV;:VOLT 3;:MODE CC;:CURR 1;:LEV 2;:CHAN 2;:CHAN:DISP;:LOAD:PROT:CLE;:ABOR");
    tell(":SYST:REM;LOC;:UTIL:REM:MODE FAST;:VOLT:RANG LOW;:STAT:PRES;*OPC;*WAI");
    ask("*TST?;:MEAS:ALLV?");
    time.advance(std::chrono::hours(24));
    EXPECT_EQ(ask(":LOAD:ALL?"), "0,0,0");
}

TEST_F(LoadCommandsTest, NoRowOfTheTableButLoadSwitchesAnInputOn)
{
    for (const Command& command : allRows()) {
        if (command.set == nullptr || command.header == "LOAD#[:STATe]" || command.header == "LOAD:ALL")
            continue;
        build(defaultConfiguration(8));
        ask(waysToWrite(command.header).front() + ' ' + std::string(command.example));
        time.advance(std::chrono::seconds(1));
        EXPECT_EQ(ask(":LOAD:ALL?"), "0,0,0,0,0,0,0,0") << command.header;
    }
}

} // namespace
} // namespace orb
