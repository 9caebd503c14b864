// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_fixture.h"

namespace orb {
namespace {

using namespace std::chrono_literals;

constexpr const char* conflict = "-221,\"Settings conflict\"";

/// Three channels with sources of 12 V and 0.5 ohm. Memory 1 sets channel 1 to 1 A, memory 2 to 2 A and so on up to 5; channel 2
/// is at 0.1 A in all of them.
class ProgramCommandsTest : public InstrumentFixture {
protected:
    ProgramCommandsTest()
    {
        for (int amperes = 1; amperes <= 5; ++amperes) {
            const std::string text = std::to_string(amperes);
            send(":CURR1 " + text);
            send(":CURR2 0.1;*SAV " + text);
        }
        send("*RST");
    }
    /// Writes a step that runs by itself.
    void step(int program, int number, int memory, const std::string& on, const std::string& off)
    {
        send(":PROG:FILE " + std::to_string(program) + ";:PROG:SEQ " + std::to_string(number));
        send(":PROG:MEM " + std::to_string(memory) + ";:PROG:SEQ:MODE AUTO;:PROG:ONT " + on + "S;:PROG:OFFT " + off +
             "S");
    }
    double current(int number = 1) const { return channel(number).operatingPoint().current; }
    std::string after(std::chrono::nanoseconds passed)
    {
        time.advance(passed);
        return query(":PROG:STAT?;:LOAD:ALL?");
    }
};

TEST_F(ProgramCommandsTest, TheCommandsOfADialogAreTaken)
{
    for (const char* command :
         {":PROG:FILE 3", ":PROG:CHA P05", ":PROG:SEQ 4", ":PROG:MEM 17", ":PROG:SEQ:MODE MANUAL", ":PROG:ONT 1.5S",
          ":PROG:SEQ:SHOR:CHAN 5", ":PROG:OFFT OffS", ":PROG:PFT 0.01S", ":PROG:SEQ:SHOR:TIME 60S", ":PROG:SAVE"})
        send(command);
    EXPECT_EQ(errors(), noError);
    EXPECT_EQ(query(":PROG:CHA?;:PROG:MEM?;:PROG:SEQ:MODE?;:PROG:ONT?;:PROG:SEQ:SHOR:CHAN?;:PROG:OFFT?;:PROG:PFT?;"
                    ":PROG:SEQ:SHOR:TIME?"),
              "P05;17;MANUAL;1.5;5;0;0.01;60.0");
    EXPECT_EQ(query(":PROG:FILE?;:PROG:SEQ?;:PROG:SEQ:DATA?"), "3;4;17,MANUAL,1.5,5,0,0.01,60.0");
}

TEST_F(ProgramCommandsTest, EveryWordOfTheChainIsRead)
{
    for (const auto& [word, answer] :
         {std::pair{"P03", "P03"}, {"OFF", "OFF"}, {"12", "P12"}, {"0", "OFF"}, {"p01", "P01"}, {"off", "OFF"}}) {
        send(std::string(":PROG:CHA ") + word);
        EXPECT_EQ(query(":PROG:CHA?"), answer) << word;
    }
    send(":PROG:STAR P07");
    EXPECT_EQ(query(":PROG:STAR?"), "P07");
    for (const char* bad : {":PROG:CHA P13", ":PROG:CHA 13", ":PROG:CHA P00", ":PROG:STAR OFF", ":PROG:STAR 0"}) {
        send(bad);
        EXPECT_EQ(errors(), "-224,\"Illegal parameter value\"") << bad;
    }
}

TEST_F(ProgramCommandsTest, ATimeIsReadInEveryForm)
{
    for (const auto& [text, answer] : {std::pair{"1.5S", "1.5"},
                                       {"0.01S", "0.01"},
                                       {"59.99 s", "59.99"},
                                       {"250ms", "0.25"},
                                       {"2", "2.0"},
                                       {"0S", "0"},
                                       {"Off", "0"},
                                       {"OffS", "0"},
                                       {"MAX", "60.0"},
                                       {"MIN", "0"}}) {
        send(std::string(":PROG:ONT ") + text);
        EXPECT_EQ(query(":PROG:ONT?"), answer) << text;
    }
    send(":PROG:ONT 60.1S");
    send(":PROG:PFT 119.9S");
    send(":PROG:PFT 120S");
    EXPECT_EQ(errors(), "-222,\"Data out of range\",-222,\"Data out of range\"");
    EXPECT_EQ(query(":PROG:PFT?;PFT? MAX;OFFT? MAX"), "119.9;119.9;60.0");
    send(":PROG:ONT S");
    EXPECT_EQ(errors(), "-224,\"Illegal parameter value\"");
}

TEST_F(ProgramCommandsTest, AFreshStepIsSkippedAndHasTheMemoryOfItsNumber)
{
    EXPECT_EQ(query(":PROG:SEQ:DATA?;:PROG:CHA?;:PROG:STAR?"), "1,SKIP,0,0,0,0,0;OFF;P01");
    send(":PROG:FILE 12;:PROG:SEQ 10");
    EXPECT_EQ(query(":PROG:MEM?;:PROG:SEQ:MODE?"), "120;SKIP");
    for (const char* bad :
         {":PROG:FILE 0", ":PROG:FILE 13", ":PROG:SEQ 0", ":PROG:SEQ 11", ":PROG:MEM 121", ":PROG:SEQ:SHOR:CHAN 256"}) {
        send(bad);
        EXPECT_EQ(errors(), "-222,\"Data out of range\"") << bad;
    }
}

TEST_F(ProgramCommandsTest, AResetReturnsToTheSavedPrograms)
{
    step(2, 3, 5, "1", "2");
    send(":PROG:CHA P04;:PROG:SAVE;:PROG:MEM 6;:PROG:STAR P09;*RST");
    EXPECT_EQ(query(":PROG:FILE?;:PROG:SEQ?;:PROG:STAR?"), "1;1;P01");
    send(":PROG:FILE 2;:PROG:SEQ 3");
    EXPECT_EQ(query(":PROG:SEQ:DATA?;:PROG:CHA?"), "5,AUTO,1.0,0,2.0,0,0;P04");
    send(":PROG:SEQ:CLE");
    EXPECT_EQ(query(":PROG:SEQ:DATA?"), "0,SKIP,0,0,0,0,0");
    send(":PROG:CLE");
    EXPECT_EQ(query(":PROG:SEQ:DATA?;:PROG:CHA?"), "13,SKIP,0,0,0,0,0;OFF");
    send("*RST;:PROG:FILE 2;:PROG:SEQ 3");
    EXPECT_EQ(query(":PROG:MEM?"), "5");
}

TEST_F(ProgramCommandsTest, ARunExecutesItsStepsOnTheChannelsThatAreOn)
{
    step(1, 1, 1, "2", "1");
    step(1, 3, 3, "1", "0");
    send(":LOAD1 ON;:PROG:RUN");
    EXPECT_EQ(after(0ms), "RUN,1,1,ON;1,0,0");
    EXPECT_DOUBLE_EQ(current(), 1);
    EXPECT_EQ(after(1999ms), "RUN,1,1,ON;1,0,0");
    EXPECT_EQ(after(1ms), "RUN,1,1,OFF;0,0,0");
    EXPECT_EQ(query(":PROG:RUN?;:CURR1?;:CURR2?"), "1;1.0000;0.1000") << "a memory holds all channels";
    EXPECT_EQ(after(1s), "RUN,1,3,ON;1,0,0");
    EXPECT_DOUBLE_EQ(current(), 3);
    EXPECT_EQ(after(1s), "IDLE;0,0,0");
    EXPECT_EQ(query(":PROG:RUN?;:PROG:RES?"), "0;NONE,0,0");
    EXPECT_EQ(errors(), noError);
}

TEST_F(ProgramCommandsTest, ARunNeverSwitchesAnInputOnThatWasOff)
{
    step(1, 1, 1, "1", "1");
    send(":PROG:RUN");
    EXPECT_EQ(errors(), conflict);
    EXPECT_EQ(after(500ms), "IDLE;0,0,0");
    send(":LOAD3 ON;:PROG:RUN");
    for (int i = 0; i < 5; ++i) {
        after(500ms);
        EXPECT_EQ(query(":LOAD1?;:LOAD2?"), "0;0");
    }
}

TEST_F(ProgramCommandsTest, ARunFollowsTheChainFromItsStart)
{
    step(1, 1, 1, "1", "0");
    step(2, 10, 2, "1", "0");
    step(5, 2, 5, "1", "0");
    send(":PROG:CHA P02;:PROG:FILE 2;:PROG:CHA P01;:PROG:STAR P05;:LOAD ON;:PROG:RUN");
    std::string states;
    for (int second = 0; second < 5; ++second) {
        states += query(":PROG:STAT?") + ' ';
        time.advance(1s);
    }
    EXPECT_EQ(states, "RUN,5,2,ON RUN,2,10,ON RUN,1,1,ON IDLE IDLE ");
}

TEST_F(ProgramCommandsTest, AChainThatIsALoopRunsUntilItIsStopped)
{
    step(1, 1, 1, "1", "1");
    send(":PROG:CHA P01;:LOAD ON;:PROG:RUN");
    EXPECT_EQ(after(20s), "RUN,1,1,ON;1,0,0");
    EXPECT_THAT(after(24h), testing::StartsWith("RUN,1,1,O"));
    send(":PROG:STOP");
    EXPECT_EQ(after(1s), "IDLE;0,0,0");
}

TEST_F(ProgramCommandsTest, ALoopWithoutAnyStepEnds)
{
    step(1, 1, 1, "1", "0");
    send(":PROG:CHA P02;:PROG:FILE 2;:PROG:CHA P03;:PROG:FILE 3;:PROG:CHA P02;:LOAD ON;:PROG:RUN");
    EXPECT_EQ(after(1s), "IDLE;0,0,0");
    send(":PROG:STAR P02;:LOAD ON;:PROG:RUN");
    EXPECT_EQ(errors(), conflict);
    EXPECT_EQ(after(0s), "IDLE;1,0,0") << "what is refused switches nothing";
}

TEST_F(ProgramCommandsTest, StepsWithoutModeMemoryOrTimeAreSkipped)
{
    step(1, 1, 0, "1", "1");
    step(1, 2, 2, "1", "1");
    send(":PROG:SEQ:MODE SKIP");
    step(1, 3, 3, "Off", "Off");
    step(1, 4, 4, "1", "0");
    send(":LOAD ON;:PROG:RUN");
    EXPECT_EQ(after(0s), "RUN,1,4,ON;1,0,0");
}

TEST_F(ProgramCommandsTest, AStepWithoutAnOnTimeLeavesTheInputsOff)
{
    step(1, 1, 1, "Off", "2");
    send(":LOAD ON;:PROG:RUN");
    EXPECT_EQ(after(0s), "RUN,1,1,OFF;0,0,0");
    EXPECT_EQ(after(2s), "IDLE;0,0,0");
}

TEST_F(ProgramCommandsTest, AManualStepWaitsForTheNextCommand)
{
    step(1, 1, 1, "1", "2");
    send(":PROG:SEQ:MODE MAN");
    send(":PROG:NEXT");
    EXPECT_EQ(errors(), conflict);
    send(":LOAD ON;:PROG:RUN");
    EXPECT_EQ(after(1h), "RUN,1,1,WAIT;1,0,0");
    send(":PROG:NEXT");
    EXPECT_EQ(after(1s), "RUN,1,1,OFF;0,0,0");
    send(":PROG:NEXT");
    EXPECT_EQ(errors(), conflict);
    EXPECT_EQ(after(1s), "IDLE;0,0,0");
}

TEST_F(ProgramCommandsTest, AnInputThatACommandSwitchesOffLeavesTheRun)
{
    step(1, 1, 1, "1", "1");
    step(1, 2, 2, "1", "1");
    send(":LOAD:ALL ON;:PROG:RUN;:LOAD3 OFF");
    EXPECT_EQ(after(0s), "RUN,1,1,ON;1,1,0");
    after(1s);
    send(":LOAD2 OFF"); // in the off-time, where it is off already
    EXPECT_EQ(after(1s), "RUN,1,2,ON;1,0,0");
    send(":LOAD1 OFF");
    EXPECT_EQ(after(0s), "IDLE;0,0,0") << "no channel is left";
}

TEST_F(ProgramCommandsTest, ACommandThatSwitchesAllInputsOffEndsTheRun)
{
    for (const char* off : {":ABOR", ":LOAD:ALL OFF", "*RCL 1", ":MEM:REC 1", "*RST"}) {
        step(1, 1, 1, "1", "1");
        step(1, 2, 2, "1", "1");
        send(":LOAD:ALL ON;:PROG:RUN");
        send(off);
        EXPECT_EQ(after(0s), "IDLE;0,0,0") << off;
        EXPECT_EQ(after(3s), "IDLE;0,0,0") << off;
    }
    EXPECT_EQ(errors(), noError);
}

TEST_F(ProgramCommandsTest, OnlyOneRunIsPossibleAtATime)
{
    step(1, 1, 1, "1", "1");
    send(":SEQ:POIN:TIME 1;:LOAD ON;:SEQ:RUN;:PROG:RUN");
    EXPECT_EQ(errors(), conflict);
    send(":SEQ:STOP;:LOAD ON;:PROG:RUN;:SEQ:RUN;:PROG:RUN");
    EXPECT_EQ(errors(), std::string(conflict) + ',' + conflict);
    EXPECT_EQ(after(0s), "RUN,1,1,ON;1,0,0");
}

TEST_F(ProgramCommandsTest, AStepShortsItsChannelsAtFirst)
{
    instrument->connectSource(2, quietSource(3, 1));
    step(1, 1, 1, "1", "0");
    send(":PROG:SEQ:SHOR:CHAN 6;:PROG:SEQ:SHOR:TIME 0.2S;:LOAD1 ON;:LOAD2 ON;:PROG:RUN");
    after(100ms);
    EXPECT_DOUBLE_EQ(current(1), 1) << "is not in the mask";
    EXPECT_NEAR(current(2), 3 / 1.05, 1e-9) << "the module's own 50 mohm are left";
    EXPECT_FALSE(channel(3).inputOn()) << "is in the mask, but was off";
    after(100ms);
    EXPECT_DOUBLE_EQ(current(2), 0.1);
}

TEST_F(ProgramCommandsTest, AShortIsNotLongerThanTheOnTime)
{
    step(1, 1, 1, "1", "1");
    step(1, 2, 2, "1", "1");
    send(":PROG:SEQ 1;:PROG:SEQ:SHOR:CHAN 1;:PROG:SEQ:SHOR:TIME 5S");
    instrument->connectSource(1, quietSource(6, 1));
    send(":LOAD ON;:PROG:RUN");
    EXPECT_EQ(after(500ms), "RUN,1,1,ON;1,0,0");
    EXPECT_TRUE(channel(1).isShort());
    EXPECT_EQ(after(2s), "RUN,1,2,ON;1,0,0");
    EXPECT_FALSE(channel(1).isShort());
    EXPECT_DOUBLE_EQ(current(), 2);
}

TEST_F(ProgramCommandsTest, ProtectionThatTripsTakesTheChannelOutOfTheRun)
{
    step(1, 1, 5, "1", "1");
    step(1, 2, 1, "1", "1");
    instrument->connectSource(1, quietSource(60, 1));
    send(":LOAD1 ON;:LOAD2 ON;:PROG:RUN");
    EXPECT_EQ(after(500ms), "RUN,1,1,ON;0,1,0");
    EXPECT_EQ(after(2s), "RUN,1,2,ON;0,1,0");
    EXPECT_EQ(query(":LOAD1:PROT?"), "OP");
}

TEST_F(ProgramCommandsTest, AProgramJudgesAtItsTime)
{
    send(":CURR 2;:LIM ON;:LIM:VOLT:LOW 10;*SAV 1;:CURR 5;*SAV 2;*RST");
    const char* step = ":PROG:SEQ:MODE AUTO;:PROG:ONT 1S;:PROG:PFT 0.5S";
    send(step);
    send(std::string(":PROG:SEQ 2;") + step);
    send(":PROG:MEM 2;:LOAD ON;:PROG:RUN");
    time.advance(499ms);
    EXPECT_EQ(query(":PROG:RES?"), "NONE,0,0");
    time.advance(1ms);
    EXPECT_EQ(query(":PROG:RES?"), "PASS,1,0");
    time.advance(10s);
    EXPECT_EQ(query(":PROG:RES?;:PROG:STAT?"), "FAIL,2,1;IDLE") << "9.5 V";
}

TEST_F(ProgramCommandsTest, AProgramJudgesAtTheEndOfTheOnTimeAtTheLatest)
{
    send(":CURR 2;:LIM ON;:LIM:CURR:LOW 1;*SAV 1;*RST");
    send(":PROG:SEQ:MODE AUTO;:PROG:ONT 1S;:PROG:OFFT 9S;:PROG:PFT 5S;:LOAD ON;:PROG:RUN");
    time.advance(10s);
    EXPECT_EQ(query(":PROG:RES?"), "PASS,1,0") << "while the input is still on";
}

TEST_F(ProgramCommandsTest, AProgramFailsAStepInWhichProtectionTrips)
{
    send(":CURR 5;:LOAD:PROT:CURR 4;*SAV 1;*RST;:PROG:SEQ:MODE AUTO;:PROG:ONT 1S;:PROG:PFT 5S;:LOAD ON;:PROG:RUN");
    time.advance(1s);
    EXPECT_EQ(query(":PROG:RES?;:PROG:STAT?;:LOAD:PROT?"), "FAIL,1,1;IDLE;OC");
}

TEST_F(ProgramCommandsTest, ABatteryDrainsByAllStepsBetweenTwoMessages)
{
    instrument->connectSource(1, {.openCircuitVoltage = 12, .seriesResistance = 0, .capacity = 1, .emptyVoltage = 2});
    step(1, 1, 2, "60", "30");
    step(1, 2, 5, "36", "0");
    send(":LOAD ON;:PROG:RUN");
    EXPECT_EQ(after(1h), "IDLE;0,0,0");
    EXPECT_NEAR(channel(1).operatingPoint().voltage, 12 - 10 * (2 * 60 + 5 * 36) / 3600.0, 1e-9);
}

TEST_F(ProgramCommandsTest, ProtectionTripsInAStepBetweenTwoMessages)
{
    instrument->connectSource(1, quietSource(60, 1));
    step(1, 1, 1, "1", "1");
    step(1, 2, 5, "1", "1");
    step(1, 3, 1, "1", "1");
    send(":PROG:SEQ 2;:PROG:PFT 0.5S;:LOAD1 ON;:LOAD2 ON;:PROG:RUN");
    EXPECT_EQ(after(1h), "IDLE;0,0,0");
    EXPECT_EQ(query(":PROG:RES?;:LOAD1:PROT?"), "FAIL,1,1;OP");
}

TEST_F(ProgramCommandsTest, ASourceThatSwingsIsFollowedThroughTheSteps)
{
    // 12 V at 0 s, 20 V at 10 s, 12 V at 20 s.
    instrument->connectSource(1, {.openCircuitVoltage = 12, .seriesResistance = 0, .swing = 8, .swingPeriod = 40});
    send(":LIM1 ON;:LIM1:VOLT:HIGH 19;*SAV 6;*RST");
    step(1, 1, 6, "5", "5");
    step(1, 2, 6, "5", "0");
    send(":PROG:SEQ 1;:PROG:PFT 1S;:PROG:SEQ 2;:PROG:PFT 1S;:LOAD1 ON;:PROG:RUN");
    EXPECT_EQ(after(1h), "IDLE;0,0,0");
    EXPECT_EQ(query(":PROG:RES?"), "FAIL,2,1") << "13.25 V at 1 s, 19.9 V at 11 s";
}

TEST_F(ProgramCommandsTest, AThousandChangesAreMadeAtOnceAndTheOthersPostponed)
{
    step(1, 1, 1, "1", "1");
    send(":PROG:PFT 0.5S;:PROG:CHA P01;:LOAD ON;:PROG:RUN");
    after(24h);
    EXPECT_EQ(query(":PROG:RES?"), "PASS,334,0") << "three changes a round";
    EXPECT_EQ(after(0s), "RUN,1,1,OFF;0,0,0") << "the next change was postponed to that time";
    EXPECT_EQ(after(1s), "RUN,1,1,ON;1,0,0");
}

} // namespace
} // namespace orb
