// SPDX-License-Identifier: GPL-3.0-or-later
#include "bench.h"

namespace orb {
namespace {

class CommandLanguageTest : public BenchTest {};

TEST_F(CommandLanguageTest, AnswersTheIdentity)
{
    EXPECT_EQ(ask("*IDN?"), "ZN,ORB3000,SIM0001,1.0");
}

TEST_F(CommandLanguageTest, TakesAnyLetterCaseAndAMissingColon)
{
    for (const char* query : {":CHAN:COUN?", "CHAN:COUN?", "channel:count?", ":Channel:COUN?"})
        EXPECT_EQ(ask(query), "3") << query;
}

TEST_F(CommandLanguageTest, TakesWhiteSpaceWhereItMayStand)
{
    tell(" \t :CURR   1.5  A \r");
    EXPECT_EQ(ask("\t:CURR? \t;  :CHAN? "), "1.5000;1");
    EXPECT_EQ(errors(), noError);
}

TEST_F(CommandLanguageTest, JoinsTheAnswersOfOneMessage)
{
    EXPECT_EQ(ask("*OPC?;:CHAN:COUN?;*TST?"), "1;3;0");
}

TEST_F(CommandLanguageTest, AJoinedHeaderGoesOnFromTheOneBeforeIt)
{
    EXPECT_EQ(ask(":CURR:STAT:L1 1;L2 2;L1?;L2?"), "1.0000;2.0000");
    EXPECT_EQ(ask(":FETC:ALLC?;ALLV?"), "0.0000,0.0000,0.0000,;12.0000,12.0000,12.0000,");
    EXPECT_EQ(errors(), noError);
}

TEST_F(CommandLanguageTest, AJoinedHeaderWithAColonBeginsAnew)
{
    EXPECT_EQ(ask(":CURR:STAT:L1 1;:CHAN 2;:CURR:STAT:L1?;:CHAN?"), "0.0000;2");
    tell(":CURR:STAT:L1 1;CHAN 2");
    EXPECT_EQ(errors(), "-113,\"Undefined header\"");
}

TEST_F(CommandLanguageTest, CommonCommandsLeaveThePathAsItIs)
{
    EXPECT_EQ(ask(":CURR:STAT:L1 1;*OPC?;L1?"), "1;1.0000");
    EXPECT_EQ(errors(), noError);
}

TEST_F(CommandLanguageTest, TheChannelNumberOfAHeaderIsInheritedToo)
{
    EXPECT_EQ(ask(":CURR2:STAT:L1 1;L1?;:CURR1?"), "1.0000;0.0000");
}

TEST_F(CommandLanguageTest, AMessageBeginsAtTheTopAgain)
{
    tell(":CURR:STAT:L1 1");
    tell("L1 2");
    EXPECT_EQ(errors(), "-113,\"Undefined header\"");
}

TEST_F(CommandLanguageTest, GoesOnBehindABadCommand)
{
    EXPECT_EQ(ask("*OPC?;:FOO?;:CURR 99;:CHAN:COUN?"), "1;3");
    EXPECT_EQ(errors(), "-113,\"Undefined header\",-222,\"Data out of range\"");
}

TEST_F(CommandLanguageTest, AnswersNothingToABadCommandAndTellsItOnce)
{
    EXPECT_EQ(ask(":FETC:ALLX?"), "");
    EXPECT_EQ(ask("SYST:ERR?"), "-113,\"Undefined header\"");
    EXPECT_EQ(ask("SYST:ERR?"), noError);
}

TEST_F(CommandLanguageTest, AnswersNothingToNothing)
{
    for (const char* message : {"", " ", ";", "\r", ";;;"})
        tell(message);
    EXPECT_EQ(errors(), noError);
}

TEST_F(CommandLanguageTest, ReadsUnitsWithTheirPrefixes)
{
    const std::pair<const char*, const char*> written[] = {
        {":CURR 250mA", "0.2500"},     {":CURR 0.25 A", "0.2500"},        {":CURR 0.00025KA", "0.2500"},
        {":CURR 250000 uA", "0.2500"}, {":CURR 0.00000025MAA", "0.2500"}, {":CURR 2.5E-1", "0.2500"},
        {":CURR #H2", "2.0000"},
    };
    for (const auto& [message, answer] : written) {
        tell(":CURR 0");
        tell(message);
        EXPECT_EQ(ask(":CURR?"), answer) << message;
    }
    tell(":RES 0.0001MOHM"); // M is mega before ohm, and nowhere else
    EXPECT_EQ(ask(":RES?"), "100.0000");
    tell(":RES 2KOHM");
    EXPECT_EQ(ask(":RES?"), "2000.0000");
    tell(":VOLT 5V");
    EXPECT_EQ(ask(":VOLT?"), "5.0000");
    EXPECT_EQ(errors(), noError);
}

TEST_F(CommandLanguageTest, RefusesUnitsThatDoNotBelong)
{
    tell(":CURR 1V");
    tell(":CURR 1XA");
    tell(":CHAN 1A");
    EXPECT_EQ(errors(), "-131,\"Invalid suffix\",-131,\"Invalid suffix\",-138,\"Suffix not allowed\"");
}

TEST_F(CommandLanguageTest, KnowsTheNamedNumbersInSetAndQuery)
{
    tell(":CURR MAX");
    EXPECT_EQ(ask(":CURR?"), "20.0000");
    tell(":CURR minimum");
    EXPECT_EQ(ask(":CURR?"), "0.0000");
    tell(":RES DEF");
    EXPECT_EQ(ask(":RES?;:RES? MIN;:RES? MAXIMUM;:RES? DEF"), "8000.0000;2.0000;8000.0000;8000.0000");
    tell(":CURR? 3");
    tell(":CURR? LOUD");
    EXPECT_EQ(errors(), "-104,\"Data type error\",-224,\"Illegal parameter value\"");
}

TEST_F(CommandLanguageTest, TakesTheNearestStepOfTheRange)
{
    tell(":CURR 1.2374");
    EXPECT_EQ(ask(":CURR?"), "1.2350");
    tell(":MODE CCL;:CURR 1.2374");
    EXPECT_EQ(ask(":CURR?"), "1.2375");
}

TEST_F(CommandLanguageTest, RefusesSetValuesBeyondTheRange)
{
    tell(":CURR 3");
    for (const char* message : {":CURR 20.1", ":CURR -1", ":RES 1.9", ":VOLT 80.5", ":MODE CCL;:CURR 2.1"}) {
        tell(message);
        EXPECT_EQ(errors(), "-222,\"Data out of range\"") << message;
    }
    EXPECT_EQ(ask(":MODE CCH;:CURR?"), "3.0000");
}

TEST_F(CommandLanguageTest, ReadsSwitchesInEveryForm)
{
    for (const auto& [message, state] : {std::pair{":LOAD ON", "1"},
                                         {":LOAD OFF", "0"},
                                         {":LOAD 1", "1"},
                                         {":LOAD 0", "0"},
                                         {":LOAD on", "1"},
                                         {":LOAD 0.4", "0"},
                                         {":LOAD 7", "1"}}) {
        tell(message);
        EXPECT_EQ(ask(":LOAD?"), state) << message;
    }
    tell(":LOAD MAYBE");
    tell(":LOAD 'ON'");
    EXPECT_EQ(errors(), "-224,\"Illegal parameter value\",-104,\"Data type error\"");
}

TEST_F(CommandLanguageTest, RefusesParametersOfTheWrongKind)
{
    tell(":CURR 'x'");
    tell(":CURR #11x");
    tell(":MODE 3");
    tell(":CURR LOUD");
    EXPECT_EQ(errors(), "-104,\"Data type error\",-104,\"Data type error\",-224,\"Illegal parameter value\","
                        "-224,\"Illegal parameter value\"");
}

TEST_F(CommandLanguageTest, RefusesNumbersBehindNodesBeyondWhatThereIs)
{
    tell(":LOAD4 ON");
    tell(":LOAD0 ON");
    tell(":CURR:L3 1");
    tell(":LOAD2:ALL ON");
    tell("*IDN3?");
    const std::string error = "-114,\"Header suffix out of range\"";
    EXPECT_EQ(errors(), error + "," + error + "," + error + "," + error + "," + error);
    EXPECT_EQ(ask(":LOAD:ALL?"), "0,0,0");
}

TEST_F(CommandLanguageTest, RoundsWholeNumbersAndKeepsThemInBounds)
{
    tell(":CHAN 2.4");
    EXPECT_EQ(ask(":CHAN?"), "2");
    tell(":CHAN MAX");
    EXPECT_EQ(ask(":CHAN?"), "3");
    for (const char* message : {":CHAN 0", ":CHAN 4", ":CHAN 3.5", ":CHAN -1", ":CHAN 1e30", "*SAV 0", "*RCL 121"}) {
        tell(message);
        EXPECT_EQ(errors(), "-222,\"Data out of range\"") << message;
    }
}

TEST_F(CommandLanguageTest, RefusesAMessageThatIsTooLong)
{
    EXPECT_EQ(ask("*IDN?" + std::string(SimulatedInstrument::maxMessage, ' ')), "");
    EXPECT_EQ(errors(), "-363,\"Input buffer overrun\"");
    EXPECT_NE(ask("*IDN?" + std::string(SimulatedInstrument::maxMessage - 5, ' ')), "");
}

TEST_F(CommandLanguageTest, DropsAResponseThatIsTooLongAsAWhole)
{
    build(defaultConfiguration(8));
    std::string message = ":MEAS:ALLV?";
    while (message.size() + 6 < SimulatedInstrument::maxMessage)
        message += ";ALLV?";
    EXPECT_LE(ask(message).size(), SimulatedInstrument::maxResponse);
    EXPECT_EQ(errors(), noError) << "8 channels, 10923 queries: about 640 KB";

    SimulatorConfiguration chatty = quietConfiguration();
    chatty.identity = std::string(1000, 'x');
    build(chatty);
    message = "*IDN?";
    for (int i = 0; i < 1100; ++i)
        message += ";*IDN?";
    EXPECT_EQ(ask(message), "");
    EXPECT_EQ(errors(), "-430,\"Query DEADLOCKED\"");
    EXPECT_EQ(ask("*OPC?"), "1");
}

TEST_F(CommandLanguageTest, TakesHostileBytesForBadCommands)
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
        EXPECT_EQ(ask(message), "") << message;
        EXPECT_EQ(ask("*OPC?"), "1");
    }
    tell("*CLS");
    EXPECT_EQ(errors(), noError);
}

