// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_fixture.h"

namespace orb {
namespace {

using namespace std::chrono_literals;

class SystemCommandsTest : public InstrumentFixture {};

TEST_F(SystemCommandsTest, TheControlStateIsKept)
{
    EXPECT_EQ(query(":SYST:COMM:RLST?"), "LOC");
    send(":SYST:REM");
    EXPECT_EQ(query(":SYST:COMM:RLST?"), "REM");
    send(":SYST:RWL");
    EXPECT_EQ(query(":SYST:COMM:RLST?"), "RWL");
    send(":SYST:COMM:RLST LOCAL");
    EXPECT_EQ(query(":SYST:COMM:RLST?"), "LOC");
    send(":SYST:REM;LOC");
    EXPECT_EQ(query(":SYST:COMM:RLST?"), "LOC");
}

TEST_F(SystemCommandsTest, TheRemoteModeIsSetByWordAndByNumber)
{
    EXPECT_EQ(query(":UTIL:REM:MODE?"), "NORM");
    send(":UTIL:REM:MODE FAST");
    EXPECT_EQ(query(":UTIL:REM:MODE?"), "FAST");
    send(":UTIL:REM:MODE 0");
    EXPECT_EQ(query(":UTIL:REM:MODE?"), "NORM");
    send(":UTIL:REM:MODE 1");
    EXPECT_EQ(query(":UTIL:REM:MODE?"), "FAST");
    send(":UTIL:REM:MODE NORMAL");
    EXPECT_EQ(query(":UTIL:REM:MODE?"), "NORM");
    send(":UTIL:REM:MODE 2");
    EXPECT_EQ(errors(), "-224,\"Illegal parameter value\"");
}

TEST_F(SystemCommandsTest, TheCalendarRunsOnTheClock)
{
    EXPECT_EQ(query(":SYST:DATE?;TIME?;UPT?"), "2000,1,1;0,0,0;0.000");
    time.advance(3723s + 500ms);
    EXPECT_EQ(query(":SYST:DATE?;TIME?;UPT?"), "2000,1,1;1,2,3;3723.500");
    send(":SYST:DATE 2024,2,28;TIME 23,59,58");
    EXPECT_EQ(query(":SYST:DATE?;TIME?"), "2024,2,28;23,59,58");
    time.advance(2s);
    EXPECT_EQ(query(":SYST:DATE?;TIME?"), "2024,2,29;0,0,0");
    send(":SYST:DATE 2023,2,29;DATE 1999,1,1;TIME 24,0,0");
    EXPECT_EQ(errors(), "-222,\"Data out of range\",-222,\"Data out of range\",-222,\"Data out of range\"");
    send("*RST");
    EXPECT_EQ(query(":SYST:DATE?;TIME?"), "2024,2,29;0,0,0");
}

TEST_F(SystemCommandsTest, APresetIsAReset)
{
    send(":CURR 3;:CHAN 2;:LOAD:ALL ON;:SYST:PRES");
    EXPECT_EQ(query(":CURR?;:CHAN?;:LOAD:ALL?"), "0.0000;1;0,0,0");
}

} // namespace
} // namespace orb
