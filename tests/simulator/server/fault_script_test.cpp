// SPDX-License-Identifier: GPL-3.0-or-later
#include "fault_script.h"

#include <gmock/gmock.h>

namespace orb {
namespace {

using std::chrono::milliseconds;
using Kind = Fault::Kind;

/// The kinds of fault that `count` equal messages meet, one after the other.
std::vector<Kind> kindsOf(std::string_view script, std::string_view message, int count)
{
    FaultScript faults = FaultScript::parse(script);
    std::vector<Kind> kinds;
    for (int i = 0; i < count; ++i)
        kinds.push_back(faults.onMessage(message).kind);
    return kinds;
}

Fault onlyFault(std::string_view script)
{
    return FaultScript::parse(script).onMessage("X");
}

std::string errorOf(std::string_view script)
{
    try {
        FaultScript::parse(script);
    } catch (const FaultScriptError& error) {
        return error.what();
    }
    return "no error";
}

TEST(FaultScriptTest, AnEmptyScriptHasNoFaults)
{
    FaultScript faults;
    EXPECT_EQ(faults.onMessage("*IDN?").kind, Kind::None);
    EXPECT_EQ(faults.onConnect().kind, Kind::None);
    EXPECT_TRUE(FaultScript::parse("\n  \n# a remark\n\t# another\r\n").rules().empty());
}

TEST(FaultScriptTest, OccurrencesAreCountedFromOne)
{
    constexpr Kind none = Kind::None;
    constexpr Kind missing = Kind::Missing;
    EXPECT_THAT(kindsOf("2 X missing", "X", 4), testing::ElementsAre(none, missing, none, none));
    EXPECT_THAT(kindsOf("2-3 X missing", "X", 4), testing::ElementsAre(none, missing, missing, none));
    EXPECT_THAT(kindsOf("3+ X missing", "X", 4), testing::ElementsAre(none, none, missing, missing));
    EXPECT_THAT(kindsOf("* X missing", "X", 3), testing::ElementsAre(missing, missing, missing));
}

TEST(FaultScriptTest, EachRuleCountsItsMatchesAndTheFirstThatIsDueApplies)
{
    FaultScript faults = FaultScript::parse("2 :FETC:ALL* missing\n1 :FETC:ALLV? crlf\n1 :FETC:ALLC? split 2 1ms\n"
                                            "2 :FETC:ALLV? garbage 1\n");
    EXPECT_EQ(faults.onMessage(":FETC:ALLC?").kind, Kind::Split);
    EXPECT_EQ(faults.onMessage(":FETC:ALLV?").kind, Kind::Missing) << "it is the second message that begins so";
    EXPECT_EQ(faults.onMessage(":FETC:ALLV?").kind, Kind::Garbage);
    EXPECT_EQ(faults.onMessage(":FETC:ALLV?").kind, Kind::None);
}

TEST(FaultScriptTest, APatternMatchesWholeMessagesInAnyLetterCaseWithOrWithoutColon)
{
    for (const char* message : {":FETC:ALLC?", "fetc:allc?", "  :Fetc:Allc?\r"})
        EXPECT_THAT(kindsOf("1 :FETC:ALLC? missing", message, 1), testing::ElementsAre(Kind::Missing)) << message;
    for (const char* message : {":FETC:ALLC?;*IDN?", "FETC:ALLC", ":FETC:ALLV?", ""})
        EXPECT_THAT(kindsOf("1 :FETC:ALLC? missing", message, 1), testing::ElementsAre(Kind::None)) << message;
}

TEST(FaultScriptTest, AnAsteriskMatchesAnything)
{
    const std::tuple<const char*, const char*, bool> cases[] = {
        {"*", "anything", true},
        {"*IDN?", "*idn?", true},
        {"*ALLC*", "*OPC?;:FETC:ALLC?;*OPC?", true},
        {"A*B*C", "AxxBxBxC", true},
        {"A*B*C", "AxxBxBx", false},
        {"A*", "A", true},
        {"*A", "BA", true},
        {"*A", "AB", false},
        {"\"CURR 3\"", "curr 3", true},
        {"\"CURR *\"", "CURR 3", true},
        {"A**B", "AB", true},
    };
    for (const auto& [pattern, message, matches] : cases) {
        const Kind expected = matches ? Kind::Missing : Kind::None;
        EXPECT_THAT(kindsOf(std::string("1 ") + pattern + " missing", message, 1), testing::ElementsAre(expected))
            << pattern << " " << message;
    }
}

TEST(FaultScriptTest, ConnectionsAndMessagesAreCountedSeparately)
{
    FaultScript faults = FaultScript::parse("1 * missing\n2 connect reset\n");
    EXPECT_EQ(faults.onConnect().kind, Kind::None);
    EXPECT_EQ(faults.onMessage("X").kind, Kind::Missing);
    EXPECT_EQ(faults.onConnect().kind, Kind::Reset);
    FaultScript quoted = FaultScript::parse("1 \"connect\" missing\n");
    EXPECT_EQ(quoted.onMessage("CONNECT").kind, Kind::Missing);
}

TEST(FaultScriptTest, EveryFaultIsReadWithItsArguments)
{
    EXPECT_EQ(onlyFault("1 X late 350ms").delay, milliseconds(350));
    EXPECT_EQ(onlyFault("1 X LATE 2s").delay, milliseconds(2000));
    EXPECT_EQ(onlyFault("1 X split 3 20ms").count, 3U);
    EXPECT_EQ(onlyFault("1 X split 3 20ms").delay, milliseconds(20));
    EXPECT_EQ(onlyFault("1 X crlf").kind, Kind::CrLf);
    EXPECT_EQ(onlyFault("1 X missing").kind, Kind::Missing);
    EXPECT_EQ(onlyFault("1 X after-next").kind, Kind::AfterNext);
    EXPECT_EQ(onlyFault("1 X garbage 16").count, 16U);
    EXPECT_EQ(onlyFault("1 X truncated").count, std::nullopt);
    EXPECT_EQ(onlyFault("1 X truncated 7").count, 7U);
    EXPECT_EQ(onlyFault("1 X closed 7").count, 7U);
    EXPECT_EQ(onlyFault("1 X reset").kind, Kind::Reset);
    EXPECT_EQ(onlyFault("1 X refused").delay, milliseconds(0));
    EXPECT_EQ(onlyFault("1 X refused 3s").delay, milliseconds(3000));
}

TEST(FaultScriptTest, TheEscapesOfATextAreResolved)
{
    EXPECT_EQ(onlyFault(R"(1 X wrong "a b\n\r\t\"\\\x00\xFf")").text, std::string("a b\n\r\t\"\\\0\xFF", 10));
    EXPECT_EQ(onlyFault("1 X wrong \"\"").text, "");
    EXPECT_EQ(onlyFault("1 X wrong word").text, "word");
}

TEST(FaultScriptTest, AnErrorNamesItsLine)
{
    const std::pair<const char*, const char*> bad[] = {
        {"1", "line 1: missing: what it is about"},
        {"\n# remark\n1 X", "line 3: missing: the fault"},
        {"1 X missing\r\n0 X missing", "line 2: no such occurrence: 0"},
        {"3-2 X missing", "line 1: no such occurrence: 3-2"},
        {"x X missing", "line 1: no number, or too large a one: x"},
        {"1- X missing", "line 1: no number, or too large a one: "},
        {"99999999999999999999 X missing", "line 1: no number, or too large a one: 99999999999999999999"},
        {"1 X broken", "line 1: no such fault: broken"},
        {"1 X late", "line 1: missing: a duration"},
        {"1 X late 350", "line 1: no duration such as 350ms or 2s: 350"},
        {"1 X late ms", "line 1: no number, or too large a one: "},
        {"1 X late 3601s", "line 1: no number, or too large a one: 3601"},
        {"1 X split 0 1ms", "line 1: an answer is split into 1 to 1000 pieces"},
        {"1 X garbage 2000000", "line 1: no number, or too large a one: 2000000"},
        {"1 X missing please", "line 1: too much: please"},
        {"1 X wrong", "line 1: missing: a text"},
        {"1 X wrong \"abc", "line 1: the quotation mark is not closed"},
        {"1 X wrong \"abc\"d", "line 1: a blank must follow the quotation mark"},
        {"1 X wrong \"\\q\"", "line 1: no such escape: \\q"},
        {"1 X wrong \"\\xg0\"", "line 1: \\x needs two hexadecimal digits"},
        {"1 \"\" missing", "line 1: an empty pattern matches nothing"},
        {"1 connect missing", "line 1: missing is no fault of a connection"},
    };
    for (const auto& [script, message] : bad)
        EXPECT_EQ(errorOf(script), message) << script;
}

TEST(FaultScriptTest, AScriptHasAtMostAThousandRules)
{
    std::string script;
    for (int i = 0; i < 1001; ++i)
        script += "1 X missing\n";
    EXPECT_EQ(errorOf(script), "line 1001: more than 1000 rules");
}

TEST(FaultScriptTest, TheArgumentsOfAFaultMayBeAsLargeAsTheirLimits)
{
    EXPECT_EQ(onlyFault("1 X split 1000 3600s").count, 1000U);
    EXPECT_EQ(onlyFault("1 X split 1 3600000ms").delay, milliseconds(3'600'000));
    EXPECT_EQ(onlyFault("1 X garbage 1048576").count, 1'048'576U);
    EXPECT_EQ(errorOf("1 X split 1001 1ms"), "line 1: an answer is split into 1 to 1000 pieces");
    EXPECT_EQ(errorOf("1 X late 3600001ms"), "line 1: no number, or too large a one: 3600001");
    EXPECT_EQ(errorOf("1 X garbage 1048577"), "line 1: no number, or too large a one: 1048577");
}

} // namespace
} // namespace orb
