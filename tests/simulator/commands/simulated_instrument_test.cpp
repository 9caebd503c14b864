// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_fixture.h"
#include "status_registers.h"

namespace orb {
namespace {

class SimulatedInstrumentTest : public InstrumentFixture {};

TEST_F(SimulatedInstrumentTest, TheIdentityIsAnswered)
{
    EXPECT_EQ(query("*IDN?"), "ZN,ORB3000,SIM0001,1.0");
}

TEST_F(SimulatedInstrumentTest, AHeaderMayHaveAnyLetterCaseAndNoColon)
{
    for (const char* header : {":CHAN:COUN?", "CHAN:COUN?", "channel:count?", ":Channel:COUN?"})
        EXPECT_EQ(query(header), "3") << header;
}

TEST_F(SimulatedInstrumentTest, WhiteSpaceMaySurroundHeadersAndParameters)
{
    send(" \t :CURR   1.5  A \r");
    EXPECT_EQ(query("\t:CURR? \t;  :CHAN? "), "1.5000;1");
    EXPECT_EQ(errors(), noError);
}

TEST_F(SimulatedInstrumentTest, TheAnswersOfOneMessageAreJoined)
{
    EXPECT_EQ(query("*OPC?;:CHAN:COUN?;*TST?"), "1;3;0");
}

TEST_F(SimulatedInstrumentTest, AJoinedHeaderContinuesFromTheOneBeforeIt)
{
    EXPECT_EQ(query(":CURR:STAT:L1 1;L2 2;L1?;L2?"), "1.0000;2.0000");
    EXPECT_EQ(query(":FETC:ALLC?;ALLV?"), "0.0000,0.0000,0.0000,;12.0000,12.0000,12.0000,");
    EXPECT_EQ(errors(), noError);
}

TEST_F(SimulatedInstrumentTest, AJoinedHeaderWithAColonStartsAtTheRoot)
{
    EXPECT_EQ(query(":CURR:STAT:L1 1;:CHAN 2;:CURR:STAT:L1?;:CHAN?"), "0.0000;2");
    send(":CURR:STAT:L1 1;CHAN 2");
    EXPECT_EQ(errors(), "-113,\"Undefined header\"");
}

TEST_F(SimulatedInstrumentTest, CommonCommandsDoNotChangeThePath)
{
    EXPECT_EQ(query(":CURR:STAT:L1 1;*OPC?;L1?"), "1;1.0000");
    EXPECT_EQ(errors(), noError);
}

TEST_F(SimulatedInstrumentTest, AJoinedHeaderInheritsTheChannelNumber)
{
    EXPECT_EQ(query(":CURR2:STAT:L1 1;L1?;:CURR1?"), "1.0000;0.0000");
}

TEST_F(SimulatedInstrumentTest, EachMessageStartsAtTheRoot)
{
    send(":CURR:STAT:L1 1");
    send("L1 2");
    EXPECT_EQ(errors(), "-113,\"Undefined header\"");
}

TEST_F(SimulatedInstrumentTest, TheCommandsAfterABadOneAreExecuted)
{
    EXPECT_EQ(query("*OPC?;:FOO?;:CURR 99;:CHAN:COUN?"), "1;3");
    EXPECT_EQ(errors(), "-113,\"Undefined header\",-222,\"Data out of range\"");
}

TEST_F(SimulatedInstrumentTest, ABadCommandHasNoAnswerAndOneError)
{
    EXPECT_EQ(query(":FETC:ALLX?"), "");
    EXPECT_EQ(query("SYST:ERR?"), "-113,\"Undefined header\"");
    EXPECT_EQ(query("SYST:ERR?"), noError);
}

TEST_F(SimulatedInstrumentTest, AnEmptyMessageHasNoAnswerAndNoError)
{
    for (const char* message : {"", " ", ";", "\r", ";;;"})
        send(message);
    EXPECT_EQ(errors(), noError);
}

TEST_F(SimulatedInstrumentTest, AWrongUnitIsAnError)
{
    send(":CURR 1V");
    send(":CURR 1XA");
    send(":CHAN 1A");
    EXPECT_EQ(errors(), "-131,\"Invalid suffix\",-131,\"Invalid suffix\",-138,\"Suffix not allowed\"");
}

TEST_F(SimulatedInstrumentTest, LimitsHaveNamesInSetAndQuery)
{
    send(":CURR MAX");
    EXPECT_EQ(query(":CURR?"), "20.0000");
    send(":CURR minimum");
    EXPECT_EQ(query(":CURR?"), "0.0000");
    send(":RES DEF");
    EXPECT_EQ(query(":RES?;:RES? MIN;:RES? MAXIMUM;:RES? DEF"), "8000.0000;2.0000;8000.0000;8000.0000");
    send(":CURR? 3");
    send(":CURR? LOUD");
    EXPECT_EQ(errors(), "-104,\"Data type error\",-224,\"Illegal parameter value\"");
}

TEST_F(SimulatedInstrumentTest, ASwitchIsReadInEveryForm)
{
    for (const auto& [message, state] : {std::pair{":LOAD ON", "1"},
                                         {":LOAD OFF", "0"},
                                         {":LOAD 1", "1"},
                                         {":LOAD 0", "0"},
                                         {":LOAD on", "1"},
                                         {":LOAD 0.4", "0"},
                                         {":LOAD 7", "1"}}) {
        send(message);
        EXPECT_EQ(query(":LOAD?"), state) << message;
    }
    send(":LOAD MAYBE");
    send(":LOAD 'ON'");
    EXPECT_EQ(errors(), "-224,\"Illegal parameter value\",-104,\"Data type error\"");
}

TEST_F(SimulatedInstrumentTest, AParameterOfTheWrongKindIsAnError)
{
    send(":CURR 'x'");
    send(":CURR #11x");
    send(":MODE 3");
    send(":CURR LOUD");
    EXPECT_EQ(errors(), "-104,\"Data type error\",-104,\"Data type error\",-224,\"Illegal parameter value\","
                        "-224,\"Illegal parameter value\"");
}

TEST_F(SimulatedInstrumentTest, ANumberInAHeaderMustExist)
{
    send(":LOAD4 ON");
    send(":LOAD0 ON");
    send(":CURR:L3 1");
    send(":LOAD2:ALL ON");
    send("*IDN3?");
    const std::string error = "-114,\"Header suffix out of range\"";
    EXPECT_EQ(errors(), error + "," + error + "," + error + "," + error + "," + error);
    EXPECT_EQ(query(":LOAD:ALL?"), "0,0,0");
}

TEST_F(SimulatedInstrumentTest, AWholeNumberIsRoundedAndCheckedAgainstItsLimits)
{
    send(":CHAN 2.4");
    EXPECT_EQ(query(":CHAN?"), "2");
    send(":CHAN MAX");
    EXPECT_EQ(query(":CHAN?"), "3");
    for (const char* message : {":CHAN 0", ":CHAN 4", ":CHAN 3.5", ":CHAN -1", ":CHAN 1e30", "*SAV 0", "*RCL 121"}) {
        send(message);
        EXPECT_EQ(errors(), "-222,\"Data out of range\"") << message;
    }
}

TEST_F(SimulatedInstrumentTest, AMessageThatIsTooLongIsAnError)
{
    EXPECT_EQ(query("*IDN?" + std::string(SimulatedInstrument::maxMessage, ' ')), "");
    EXPECT_EQ(errors(), "-363,\"Input buffer overrun\"");
    EXPECT_NE(query("*IDN?" + std::string(SimulatedInstrument::maxMessage - 5, ' ')), "");
}

TEST_F(SimulatedInstrumentTest, AResponseThatIsTooLongIsDroppedAsAWhole)
{
    build(defaultConfiguration(8));
    std::string message = ":MEAS:ALLV?";
    while (message.size() + 6 < SimulatedInstrument::maxMessage)
        message += ";ALLV?";
    EXPECT_LE(query(message).size(), SimulatedInstrument::maxResponse);
    EXPECT_EQ(errors(), noError) << "8 channels, 10923 queries: about 640 KB";

    SimulatorConfiguration longAnswer = quietConfiguration();
    longAnswer.identity = std::string(1000, 'x');
    build(longAnswer);
    message = "*IDN?";
    for (int i = 0; i < 1100; ++i)
        message += ";*IDN?";
    EXPECT_EQ(query(message), "");
    EXPECT_EQ(errors(), "-430,\"Query DEADLOCKED\"");
    EXPECT_EQ(query("*OPC?"), "1");
}

TEST_F(SimulatedInstrumentTest, HostileBytesAreBadCommands)
{
    const std::string_view hostile[] = {
        std::string_view("\0\0\0", 3),
        "\xFF\xFE\xFD",
        "\x1B[2J",
        "%n%n%s%s",
        "'",
        "\"",
        "#",
        "#9",
        "#9999999999",
        ":::::",
        "*",
        "?",
        "????",
        ",,,,",
        "*IDN",
        "\xC3\xA4\xC3\xB6?",
        "A:",
        "(((((",
        "CURR 1e99999999999999999999",
        "CURR NAN",
        "CURR INF",
        "CURR --1",
        "CURR 0x10",
        "CURR1.5 3",
    };
    for (const std::string_view message : hostile) {
        EXPECT_EQ(query(message), "") << message;
        EXPECT_EQ(query("*OPC?"), "1");
    }
    send("*CLS");
    EXPECT_EQ(errors(), noError);
}

TEST_F(SimulatedInstrumentTest, EveryChannelCommandCanNameItsChannel)
{
    send(":CHAN 1;:CURR3 1;:MODE2 CV;:LOAD3 ON");
    EXPECT_EQ(query(":CHAN?;:CURR1?;:CURR3?;:MODE1?;:MODE2?;:LOAD:ALL?"), "1;0.0000;1.0000;CCH;CV;0,0,1");
    EXPECT_EQ(query(":FETC3:VOLT?;CURR?;POW?"), "11.5000;1.0000;11.5000");
    EXPECT_EQ(query(":CHAN1:ID?;:CHAN2:ID?;:CHAN3:ID?"), "K11;K14;K12A");
}

TEST_F(SimulatedInstrumentTest, WhiteSpaceMayStandInAnExponent)
{
    send(":CURR 15 E -1 A;:VOLT 1 E 1");
    EXPECT_EQ(query(":CURR?;:VOLT?"), "1.5000;10.0000");
    EXPECT_EQ(errors(), noError);
}

TEST_F(SimulatedInstrumentTest, AnEmptyStringDoesNotHideTheNextCommand)
{
    EXPECT_EQ(query(":CURR '';*OPC?;:CURR \"\";*TST?"), "1;0");
    EXPECT_EQ(errors(), "-104,\"Data type error\",-104,\"Data type error\"");
}

TEST_F(SimulatedInstrumentTest, TheLimitsAreThoseOfTheDocument)
{
    EXPECT_EQ(SimulatedInstrument::maxMessage, 65'536U);
    EXPECT_EQ(SimulatedInstrument::maxResponse, 1'048'576U);
    EXPECT_EQ(StatusRegisters::queueCapacity, 32U);
    EXPECT_EQ(ServedLog::capacity, 100'000U);
}

TEST_F(SimulatedInstrumentTest, AResponseMayBeAsLongAsItsLimit)
{
    SimulatorConfiguration configuration = quietConfiguration();
    configuration.identity = std::string(SimulatedInstrument::maxResponse - 1, 'x');
    build(configuration);
    EXPECT_EQ(query("*IDN?").size(), SimulatedInstrument::maxResponse - 1);
    EXPECT_EQ(query("*IDN?;*OPC?"), "");
    EXPECT_EQ(query("*ESR?"), "132") << "switched on, and a query error";
}

} // namespace
} // namespace orb
