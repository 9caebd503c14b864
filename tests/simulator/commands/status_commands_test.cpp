// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_error.h"
#include "instrument_fixture.h"
#include "status_registers.h"

#include <set>

namespace orb {
namespace {

class StatusCommandsTest : public InstrumentFixture {};

TEST_F(StatusCommandsTest, TheQueueReturnsErrorsInTheirOrderAndCountsThem)
{
    send(":FOO");
    send(":CURR");
    send(":CURR 99");
    EXPECT_EQ(query(":SYST:ERR:COUN?"), "3");
    EXPECT_EQ(query(":SYST:ERR?;:SYST:ERR:NEXT?"), "-113,\"Undefined header\";-109,\"Missing parameter\"");
    EXPECT_EQ(query(":SYST:ERR:COUN?"), "1");
    EXPECT_EQ(errors(), "-222,\"Data out of range\"");
    EXPECT_EQ(errors(), noError);
}

TEST_F(StatusCommandsTest, TheQueueEndsInAnOverflow)
{
    for (std::size_t i = 0; i < StatusRegisters::queueCapacity + 10; ++i)
        send(":FOO");
    EXPECT_EQ(query(":SYST:ERR:COUN?"), std::to_string(StatusRegisters::queueCapacity));
    for (std::size_t i = 0; i + 1 < StatusRegisters::queueCapacity; ++i)
        EXPECT_EQ(query(":SYST:ERR?"), "-113,\"Undefined header\"");
    EXPECT_EQ(query(":SYST:ERR?"), "-350,\"Queue overflow\"");
    EXPECT_EQ(query(":SYST:ERR?"), noError);
}

TEST_F(StatusCommandsTest, AnOverflowOfTheQueueIsADeviceError)
{
    send("*CLS");
    for (std::size_t i = 0; i < StatusRegisters::queueCapacity; ++i)
        send(":FOO");
    EXPECT_EQ(query("*ESR?"), "32") << "a full queue is none yet";
    send(":FOO");
    EXPECT_EQ(query("*ESR?"), "40");
}

TEST_F(StatusCommandsTest, ClearingEmptiesTheQueueAndTheEventRegisters)
{
    send(":FOO");
    send("*CLS");
    EXPECT_EQ(query("*STB?;*ESR?"), "0;0");
    EXPECT_EQ(errors(), noError);
}

TEST_F(StatusCommandsTest, SwitchingOnIsAnEvent)
{
    EXPECT_EQ(query("*ESR?"), "128");
    EXPECT_EQ(query("*ESR?"), "0");
}

TEST_F(StatusCommandsTest, EachClassOfErrorsHasItsEvent)
{
    query("*ESR?");
    send(":FOO");
    EXPECT_EQ(query("*ESR?"), "32");
    send(":CURR 99");
    EXPECT_EQ(query("*ESR?"), "16");
    instrument->reportOverrun();
    EXPECT_EQ(query("*ESR?"), "8");
    StatusRegisters registers;
    registers.clear();
    registers.report(ErrorNumber::QueryDeadlocked);
    EXPECT_EQ(registers.takeStandardEvent(), StatusRegisters::QueryError);
}

TEST_F(StatusCommandsTest, OperationCompleteIsAnEvent)
{
    send("*CLS;*OPC");
    EXPECT_EQ(query("*ESR?"), "1");
}

TEST_F(StatusCommandsTest, TheStatusByteSummarizesEnabledEvents)
{
    send("*CLS");
    EXPECT_EQ(query("*STB?"), "0");
    send(":FOO");
    EXPECT_EQ(query("*STB?"), "4") << "an error is there, and no event counts";
    send("*ESE 32");
    EXPECT_EQ(query("*STB?"), "36");
    send("*SRE 32");
    EXPECT_EQ(query("*STB?"), "100");
    EXPECT_EQ(query("*ESE?;*SRE?"), "32;32");
}

TEST_F(StatusCommandsTest, AnEarlierAnswerOfTheSameMessageCountsAsAvailable)
{
    EXPECT_EQ(query("*CLS;*STB?"), "0");
    EXPECT_EQ(query("*OPC?;*STB?"), "1;16");
}

TEST_F(StatusCommandsTest, TheMasterSummaryCanNotBeEnabled)
{
    send("*SRE 255");
    EXPECT_EQ(query("*SRE?"), "191");
}

TEST_F(StatusCommandsTest, AnEnabledQuestionableEventCountsInTheStatusByte)
{
    instrument->connectSource(1, quietSource(90, 1));
    send("*CLS;:LOAD ON");
    EXPECT_EQ(query("*STB?"), "0");
    send(":STAT:QUES:ENAB 1");
    EXPECT_EQ(query("*STB?;:STAT:QUES:ENAB?"), "8;1");
    send(":STAT:PRES");
    EXPECT_EQ(query("*STB?;:STAT:QUES:ENAB?"), "0;0");
}

TEST_F(StatusCommandsTest, AConditionIsAnEventOnlyWhenItBegins)
{
    instrument->connectSource(1, quietSource(90, 1));
    send(":LOAD ON");
    EXPECT_EQ(query(":STAT:QUES:EVEN?"), "1");
    EXPECT_EQ(query(":STAT:QUES:EVEN?;COND?"), "0;1");
    send(":LOAD ON");
    EXPECT_EQ(query(":STAT:QUES:EVEN?"), "0") << "it never went away between";
}

TEST_F(StatusCommandsTest, ATripBetweenTwoMessagesIsAnEvent)
{
    instrument->connectSource(1, {.openCircuitVoltage = 80, .seriesResistance = 1, .swing = 10, .swingPeriod = 40});
    send(":LOAD ON");
    EXPECT_EQ(query(":STAT:QUES:EVEN?"), "0");
    time.advance(std::chrono::seconds(10));
    EXPECT_EQ(query(":STAT:QUES:EVEN?;:LOAD?"), "1;0");
}

TEST_F(StatusCommandsTest, AMaskOutOfRangeIsAnError)
{
    for (const char* message : {"*ESE 256", "*ESE -1", "*SRE 256", ":STAT:QUES:ENAB 32768"}) {
        send(message);
        EXPECT_EQ(errors(), "-222,\"Data out of range\"") << message;
    }
}

TEST_F(StatusCommandsTest, ARunningSequenceIsAnOperationCondition)
{
    send(":SEQ:POIN:TIME 1;:LOAD ON;:STAT:OPER:NTR 256");
    EXPECT_EQ(query(":STAT:OPER:COND?"), "0");
    send(":SEQ:RUN");
    EXPECT_EQ(query(":STAT:OPER:COND?;EVEN?;EVEN?"), "256;256;0");
    time.advance(std::chrono::seconds(1));
    EXPECT_EQ(query(":STAT:OPER:COND?;:STAT:OPER?"), "0;256") << "the end is an event of its own";
}

TEST_F(StatusCommandsTest, ARunningProgramAndItsWaitAreOperationConditions)
{
    send(":PROG:SEQ:MODE MAN;:PROG:OFFT 1;:LOAD ON;:PROG:RUN");
    EXPECT_EQ(query(":STAT:OPER:COND?"), "16416") << "16384 a program runs, 32 it waits";
    send(":PROG:NEXT");
    EXPECT_EQ(query(":STAT:OPER:COND?"), "16384");
    send(":PROG:STOP");
    EXPECT_EQ(query(":STAT:OPER:COND?;EVEN?"), "0;16416");
}

TEST_F(StatusCommandsTest, AnEnabledOperationEventCountsInTheStatusByte)
{
    send("*CLS;*SRE 128;:STAT:OPER:ENAB 256;:SEQ:POIN:TIME 1;:LOAD ON;:SEQ:RUN");
    EXPECT_EQ(query("*STB?;*SRE?"), "192;128");
    send("*CLS");
    EXPECT_EQ(query("*STB?;:STAT:OPER:COND?;ENAB?"), "0;256;256");
}

TEST_F(StatusCommandsTest, EachGroupHasItsMaskAndItsFilters)
{
    EXPECT_EQ(query(":STAT:OPER:ENAB?;PTR?;NTR?;:STAT:QUES:ENAB?;PTR?;NTR?"), "0;32767;0;0;32767;0");
    send(":STAT:OPER:ENAB 1;PTR 2;NTR 3;:STAT:QUES:ENAB 4;PTR 5;NTR 6;*RST;*CLS");
    EXPECT_EQ(query(":STAT:OPER:ENAB?;PTR?;NTR?;:STAT:QUES:ENAB?;PTR?;NTR?"), "1;2;3;4;5;6");
    send(":STAT:PRES");
    EXPECT_EQ(query(":STAT:OPER:ENAB?;PTR?;NTR?;:STAT:QUES:ENAB?;PTR?;NTR?"), "0;32767;0;0;32767;0");
}

} // namespace
} // namespace orb