TEST_F(CommandLanguageTest, EveryChannelCommandCanNameItsChannel)
{
    tell(":CHAN 1;:CURR3 1;:MODE2 CV;:LOAD3 ON");
    EXPECT_EQ(ask(":CHAN?;:CURR1?;:CURR3?;:MODE1?;:MODE2?;:LOAD:ALL?"), "1;0.0000;1.0000;CCH;CV;0,0,1");
    EXPECT_EQ(ask(":FETC3:VOLT?;CURR?;POW?"), "11.5000;1.0000;11.5000");
    EXPECT_EQ(ask(":CHAN1:ID?;:CHAN2:ID?;:CHAN3:ID?"), "K11;K14;K12A");
}

TEST_F(CommandLanguageTest, TellsWhatTheModulesTake)
{
    EXPECT_EQ(ask("*OPT?"), "K11,K14,K12A");
    EXPECT_EQ(ask(":CHAN2:RAT?"), "80.0000,8.0000,60.0000");
}

TEST_F(CommandLanguageTest, ShowsTheSelectedChannelOnTheScreen)
{
    tell(":CHAN 2");
    EXPECT_EQ(ask(":CHAN:DISP?"), "1");
    tell(":CHAN:DISP");
    EXPECT_EQ(ask(":CHAN:DISP?"), "2");
}

