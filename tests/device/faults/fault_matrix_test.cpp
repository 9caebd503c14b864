// SPDX-License-Identifier: GPL-3.0-or-later
// Each fault of the simulator's script times each member of the control times each kind of link.
#include "faulty_control.h"

#include <algorithm>
#include <string_view>

namespace orb {

namespace {

/// What may come of a fault.
enum class Effect {
    Harmless, ///< the member has its own result
    Lost,     ///< it has none, and the link stands
    Replaced, ///< a line of another text comes in the place of the answer
    Ends,     ///< it has none, and the link is down
};

struct FaultRow {
    const char* name;
    const char* virtualScript; ///< on a link whose time is virtual
    const char* realScript;
    Effect effect;
    bool comes;  ///< whether a byte, or the end of the link, follows every wait for it
    bool isLine; ///< whether it can't be where an instrument marks the end of each message
};

const FaultRow faultRows[] = {
    {"none", "late 0ms", "late 0ms", Effect::Harmless, true, false},
    {"late", "late 40ms", "late 3ms", Effect::Harmless, true, false},
    {"split", "split 5 5ms", "split 5 1ms", Effect::Harmless, true, true},
    {"crlf", "crlf", "crlf", Effect::Harmless, true, false},
    {"too late", "late 3s", "late 500ms", Effect::Lost, false, true},
    {"missing", "missing", "missing", Effect::Lost, false, false},
    {"after the next", "after-next", "after-next", Effect::Lost, false, true},
    {"truncated", "truncated", "truncated", Effect::Lost, false, true},
    {"wrong", "wrong \"something,else\"", "wrong \"something,else\"", Effect::Replaced, true, false},
    {"incomplete block", "wrong \"#210abc\"", "wrong \"#210abc\"", Effect::Replaced, true, false},
    {"garbage", "garbage 400", "garbage 400", Effect::Replaced, true, false},
    {"closed", "closed", "closed", Effect::Ends, true, false},
    {"reset", "reset 5", "reset 5", Effect::Ends, true, false},
    {"refused", "refused 20ms", "refused 20ms", Effect::Ends, true, false},
};

struct MemberRow {
    const char* name;
    const char* rule; ///< which message the fault is in: the occurrence and the pattern
    bool isAnswered;  ///< whether that message has an answer, in whose place another can come
    int limitMs;      ///< on the clock of the control
    void (FaultyControl::*prepare)();
    Outcome (FaultyControl::*call)();
};

const char* const connectRule = "2 connect ";

const MemberRow memberRows[] = {
    {"SendCommand", "1 :LOAD1* ", false, 0, &FaultyControl::nothing, &FaultyControl::sendCommand},
    {"SendCommandOfAQuery", "1 :FETC:ALLV? ", true, 0, &FaultyControl::nothing, &FaultyControl::sendQuery},
    {"Reply", "1 :FETC:ALLV? ", true, 50, &FaultyControl::ask, &FaultyControl::reply},
    {"GrabScreen", "1 :HCOP* ", true, 2000, &FaultyControl::nothing, &FaultyControl::grabScreen},
    {"FetchSequenceFile", "1 :MMEM:DATA?*SEQ* ", true, 2000, &FaultyControl::nothing, &FaultyControl::fetchSequence},
    {"FetchProgramFile", "1 :MMEM:DATA?*PROG* ", true, 2000, &FaultyControl::nothing, &FaultyControl::fetchProgram},
    {"SendProgramFile", "1 \":MMEM:DATA *PROG*\" ", false, 2000, &FaultyControl::writeUpload,
     &FaultyControl::sendProgram},
    {"Reconnect", "2 *IDN? ", true, 11'000, &FaultyControl::nothing, &FaultyControl::reconnect},
    {"ReconnectAtItsSecondStage", "2 :CHAN:COUN? ", true, 11'000, &FaultyControl::nothing, &FaultyControl::reconnect},
    {"ReconnectAtItsConnection", connectRule, false, 11'000, &FaultyControl::nothing, &FaultyControl::reconnect},
    {"IsConnected", "1 :FETC:ALLV? ", true, 0, &FaultyControl::ask, &FaultyControl::isConnected},
    {"LinkType", "1 :FETC:ALLV? ", true, 0, &FaultyControl::ask, &FaultyControl::linkType},
    {"ChannelCount", "1 :FETC:ALLV? ", true, 0, &FaultyControl::ask, &FaultyControl::channelCount},
    {"PanelActive", "1 *OPT? ", true, 50, &FaultyControl::showPage, &FaultyControl::panelActive},
    {"ShowControlPage", "1 :FETC:ALLV? ", true, 0, &FaultyControl::ask, &FaultyControl::showControlPage},
    {"ShowConnectPage", "1 :FETC:ALLV? ", true, 0, &FaultyControl::ask, &FaultyControl::showConnectPage},
    {"AllOff", "1 :LOAD:ALL* ", false, 0, &FaultyControl::ask, &FaultyControl::allOff},
};

/// What must come of a fault in the answer that the member waits for.
Outcome expected(const MemberRow& member, Effect effect)
{
    const auto waitsFor = [&](auto call) { return member.call == call; };
    if (effect == Effect::Harmless || !(waitsFor(&FaultyControl::reply) || waitsFor(&FaultyControl::grabScreen) ||
                                        waitsFor(&FaultyControl::fetchSequence) ||
                                        waitsFor(&FaultyControl::fetchProgram) || waitsFor(&FaultyControl::reconnect)))
        return Outcome::Own;
    if (waitsFor(&FaultyControl::reconnect)) // without its number of channels it counts the readings
        return effect == Effect::Ends || member.rule[2] == '*' ? Outcome::Nothing : Outcome::Own;
    return effect == Effect::Replaced && waitsFor(&FaultyControl::reply) ? Outcome::Strange : Outcome::Nothing;
}

/// On real time an answer may be less late than the machine is busy.
bool isLateInReality(LinkName name, const FaultRow& fault)
{
    return name != LinkName::Simulated && fault.name == std::string_view("too late");
}

bool applies(LinkName name, const MemberRow& member, const FaultRow& fault)
{
    if (fault.isLine && name == LinkName::Usbtmc)
        return false;
    if (member.rule == connectRule) // only a socket is taken by the far end
        return name == LinkName::Tcp && fault.effect == Effect::Ends;
    return member.call == &FaultyControl::reconnect ? !isLateInReality(name, fault)
                                                    : member.isAnswered || fault.effect != Effect::Replaced;
}

void expectRow(LinkName name, const MemberRow& member, const FaultRow& fault)
{
    FaultyControl row(name, std::string(member.rule) +
                                (name == LinkName::Simulated ? fault.virtualScript : fault.realScript) + '\n');
    ASSERT_TRUE(row.connect());
    (row.*member.prepare)();
    const bool isReconnect = member.call == &FaultyControl::reconnect;
    const bool isFetch = member.isAnswered && member.limitMs == 2000;
    const bool isBlock = fault.name == std::string_view("incomplete block");
    // No rest follows a block, and no identity a line that is none.
    row.link->pace.comes = fault.comes && !(isFetch && isBlock) && !(isReconnect && fault.effect == Effect::Replaced);
    row.link->pace.divisor = isReconnect ? 5 : 100; // some of what it waits for comes

    const qint64 begin = row.clock.elapsed();
    const Outcome outcome = (row.*member.call)();

    EXPECT_LE(row.clock.elapsed() - begin, member.limitMs);
    // A reset may also meet a connection that is just being made, and is then tried again.
    const bool mayWork = isLateInReality(name, fault) || member.rule == connectRule;
    EXPECT_TRUE((mayWork && outcome == Outcome::Own) || outcome == expected(member, fault.effect))
        << static_cast<int>(outcome);
    row.link->pace.comes = false;
    row.control->PanelActive(false);
    if (fault.effect == Effect::Ends && member.rule != connectRule)
        row.awaitEnd();
    if (row.control->IsConnected())
        row.expectAnswers();
    else
        row.expectDown();
    row.link->pace.comes = true;
    (row.*member.prepare)();
    EXPECT_EQ((row.*member.call)(), Outcome::Own) << "the second time";
}

/// A member over a kind of link.
class FaultMatrixTest : public testing::TestWithParam<std::tuple<LinkName, MemberRow>> {};

TEST_P(FaultMatrixTest, TheMemberEndsWithinItsLimitByItsResultAndTheNextCallWorksOrSaysFalse)
{
    const auto& [name, member] = GetParam();
    for (const FaultRow& fault : faultRows) {
        const testing::ScopedTrace trace(__FILE__, __LINE__, fault.name);
        if (applies(name, member, fault))
            expectRow(name, member, fault);
    }
}

std::vector<std::tuple<LinkName, MemberRow>> membersWithFaults()
{
    std::vector<std::tuple<LinkName, MemberRow>> pairs;
    for (const LinkName name : links)
        for (const MemberRow& member : memberRows)
            if (std::ranges::any_of(faultRows, [&](const FaultRow& fault) { return applies(name, member, fault); }))
                pairs.emplace_back(name, member);
    return pairs;
}

INSTANTIATE_TEST_SUITE_P(AllLinks, FaultMatrixTest, testing::ValuesIn(membersWithFaults()), [](const auto& tested) {
    return std::string(linkNames[static_cast<int>(std::get<0>(tested.param))]) + std::get<1>(tested.param).name;
});

} // namespace
} // namespace orb
