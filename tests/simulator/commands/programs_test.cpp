// SPDX-License-Identifier: GPL-3.0-or-later
#include "bench.h"

namespace orb {
namespace {

using namespace std::chrono_literals;

constexpr const char* conflict = "-221,\"Settings conflict\"";

/// Three channels on 12 V behind 0.5 ohm. Memory 1 sets channel 1 to 1 A, memory 2 to 2 A and so on up to 5; channel 2
/// is at 0.1 A in all of them.
class ProgramsTest : public BenchTest {
protected:
    ProgramsTest()
    {
        for (int amperes = 1; amperes <= 5; ++amperes) {
            const std::string text = std::to_string(amperes);
            tell(":CURR1 " + text);
            tell(":CURR2 0.1;*SAV " + text);
        }
        tell("*RST");
    }
    /// Writes a step that runs by itself.
    void step(int program, int number, int memory, const std::string& on, const std::string& off)
    {
        tell(":PROG:FILE " + std::to_string(program) + ";:PROG:SEQ " + std::to_string(number));
        tell(":PROG:MEM " + std::to_string(memory) + ";:PROG:SEQ:MODE AUTO;:PROG:ONT " + on + "S;:PROG:OFFT " + off +
             "S");
    }
    double current(int number = 1) const { return channel(number).operatingPoint().current; }
    std::string after(std::chrono::nanoseconds passed)
    {
        time.advance(passed);
        return ask(":PROG:STAT?;:LOAD:ALL?");
    }
};

TEST_F(ProgramsTest, TakesTheCommandsOfADialog)
{
    for (const char* command :
         {":PROG:FILE 3", ":PROG:CHA P05", ":PROG:SEQ 4", ":PROG:MEM 17", ":PROG:SEQ:MODE MANUAL", ":PROG:ONT 1.5S",
          ":PROG:SEQ:SHOR:CHAN 5", ":PROG:OFFT OffS", ":PROG:PFT 0.01S", ":PROG:SEQ:SHOR:TIME 60S", ":PROG:SAVE"})
        tell(command);
    EXPECT_EQ(errors(), noError);
    EXPECT_EQ(ask(":PROG:CHA?;:PROG:MEM?;:PROG:SEQ:MODE?;:PROG:ONT?;:PROG:SEQ:SHOR:CHAN?;:PROG:OFFT?;:PROG:PFT?;"
                  ":PROG:SEQ:SHOR:TIME?"),
              "P05;17;MANUAL;1.5;5;0;0.01;60.0");
    EXPECT_EQ(ask(":PROG:FILE?;:PROG:SEQ?;:PROG:SEQ:DATA?"), "3;4;17,MANUAL,1.5,5,0,0.01,60.0");
}

TEST_F(ProgramsTest, TakesEveryWordOfTheChain)
{
    for (const auto& [word, answer] :
         {std::pair{"P03", "P03"}, {"OFF", "OFF"}, {"12", "P12"}, {"0", "OFF"}, {"p01", "P01"}, {"off", "OFF"}}) {
        tell(std::string(":PROG:CHA ") + word);
        EXPECT_EQ(ask(":PROG:CHA?"), answer) << word;
    }
    tell(":PROG:STAR P07");
    EXPECT_EQ(ask(":PROG:STAR?"), "P07");
    for (const char* bad : {":PROG:CHA P13", ":PROG:CHA 13", ":PROG:CHA P00", ":PROG:STAR OFF", ":PROG:STAR 0"}) {
        tell(bad);
        EXPECT_EQ(errors(), "-224,\"Illegal parameter value\"") << bad;
    }
}

TEST_F(ProgramsTest, TakesEveryFormOfATime)
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
        tell(std::string(":PROG:ONT ") + text);
        EXPECT_EQ(ask(":PROG:ONT?"), answer) << text;
    }
    tell(":PROG:ONT 60.1S");
    tell(":PROG:PFT 119.9S");
    tell(":PROG:PFT 120S");
    EXPECT_EQ(errors(), "-222,\"Data out of range\",-222,\"Data out of range\"");
    EXPECT_EQ(ask(":PROG:PFT?;PFT? MAX;OFFT? MAX"), "119.9;119.9;60.0");
    tell(":PROG:ONT S");
    EXPECT_EQ(errors(), "-224,\"Illegal parameter value\"");
}