TEST_F(CommandLanguageTest, KeepsTheControlState)
{
    EXPECT_EQ(ask(":SYST:COMM:RLST?"), "LOC");
    tell(":SYST:REM");
    EXPECT_EQ(ask(":SYST:COMM:RLST?"), "REM");
    tell(":SYST:RWL");
    EXPECT_EQ(ask(":SYST:COMM:RLST?"), "RWL");
    tell(":SYST:COMM:RLST LOCAL");
    EXPECT_EQ(ask(":SYST:COMM:RLST?"), "LOC");
    tell(":SYST:REM;LOC");
    EXPECT_EQ(ask(":SYST:COMM:RLST?"), "LOC");
}

TEST_F(CommandLanguageTest, TakesTheRemoteModeByWordAndByNumber)
{
    EXPECT_EQ(ask(":UTIL:REM:MODE?"), "NORM");
    tell(":UTIL:REM:MODE FAST");
    EXPECT_EQ(ask(":UTIL:REM:MODE?"), "FAST");
    tell(":UTIL:REM:MODE 0");
    EXPECT_EQ(ask(":UTIL:REM:MODE?"), "NORM");
    tell(":UTIL:REM:MODE 1");
    EXPECT_EQ(ask(":UTIL:REM:MODE?"), "FAST");
    tell(":UTIL:REM:MODE NORMAL");
    EXPECT_EQ(ask(":UTIL:REM:MODE?"), "NORM");
    tell(":UTIL:REM:MODE 2");
    EXPECT_EQ(errors(), "-224,\"Illegal parameter value\"");
}

} // namespace
} // namespace orb
