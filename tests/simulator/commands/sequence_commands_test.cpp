// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_fixture.h"

namespace orb {
namespace {

using namespace std::chrono_literals;

constexpr const char* conflict = "-221,\"Settings conflict\"";

/// Channel 1 is a K11 with a source of 12 V and 0.5 ohm, in CC, high range: up to 20 A.
class SequenceCommandsTest : public InstrumentFixture {
protected:
    /// Writes a point of the fastest slew rates, and ends the loop there.
    void point(int number, const std::string& seconds, const std::string& amperes)
    {
        const std::string text = std::to_string(number);
        send(":SEQ:EDIT:POIN " + text + ";:SEQ:POIN:DATA " + seconds + ',' + amperes + ",MAX,MAX;:SEQ:END " + text);
    }
    double current(int number = 1) const { return channel(number).operatingPoint().current; }
    /// Moves the clock and lets the instrument notice.
    void pass(std::chrono::nanoseconds passed)
    {
        time.advance(passed);
        send("*WAI");
    }
};

TEST_F(SequenceCommandsTest, TheCommandsOfATransferAreTaken)
{
    for (const char* command : {":MODE CCH", ":SEQ:VOLT:RANG H", ":SEQ:END:LOAD 0", ":SEQ:REP 3", ":SEQ:LOOP:STAR 1",
                                ":SEQ:END 2", ":SEQ:EDIT:POIN 1", ":SEQuence:POINt:TIME 0.02", ":SEQ:POIN:CURR 15",
                                ":SEQ:POIN:RISE 1.6", ":SEQ:POIN:FALL 1", ":SEQ:EDIT:POIN 2", ":SEQuence:POINt:TIME 0",
                                ":SEQ:POIN:CURR 0.0", ":SEQ:POIN:RISE 0", ":SEQ:POIN:FALL 0"})
        send(command);
    EXPECT_EQ(errors(), noError);
    EXPECT_EQ(query(":SEQ:VOLT:RANG?;:SEQ:END:LOAD?;:SEQ:REP?;:SEQ:LOOP:STAR?;:SEQ:END?;:SEQ:EDIT:POIN?"),
              "HIGH;0;3;1;2;2");
    EXPECT_EQ(query(":SEQ:POIN:DATA?"), "0.000000,0.0000,0.00000,0.00000");
    send(":SEQ:EDIT:POIN 1");
    EXPECT_EQ(query(":SEQuence:POINt:TIME?;:SEQ:POIN:CURR?;RISE?;FALL?"), "0.020000;15.0000;1.60000;1.00000");
}

TEST_F(SequenceCommandsTest, TheEndValueIsAnyWholeNumber)
{
    for (const auto& [value, answer] :
         {std::pair{"1", "1"}, {"0", "0"}, {"-32768", "-32768"}, {"32767", "32767"}, {"OFF", "0"}, {"On", "1"}}) {
        send(std::string(":SEQ:END:LOAD ") + value);
        EXPECT_EQ(query(":SEQ:END:LOAD?"), answer) << value;
    }
    send(":SEQ:END:LOAD 32768");
    EXPECT_EQ(errors(), "-222,\"Data out of range\"");
    send(":SEQ:END:LOAD YES");
    EXPECT_EQ(errors(), "-224,\"Illegal parameter value\"");
    EXPECT_EQ(query(":SEQ:END:LOAD?"), "1");
}

TEST_F(SequenceCommandsTest, ASequenceHasLimits)
{
    EXPECT_EQ(query(":SEQ:POIN:TIME? MAX;CURR? MAX;RISE? MAX;FALL? MIN;COUN?"),
              "100000.000000;120.0000;5.00000;0.00000;120");
    for (const char* bad : {":SEQ:EDIT:POIN 0", ":SEQ:EDIT:POIN 121", ":SEQ:END 121", ":SEQ:LOOP:STAR 0",
                            ":SEQ:REP 32768", ":SEQ:POIN:TIME -1", ":SEQ:POIN:CURR 120.1", ":SEQ:POIN:RISE 5.1"}) {
        send(bad);
        EXPECT_EQ(errors(), "-222,\"Data out of range\"") << bad;
    }
    EXPECT_EQ(query(":SEQ:EDIT:POIN?;:SEQ:END?;:SEQ:REP?;:SEQ:POIN:DATA?"), "1;1;1;0.000000,0.0000,5.00000,5.00000");
}

TEST_F(SequenceCommandsTest, APointWithABadNumberStaysAsItWas)
{
    send(":SEQ:POIN:DATA 1,2,3,99");
    EXPECT_EQ(errors(), "-222,\"Data out of range\"");
    EXPECT_EQ(query(":SEQ:POIN:DATA?"), "0.000000,0.0000,5.00000,5.00000");
}

TEST_F(SequenceCommandsTest, ASequencePlaysItsPointsOneAfterTheOther)
{
    point(1, "1", "2");
    point(2, "500ms", "4");
    send(":CURR 1;:LOAD ON;:SEQ:RUN");
    pass(0ms);
    EXPECT_EQ(query(":SEQ:STAT?;:SEQ:RUN?;:SEQ:CHAN?;:SEQ:TIME?"), "RUN,1,1;1;1;1.500000");
    pass(999ms);
    EXPECT_EQ(query(":MEAS:CURR?;:SEQ:STAT?"), "2.0000;RUN,1,1");
    pass(2ms);
    EXPECT_EQ(query(":MEAS:CURR?;:SEQ:STAT?;:CURR?"), "4.0000;RUN,2,1;1.0000") << "the set value is not touched";
    pass(500ms);
    EXPECT_EQ(query(":MEAS:CURR?;:SEQ:STAT?;:SEQ:RUN?;:SEQ:CHAN?;:LOAD?"), "0.0000;IDLE;0;0;0");
    EXPECT_EQ(errors(), noError);
}

TEST_F(SequenceCommandsTest, ARunBeginsAtTheStartOfTheLoopAndRepeatsIt)
{
    point(1, "1", "1");
    point(2, "1", "2");
    point(3, "1", "3");
    send(":SEQ:LOOP:STAR 2;:SEQ:REP 2;:LOAD ON;:SEQ:RUN");
    std::string states;
    for (int second = 0; second < 5; ++second) {
        states += query(":SEQ:STAT?") + ' ';
        pass(1s);
    }
    EXPECT_EQ(states, "RUN,2,1 RUN,3,1 RUN,2,2 RUN,3,2 IDLE ");
}

TEST_F(SequenceCommandsTest, ACountOfZeroRepeatsForEver)
{
    point(1, "1us", "1");
    point(2, "1", "2");
    send(":SEQ:REP 0;:LOAD ON;:SEQ:RUN");
    pass(24h);
    EXPECT_THAT(query(":SEQ:STAT?"), testing::StartsWith("RUN,2,86400"));
    EXPECT_DOUBLE_EQ(current(), 2);
    send(":SEQ:STOP");
    EXPECT_EQ(query(":SEQ:STAT?;:LOAD?"), "IDLE;0");
}

TEST_F(SequenceCommandsTest, ALongTimeEndsAFiniteRunOfAnyCount)
{
    point(1, "1ms", "1");
    send(":SEQ:REP 32767;:SEQ:END:LOAD 1;:CURR 0.5;:LOAD ON;:SEQ:RUN");
    pass(30s);
    EXPECT_THAT(query(":SEQ:STAT?"), testing::StartsWith("RUN,1,3000"));
    pass(24h);
    EXPECT_EQ(query(":SEQ:STAT?;:LOAD?;:MEAS:CURR?"), "IDLE;1;0.5000");
}

TEST_F(SequenceCommandsTest, TheCurrentChangesAtTheSlewRateOfThePoint)
{
    send(":SEQ:POIN:DATA 1,10,0.0032,MAX;:LOAD ON;:SEQ:RUN");
    pass(1ms);
    EXPECT_NEAR(current(), 3.2, 1e-6) << "0.0032 A/us is 3.2 A/ms";
    pass(3ms);
    EXPECT_DOUBLE_EQ(current(), 10);
}

TEST_F(SequenceCommandsTest, ASlewRateThatTheModuleDoesNotHaveIsItsNearestOne)
{
    send(":SEQ:POIN:DATA 1,10,0,MAX;:LOAD ON;:SEQ:RUN");
    pass(1ms);
    EXPECT_NEAR(current(), 3.2, 1e-6);
}

TEST_F(SequenceCommandsTest, APointWithoutATimeIsSkipped)
{
    point(1, "0", "1");
    point(2, "1", "2");
    point(3, "0", "3");
    send(":SEQ:REP 0;:LOAD ON;:SEQ:RUN");
    pass(10ms);
    EXPECT_EQ(query(":SEQ:STAT?"), "RUN,2,1");
    pass(1s);
    EXPECT_EQ(query(":SEQ:STAT?"), "RUN,2,2");
}

TEST_F(SequenceCommandsTest, AtTheEndTheInputGoesOffOrReturnsToItsSetValue)
{
    point(1, "1", "2");
    send(":CURR 0.5;:SEQ:END:LOAD 1;:LOAD ON;:SEQ:RUN");
    pass(1s);
    EXPECT_EQ(query(":LOAD?;:MEAS:CURR?;:SEQ:STAT?"), "1;0.5000;IDLE");
    send(":SEQ:END:LOAD 0;:SEQ:RUN");
    pass(1s);
    EXPECT_EQ(query(":LOAD?;:MEAS:CURR?;:SEQ:STAT?"), "0;0.0000;IDLE");
}

TEST_F(SequenceCommandsTest, ASequenceNeverSwitchesAnInputOn)
{
    point(1, "1", "2");
    send(":SEQ:END:LOAD 1;:SEQ:RUN");
    EXPECT_EQ(errors(), conflict);
    pass(1s);
    EXPECT_EQ(query(":LOAD:ALL?;:SEQ:STAT?"), "0,0,0;IDLE");
}

TEST_F(SequenceCommandsTest, AnInputThatGoesOffEndsTheRunForGood)
{
    for (const char* off : {":LOAD OFF", ":LOAD:ALL OFF", ":ABOR", "*RCL 1", "*RST", ":MODE CRH;:MODE CCH"}) {
        send("*RST;:SEQ:CLE");
        point(1, "10", "2");
        send(":LOAD ON;:SEQ:RUN");
        send(off);
        send(":LOAD ON");
        pass(1s);
        EXPECT_EQ(query(":SEQ:STAT?;:MEAS:CURR?"), "IDLE;0.0000") << off;
    }
    EXPECT_EQ(errors(), noError);
}

TEST_F(SequenceCommandsTest, ProtectionTripsInThePointWithTooMuchPower)
{
    point(1, "1", "1");
    point(2, "1", "12");
    send(":LOAD ON;:SEQ:RUN");
    instrument->connectSource(1, quietSource(12, 0.01));
    pass(1500ms);
    EXPECT_EQ(query(":SEQ:STAT?;:LOAD?;:LOAD:PROT?"), "IDLE;0;OP");
}

TEST_F(SequenceCommandsTest, ProtectionTripsInAPointBetweenTwoMessages)
{
    point(1, "1", "12");
    point(2, "1", "1");
    send(":SEQ:REP 2;:LOAD ON;:SEQ:RUN");
    instrument->connectSource(1, quietSource(12, 0.01));
    pass(2s);
    EXPECT_EQ(query(":LOAD?;:LOAD:PROT?"), "0;OP");
}

TEST_F(SequenceCommandsTest, ASequenceThatCanNotBePlayedIsRefused)
{
    point(1, "1", "3");
    const auto refuses = [this](const std::string& settings) {
        send(settings + ";:LOAD ON;:SEQ:RUN");
        EXPECT_EQ(errors(), conflict) << settings;
        EXPECT_EQ(query(":SEQ:STAT?"), "IDLE") << settings;
        send("*RST;:SEQ:LOOP:STAR 1;:SEQ:END 1;:SEQ:POIN:TIME 1");
    };
    refuses(":MODE CRH");
    refuses(":MODE CV");
    refuses(":MODE CCL");
    refuses(":SEQ:LOOP:STAR 2");
    refuses(":SEQ:POIN:TIME 0");
    send(":LOAD ON;:SEQ:RUN");
    EXPECT_EQ(errors(), noError);
    send(":SEQ:RUN");
    EXPECT_EQ(errors(), conflict) << "one is under way";
}

TEST_F(SequenceCommandsTest, AChangeOfTheSequenceAppliesToTheNextRun)
{
    point(1, "10", "2");
    send(":LOAD ON;:SEQ:RUN;:SEQ:POIN:CURR 5;:SEQ:CLE");
    pass(1s);
    EXPECT_EQ(query(":MEAS:CURR?;:SEQ:STAT?;:SEQ:POIN:DATA?"), "2.0000;RUN,1,1;0.000000,0.0000,5.00000,5.00000");
}

TEST_F(SequenceCommandsTest, ASequencePlaysOnTheChannelThatWasSelectedAtItsStart)
{
    point(1, "10", "2");
    send(":CHAN 2;:LOAD ON;:SEQ:RUN;:CHAN 1");
    pass(1s);
    EXPECT_EQ(query(":SEQ:CHAN?;:LOAD:ALL?"), "2;0,1,0");
    EXPECT_DOUBLE_EQ(current(2), 2);
}

TEST_F(SequenceCommandsTest, ASequenceHasItsOwnVoltageRange)
{
    instrument->connectSource(1, quietSource(30, 0.5));
    point(1, "1", "2");
    send(":SEQ:VOLT:RANG L;:SEQ:END:LOAD ON;:LOAD ON;:SEQ:RUN");
    pass(1ms);
    EXPECT_EQ(query(":MEAS:VOLT?;:VOLT:RANG?"), "16.8000;HIGH") << "the end of the low range's meter";
    pass(1s);
    EXPECT_EQ(query(":MEAS:VOLT?"), "30.0000");
}

TEST_F(SequenceCommandsTest, AResetKeepsTheSequenceAndSelectsPointOne)
{
    point(2, "10", "2");
    send("*RST");
    EXPECT_EQ(query(":SEQ:END?;:SEQ:EDIT:POIN?"), "2;1");
    send(":SEQ:EDIT:POIN 2");
    EXPECT_EQ(query(":SEQ:POIN:CURR?"), "2.0000");
    send(":SEQ:CLE");
    EXPECT_EQ(query(":SEQ:END?;:SEQ:POIN:CURR?"), "1;0.0000");
}

TEST_F(SequenceCommandsTest, ABatteryDrainsByTheCurrentsOfThePoints)
{
    build(
        {.channels = {{.module = "K11",
                       .source = {.openCircuitVoltage = 12, .seriesResistance = 0, .capacity = 1, .emptyVoltage = 10}}},
         .meterNoise = 0});
    point(1, "900", "2");
    point(2, "900", "0");
    send(":LOAD ON;:SEQ:RUN");
    pass(1800s);
    EXPECT_NEAR(channel(1).operatingPoint().voltage, 11, 1e-3) << "half an ampere-hour of one";
}

TEST_F(SequenceCommandsTest, AHundredRoundsArePlayedAtOnceAndTheOthersCounted)
{
    instrument->connectSource(1, {.openCircuitVoltage = 12, .seriesResistance = 0, .capacity = 1, .emptyVoltage = 2});
    point(1, "1", "3");
    point(2, "1", "0");
    send(":SEQ:REP 0;:LOAD ON;:SEQ:RUN");
    pass(199s);
    EXPECT_NEAR(channel(1).operatingPoint().voltage, 12 - 10 * 100 * 3 / 3600.0, 0.01);
    pass(1s);
    EXPECT_EQ(query(":SEQ:STAT?"), "RUN,1,101");
}

} // namespace
} // namespace orb