TEST_F(ProgramsTest, AFreshStepIsSkippedAndHasTheMemoryOfItsNumber)
{
    EXPECT_EQ(ask(":PROG:SEQ:DATA?;:PROG:CHA?;:PROG:STAR?"), "1,SKIP,0,0,0,0,0;OFF;P01");
    tell(":PROG:FILE 12;:PROG:SEQ 10");
    EXPECT_EQ(ask(":PROG:MEM?;:PROG:SEQ:MODE?"), "120;SKIP");
    for (const char* bad :
         {":PROG:FILE 0", ":PROG:FILE 13", ":PROG:SEQ 0", ":PROG:SEQ 11", ":PROG:MEM 121", ":PROG:SEQ:SHOR:CHAN 256"}) {
        tell(bad);
        EXPECT_EQ(errors(), "-222,\"Data out of range\"") << bad;
    }
}

TEST_F(ProgramsTest, AResetGoesBackToWhatWasSaved)
{
    step(2, 3, 5, "1", "2");
    tell(":PROG:CHA P04;:PROG:SAVE;:PROG:MEM 6;:PROG:STAR P09;*RST");
    EXPECT_EQ(ask(":PROG:FILE?;:PROG:SEQ?;:PROG:STAR?"), "1;1;P01");
    tell(":PROG:FILE 2;:PROG:SEQ 3");
    EXPECT_EQ(ask(":PROG:SEQ:DATA?;:PROG:CHA?"), "5,AUTO,1.0,0,2.0,0,0;P04");
    tell(":PROG:SEQ:CLE");
    EXPECT_EQ(ask(":PROG:SEQ:DATA?"), "0,SKIP,0,0,0,0,0");
    tell(":PROG:CLE");
    EXPECT_EQ(ask(":PROG:SEQ:DATA?;:PROG:CHA?"), "13,SKIP,0,0,0,0,0;OFF");
    tell("*RST;:PROG:FILE 2;:PROG:SEQ 3");
    EXPECT_EQ(ask(":PROG:MEM?"), "5");
}

TEST_F(ProgramsTest, RunsItsStepsOnTheChannelsThatAreOn)
{
    step(1, 1, 1, "2", "1");
    step(1, 3, 3, "1", "0");
    tell(":LOAD1 ON;:PROG:RUN");
    EXPECT_EQ(after(0ms), "RUN,1,1,ON;1,0,0");
    EXPECT_DOUBLE_EQ(current(), 1);
    EXPECT_EQ(after(1999ms), "RUN,1,1,ON;1,0,0");
    EXPECT_EQ(after(1ms), "RUN,1,1,OFF;0,0,0");
    EXPECT_EQ(ask(":PROG:RUN?;:CURR1?;:CURR2?"), "1;1.0000;0.1000") << "a memory holds all channels";
    EXPECT_EQ(after(1s), "RUN,1,3,ON;1,0,0");
    EXPECT_DOUBLE_EQ(current(), 3);
    EXPECT_EQ(after(1s), "IDLE;0,0,0");
    EXPECT_EQ(ask(":PROG:RUN?;:PROG:RES?"), "0;NONE,0,0");
    EXPECT_EQ(errors(), noError);
}

TEST_F(ProgramsTest, NeverSwitchesAnInputOnThatWasOff)
{
    step(1, 1, 1, "1", "1");
    tell(":PROG:RUN");
    EXPECT_EQ(errors(), conflict);
    EXPECT_EQ(after(500ms), "IDLE;0,0,0");
    tell(":LOAD3 ON;:PROG:RUN");
    for (int i = 0; i < 5; ++i) {
        after(500ms);
        EXPECT_EQ(ask(":LOAD1?;:LOAD2?"), "0;0");
    }
}

