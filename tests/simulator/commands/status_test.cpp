// SPDX-License-Identifier: GPL-3.0-or-later
#include "bench.h"
#include "instrument_error.h"
#include "status_registers.h"

#include <set>

namespace orb {
namespace {

class StatusTest : public BenchTest {};

TEST_F(StatusTest, TheQueueGivesErrorsInTheirOrderAndCountsThem)
{
    tell(":FOO");
    tell(":CURR");
    tell(":CURR 99");
    EXPECT_EQ(ask(":SYST:ERR:COUN?"), "3");
    EXPECT_EQ(ask(":SYST:ERR?;:SYST:ERR:NEXT?"), "-113,\"Undefined header\";-109,\"Missing parameter\"");
    EXPECT_EQ(ask(":SYST:ERR:COUN?"), "1");
    EXPECT_EQ(errors(), "-222,\"Data out of range\"");
    EXPECT_EQ(errors(), noError);
}

TEST_F(StatusTest, TheQueueEndsInAnOverflow)
{
    for (std::size_t i = 0; i < StatusRegisters::queueCapacity + 10; ++i)
        tell(":FOO");
    EXPECT_EQ(ask(":SYST:ERR:COUN?"), std::to_string(StatusRegisters::queueCapacity));
    for (std::size_t i = 0; i + 1 < StatusRegisters::queueCapacity; ++i)
        EXPECT_EQ(ask(":SYST:ERR?"), "-113,\"Undefined header\"");
    EXPECT_EQ(ask(":SYST:ERR?"), "-350,\"Queue overflow\"");
    EXPECT_EQ(ask(":SYST:ERR?"), noError);
}

TEST_F(StatusTest, ClearingEmptiesTheQueueAndTheEvents)
{
    tell(":FOO");
    tell("*CLS");
    EXPECT_EQ(ask("*STB?;*ESR?"), "0;0");
    EXPECT_EQ(errors(), noError);
}

TEST_F(StatusTest, TellsThatItWasSwitchedOn)
{
    EXPECT_EQ(ask("*ESR?"), "128");
    EXPECT_EQ(ask("*ESR?"), "0");
}

TEST_F(StatusTest, EachClassOfErrorsHasItsEvent)
{
    ask("*ESR?");
    tell(":FOO");
    EXPECT_EQ(ask("*ESR?"), "32");
    tell(":CURR 99");
    EXPECT_EQ(ask("*ESR?"), "16");
    instrument->reportOverrun();
    EXPECT_EQ(ask("*ESR?"), "8");
    StatusRegisters registers;
    registers.clear();
    registers.report(ErrorNumber::QueryDeadlocked);
    EXPECT_EQ(registers.takeStandardEvent(), StatusRegisters::QueryError);
}

TEST_F(StatusTest, OperationCompleteIsAnEvent)
{
    tell("*CLS;*OPC");
    EXPECT_EQ(ask("*ESR?"), "1");
}

TEST_F(StatusTest, TheStatusByteSumsUpWhatIsEnabled)
{
    tell("*CLS");
    EXPECT_EQ(ask("*STB?"), "0");
    tell(":FOO");
    EXPECT_EQ(ask("*STB?"), "4") << "an error is there, and no event counts";
    tell("*ESE 32");
    EXPECT_EQ(ask("*STB?"), "36");
    tell("*SRE 32");
    EXPECT_EQ(ask("*STB?"), "100");
    EXPECT_EQ(ask("*ESE?;*SRE?"), "32;32");
}

TEST_F(StatusTest, AnEarlierAnswerOfTheSameMessageCountsAsAvailable)
{
    EXPECT_EQ(ask("*CLS;*STB?"), "0");
    EXPECT_EQ(ask("*OPC?;*STB?"), "1;16");
}

TEST_F(StatusTest, TheMasterSummaryEnablesNothing)
{
    tell("*SRE 255");
    EXPECT_EQ(ask("*SRE?"), "191");
}

TEST_F(StatusTest, QuestionableEventsCountOnceEnabled)
{
    instrument->connectSource(1, quietSource(90, 1));
    tell("*CLS;:LOAD ON");
    EXPECT_EQ(ask("*STB?"), "0");
    tell(":STAT:QUES:ENAB 1");
    EXPECT_EQ(ask("*STB?;:STAT:QUES:ENAB?"), "8;1");
    tell(":STAT:PRES");
    EXPECT_EQ(ask("*STB?;:STAT:QUES:ENAB?"), "0;0");
}

TEST_F(StatusTest, AConditionIsAnEventOnlyWhenItBegins)
{
    instrument->connectSource(1, quietSource(90, 1));
    tell(":LOAD ON");
    EXPECT_EQ(ask(":STAT:QUES:EVEN?"), "1");
    EXPECT_EQ(ask(":STAT:QUES:EVEN?;COND?"), "0;1");
    tell(":LOAD ON");
    EXPECT_EQ(ask(":STAT:QUES:EVEN?"), "0") << "it never went away between";
}

TEST_F(StatusTest, ATripThatTimeBroughtIsAnEvent)
{
    instrument->connectSource(1, {.openCircuitVoltage = 80, .seriesResistance = 1, .swing = 10, .swingPeriod = 40});
    tell(":LOAD ON");
    EXPECT_EQ(ask(":STAT:QUES:EVEN?"), "0");
    time.advance(std::chrono::seconds(10));
    EXPECT_EQ(ask(":STAT:QUES:EVEN?;:LOAD?"), "1;0");
}

TEST_F(StatusTest, MasksStayInTheirBounds)
{
    for (const char* message : {"*ESE 256", "*ESE -1", "*SRE 256", ":STAT:QUES:ENAB 32768"}) {
        tell(message);
        EXPECT_EQ(errors(), "-222,\"Data out of range\"") << message;
    }
}

TEST(InstrumentError, EveryNumberHasItsOwnText)
{
    std::set<std::string_view> texts;
    for (const ErrorNumber number : allErrors())
        EXPECT_TRUE(texts.insert(errorText(number)).second) << static_cast<int>(number);
    EXPECT_EQ(errorEntry(ErrorNumber::NoError), "0,\"No error\"");
}

} // namespace
} // namespace orb
