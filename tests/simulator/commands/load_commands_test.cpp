// SPDX-License-Identifier: GPL-3.0-or-later
#include "command_rows.h"
#include "instrument_fixture.h"

namespace orb {
namespace {

class LoadCommandsTest : public InstrumentFixture {};

TEST_F(LoadCommandsTest, AllInputsAreOffAtFirstAndReadNoCurrent)
{
    build(defaultConfiguration(8));
    EXPECT_EQ(query(":LOAD:ALL?"), "0,0,0,0,0,0,0,0");
    EXPECT_EQ(query(":FETC:ALLC?"), "0.0000,0.0000,0.0000,0.0000,0.0000,0.0000,0.0000,0.0000,");
    EXPECT_EQ(query(":FETC:ALLP?"), "0.0000,0.0000,0.0000,0.0000,0.0000,0.0000,0.0000,0.0000,");
}

TEST_F(LoadCommandsTest, TheDefaultInstrumentDrawsSensibleLoadsOnceSwitchedOn)
{
    build(defaultConfiguration(8));
    send(":LOAD:ALL ON");
    EXPECT_EQ(query(":LOAD:ALL?;:STAT:QUES:COND?"), "1,1,1,1,1,1,1,1;0");
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
    send(":LOAD:ALL ON");
    for (int second = 0; second < 3600; ++second) {
        time.advance(std::chrono::seconds(1));
        ASSERT_EQ(query(":LOAD:ALL?"), "1,1,1,1,1,1,1,1") << second;
    }
}

TEST_F(LoadCommandsTest, AnInputHoldsCurrentResistanceOrVoltage)
{
    send(":CURR 2;:LOAD ON");
    EXPECT_EQ(query(":MEAS:VOLT?;CURR?;POW?"), "11.0000;2.0000;22.0000");
    send(":MODE CRL;:RES 5.5;:LOAD ON");
    EXPECT_EQ(query(":MEAS:VOLT?;CURR?"), "11.0000;2.0000");
    send(":MODE CV;:VOLT 10;:LOAD ON");
    EXPECT_EQ(query(":MEAS:VOLT?;CURR?"), "10.0000;4.0000");
}

TEST_F(LoadCommandsTest, AllInputsAreSwitchedAtOnce)
{
    send(":LOAD:ALL ON");
    EXPECT_EQ(query(":LOAD:ALL?"), "1,1,1");
    send(":LOAD:ALL OFF");
    EXPECT_EQ(query(":LOAD:ALL?"), "0,0,0");
    send(":LOAD:ALL ON;:ABOR");
    EXPECT_EQ(query(":LOAD:ALL?"), "0,0,0");
}

TEST_F(LoadCommandsTest, TheProtectionThatTrippedIsAnswered)
{
    EXPECT_EQ(query(":LOAD:PROT?"), "NONE");
    instrument->connectSource(2, quietSource(12, 0.01));
    send(":CHAN 2;:CURR 6;:LOAD ON");
    EXPECT_EQ(query(":LOAD?;:LOAD:PROT?;:STAT:QUES:COND?"), "0;OP;8");
    send(":LOAD:PROT:CLE");
    EXPECT_EQ(query(":LOAD?;:LOAD:PROT?;:STAT:QUES:COND?"), "0;NONE;0");
    EXPECT_EQ(query(":STAT:QUES?;:STAT:QUES?"), "8;0") << "the event stays until it is read";

    instrument->connectSource(1, quietSource(90, 1));
    send(":LOAD1 ON");
    EXPECT_EQ(query(":LOAD1:PROT?;:LOAD2:PROT?;:STAT:QUES:COND?"), "OV;NONE;1");
}

TEST_F(LoadCommandsTest, AnInputThatItsRangeLimitsIsAnswered)
{
    instrument->connectSource(1, quietSource(3, 0.1));
    send(":MODE CV;:VOLT 0.5;:LOAD ON");
    EXPECT_EQ(query(":LOAD?;:LOAD:PROT?;:STAT:QUES:COND?;:MEAS:CURR?"), "1;OC;2;20.0000");
}

TEST_F(LoadCommandsTest, AResetRestoresAllSettingsAndSwitchesAllInputsOff)
{
    send(":MODE2 CV;:VOLT2 5;:VOLT2:RANG L;:CURR 3;:LEV 2;:CHAN 2;:CHAN:DISP;:LOAD:ALL ON");
    send("*RST");
    EXPECT_EQ(query(":LOAD:ALL?;:MODE2?;:CURR1?;:LEV1?;:VOLT2:RANG?;:VOLT2?;:CHAN?;:CHAN:DISP?"),
              "0,0,0;CCH;0.0000;1;HIGH;80.0000;1;1");
}

TEST_F(LoadCommandsTest, OnlyAResetAClearAndSwitchingOnClearTheProtection)
{
    instrument->connectSource(1, quietSource(90, 1));
    send(":LOAD ON;:LOAD OFF;*SAV 1;*RCL 1;:MODE CV;:ABOR");
    EXPECT_EQ(query(":LOAD:PROT?"), "OV");
    send("*RST");
    EXPECT_EQ(query(":LOAD:PROT?"), "NONE");
}

TEST_F(LoadCommandsTest, NoOtherCommandSwitchesAnInputOn)
{
    send("*SAV 2;*RCL 2;*RST;*CLS;:MODE CV;:VOLT 3;:MODE CC;:CURR 1;:LEV 2;:CHAN 2;:CHAN:DISP;:LOAD:PROT:CLE;:ABOR");
    send(":SYST:REM;LOC;:UTIL:REM:MODE FAST;:VOLT:RANG LOW;:STAT:PRES;*OPC;*WAI");
    query("*TST?;:MEAS:ALLV?");
    time.advance(std::chrono::hours(24));
    EXPECT_EQ(query(":LOAD:ALL?"), "0,0,0");
}

TEST_F(LoadCommandsTest, NoRowOfTheTableButLoadSwitchesAnInputOn)
{
    for (const Command& command : allRows()) {
        if (command.set == nullptr || command.header == "LOAD#[:STATe]" || command.header == "LOAD:ALL")
            continue;
        build(defaultConfiguration(8));
        query(formsOf(command.header).front() + ' ' + std::string(command.example));
        time.advance(std::chrono::seconds(1));
        EXPECT_EQ(query(":LOAD:ALL?"), "0,0,0,0,0,0,0,0") << command.header;
    }
}

TEST_F(LoadCommandsTest, ProtectionIsThatOfTheModuleAtFirst)
{
    EXPECT_EQ(query(":LOAD:PROT:VOLT?;CURR?;POW?;VOLT? MAX;VOLT? MIN"), "84.0000;21.0000;105.0000;84.0000;0.0000");
    send(":LOAD:PROT:VOLT 84.1;:LOAD:PROT:POW -1");
    EXPECT_EQ(errors(), "-222,\"Data out of range\",-222,\"Data out of range\"");
}

TEST_F(LoadCommandsTest, ProtectionTripsAboveItsSetting)
{
    send(":LOAD:PROT:CURR 2.5;:CURR 2.5;:LOAD ON");
    EXPECT_EQ(query(":LOAD?;:LOAD:PROT?"), "1;NONE");
    send(":CURR 2.505");
    EXPECT_EQ(query(":LOAD?;:LOAD:PROT?;:STAT:QUES:COND?"), "0;OC;2");
    send(":LOAD:PROT:CURR MAX;:LOAD:PROT:POW 20;:LOAD ON");
    EXPECT_EQ(query(":LOAD?;:LOAD:PROT?"), "0;OP") << "26.9 W";
    send(":LOAD:PROT:POW MAX;:LOAD:PROT:VOLT 10;:LOAD ON");
    EXPECT_EQ(query(":LOAD?;:LOAD:PROT?"), "0;OV");
    send("*RST;:LOAD ON");
    EXPECT_EQ(query(":LOAD?;:LOAD:PROT?"), "1;NONE");
}

TEST_F(LoadCommandsTest, ProtectionSetBelowThePresentCurrentTripsAtOnce)
{
    send(":CURR 2;:LOAD ON;:LOAD:PROT:CURR 1");
    EXPECT_EQ(query(":LOAD?;:LOAD:PROT?"), "0;OC");
}

TEST_F(LoadCommandsTest, AnInputDrawsNothingBelowItsLoadOnVoltage)
{
    send(":CONF:VOLT:ON 12.1;:CURR 2;:LOAD ON");
    EXPECT_EQ(query(":LOAD?;:MEAS:CURR?;VOLT?"), "1;0.0000;12.0000");
    instrument->connectSource(1, quietSource(12.1, 0.5));
    EXPECT_EQ(query(":MEAS:CURR?;VOLT?"), "2.0000;11.1000") << "the source counts, not what is left of it under load";
    instrument->connectSource(1, quietSource(12, 0.5));
    EXPECT_EQ(query(":MEAS:CURR?"), "0.0000");
}

TEST_F(LoadCommandsTest, ALatchedInputGoesOnBelowItsLoadOnVoltageUntilItIsSwitchedOff)
{
    send(":CONF:VOLT:ON 11;LATC ON;:CURR 2;:LOAD ON");
    instrument->connectSource(1, quietSource(5, 0.5));
    EXPECT_EQ(query(":MEAS:CURR?"), "2.0000");
    send(":LOAD OFF;:LOAD ON");
    EXPECT_EQ(query(":LOAD?;:MEAS:CURR?"), "1;0.0000");
}

TEST_F(LoadCommandsTest, AShortDrawsTheMaximumCurrentOfTheModule)
{
    send(":LOAD:SHOR ON");
    EXPECT_EQ(errors(), "-221,\"Settings conflict\"") << "the input is off";
    send(":MODE CCL;:CURR 1;:LOAD ON;:LOAD:SHOR ON");
    EXPECT_EQ(query(":LOAD:SHOR?;:LOAD:PROT?"), "1;OC");
    EXPECT_DOUBLE_EQ(channel(1).operatingPoint().current, 20);
    send(":LOAD:SHOR OFF");
    EXPECT_EQ(query(":LOAD:SHOR?;:LOAD:PROT?;:MEAS:CURR?"), "0;NONE;1.0000");
    send(":LOAD:SHOR ON;:LOAD OFF;:LOAD ON");
    EXPECT_EQ(query(":LOAD:SHOR?;:MEAS:CURR?"), "0;1.0000");
}

TEST_F(LoadCommandsTest, AShortWithTooMuchPowerTrips)
{
    instrument->connectSource(1, quietSource(60, 0.5));
    send(":LOAD ON;:LOAD:SHOR ON");
    EXPECT_EQ(query(":LOAD?;:LOAD:SHOR?;:LOAD:PROT?"), "0;0;OP");
}

} // namespace
} // namespace orb