TEST_F(ProgramsTest, FollowsTheChainFromItsStart)
{
    step(1, 1, 1, "1", "0");
    step(2, 10, 2, "1", "0");
    step(5, 2, 5, "1", "0");
    tell(":PROG:CHA P02;:PROG:FILE 2;:PROG:CHA P01;:PROG:STAR P05;:LOAD ON;:PROG:RUN");
    std::string states;
    for (int second = 0; second < 5; ++second) {
        states += ask(":PROG:STAT?") + ' ';
        time.advance(1s);
    }
    EXPECT_EQ(states, "RUN,5,2,ON RUN,2,10,ON RUN,1,1,ON IDLE IDLE ");
}

TEST_F(ProgramsTest, AChainInACircleRunsUntilItIsStopped)
{
    step(1, 1, 1, "1", "1");
    tell(":PROG:CHA P01;:LOAD ON;:PROG:RUN");
    EXPECT_EQ(after(20s), "RUN,1,1,ON;1,0,0");
    EXPECT_THAT(after(24h), testing::StartsWith("RUN,1,1,O"));
    tell(":PROG:STOP");
    EXPECT_EQ(after(1s), "IDLE;0,0,0");
}

TEST_F(ProgramsTest, ACircleThatHoldsNoStepEnds)
{
    step(1, 1, 1, "1", "0");
    tell(":PROG:CHA P02;:PROG:FILE 2;:PROG:CHA P03;:PROG:FILE 3;:PROG:CHA P02;:LOAD ON;:PROG:RUN");
    EXPECT_EQ(after(1s), "IDLE;0,0,0");
    tell(":PROG:STAR P02;:LOAD ON;:PROG:RUN");
    EXPECT_EQ(errors(), conflict);
    EXPECT_EQ(after(0s), "IDLE;1,0,0") << "what is refused switches nothing";
}

TEST_F(ProgramsTest, PassesOverStepsThatAreSkippedOrHaveNoMemoryOrNoTime)
{
    step(1, 1, 0, "1", "1");
    step(1, 2, 2, "1", "1");
    tell(":PROG:SEQ:MODE SKIP");
    step(1, 3, 3, "Off", "Off");
    step(1, 4, 4, "1", "0");
    tell(":LOAD ON;:PROG:RUN");
    EXPECT_EQ(after(0s), "RUN,1,4,ON;1,0,0");
}

TEST_F(ProgramsTest, AStepWithoutAnOnTimeLeavesTheInputsOff)
{
    step(1, 1, 1, "Off", "2");
    tell(":LOAD ON;:PROG:RUN");
    EXPECT_EQ(after(0s), "RUN,1,1,OFF;0,0,0");
    EXPECT_EQ(after(2s), "IDLE;0,0,0");
}

TEST_F(ProgramsTest, AManualStepWaitsUntilSomebodyGoesOn)
{
    step(1, 1, 1, "1", "2");
    tell(":PROG:SEQ:MODE MAN");
    tell(":PROG:NEXT");
    EXPECT_EQ(errors(), conflict);
    tell(":LOAD ON;:PROG:RUN");
    EXPECT_EQ(after(1h), "RUN,1,1,WAIT;1,0,0");
    tell(":PROG:NEXT");
    EXPECT_EQ(after(1s), "RUN,1,1,OFF;0,0,0");
    tell(":PROG:NEXT");
    EXPECT_EQ(errors(), conflict);
    EXPECT_EQ(after(1s), "IDLE;0,0,0");
}

TEST_F(ProgramsTest, AnInputThatSomebodySwitchesOffLeavesTheRun)
{
    step(1, 1, 1, "1", "1");
    step(1, 2, 2, "1", "1");
    tell(":LOAD:ALL ON;:PROG:RUN;:LOAD3 OFF");
    EXPECT_EQ(after(0s), "RUN,1,1,ON;1,1,0");
    after(1s);
    tell(":LOAD2 OFF"); // in the off-time, where it is off already
    EXPECT_EQ(after(1s), "RUN,1,2,ON;1,0,0");
    tell(":LOAD1 OFF");
    EXPECT_EQ(after(0s), "IDLE;0,0,0") << "no channel is left";
}

TEST_F(ProgramsTest, WhatSwitchesAllOffEndsTheRun)
{
    for (const char* off : {":ABOR", ":LOAD:ALL OFF", "*RCL 1", ":MEM:REC 1", "*RST"}) {
        step(1, 1, 1, "1", "1");
        step(1, 2, 2, "1", "1");
        tell(":LOAD:ALL ON;:PROG:RUN");
        tell(off);
        EXPECT_EQ(after(0s), "IDLE;0,0,0") << off;
        EXPECT_EQ(after(3s), "IDLE;0,0,0") << off;
    }
    EXPECT_EQ(errors(), noError);
}

TEST_F(ProgramsTest, OneRunAtATime)
{
    step(1, 1, 1, "1", "1");
    tell(":SEQ:POIN:TIME 1;:LOAD ON;:SEQ:RUN;:PROG:RUN");
    EXPECT_EQ(errors(), conflict);
    tell(":SEQ:STOP;:LOAD ON;:PROG:RUN;:SEQ:RUN;:PROG:RUN");
    EXPECT_EQ(errors(), std::string(conflict) + ',' + conflict);
    EXPECT_EQ(after(0s), "RUN,1,1,ON;1,0,0");
}

TEST_F(ProgramsTest, ShortsItsChannelsAtFirst)
{
    instrument->connectSource(2, quietSource(3, 1));
    step(1, 1, 1, "1", "0");
    tell(":PROG:SEQ:SHOR:CHAN 6;:PROG:SEQ:SHOR:TIME 0.2S;:LOAD1 ON;:LOAD2 ON;:PROG:RUN");
    after(100ms);
    EXPECT_DOUBLE_EQ(current(1), 1) << "is not in the mask";
    EXPECT_NEAR(current(2), 3 / 1.05, 1e-9) << "the module's own 50 mohm are left";
    EXPECT_FALSE(channel(3).inputOn()) << "is in the mask, but was off";
    after(100ms);
    EXPECT_DOUBLE_EQ(current(2), 0.1);
}

TEST_F(ProgramsTest, AShortIsNotLongerThanTheOnTime)
{
    step(1, 1, 1, "1", "1");
    step(1, 2, 2, "1", "1");
    tell(":PROG:SEQ 1;:PROG:SEQ:SHOR:CHAN 1;:PROG:SEQ:SHOR:TIME 5S");
    instrument->connectSource(1, quietSource(6, 1));
    tell(":LOAD ON;:PROG:RUN");
    EXPECT_EQ(after(500ms), "RUN,1,1,ON;1,0,0");
    EXPECT_TRUE(channel(1).isShort());
    EXPECT_EQ(after(2s), "RUN,1,2,ON;1,0,0");
    EXPECT_FALSE(channel(1).isShort());
    EXPECT_DOUBLE_EQ(current(), 2);
}

TEST_F(ProgramsTest, ProtectionThatTripsTakesTheChannelOutOfTheRun)
{
    step(1, 1, 5, "1", "1");
    step(1, 2, 1, "1", "1");
    instrument->connectSource(1, quietSource(60, 1));
    tell(":LOAD1 ON;:LOAD2 ON;:PROG:RUN");
    EXPECT_EQ(after(500ms), "RUN,1,1,ON;0,1,0");
    EXPECT_EQ(after(2s), "RUN,1,2,ON;0,1,0");
    EXPECT_EQ(ask(":LOAD1:PROT?"), "OP");
}

TEST_F(ProgramsTest, MemoriesCanBeCountedAskedForAndEmptied)
{
    EXPECT_EQ(ask(":MEM:COUN?;USED?;STAT? 5;STAT? 6"), "120;5;1;0");
    EXPECT_THAT(ask(":MEM:STAT?"), testing::StartsWith("1,1,1,1,1,0,"));
    tell(":CURR 1.5;:MEM:SAVE 6;:CURR 2;:MEM:REC 6");
    EXPECT_EQ(ask(":CURR?;:MEM:USED?"), "1.5000;6");
    tell(":MEM:CLE 6;REC 6");
    EXPECT_EQ(ask(":CURR?;:MEM:USED?"), "0.0000;5");
    tell(":MEM:CLE:ALL");
    EXPECT_EQ(ask(":MEM:USED?"), "0");
    tell(":MEM:SAVE 121;:MEM:CLE 0");
    EXPECT_EQ(errors(), "-222,\"Data out of range\",-222,\"Data out of range\"");
}

} // namespace
} // namespace orb
