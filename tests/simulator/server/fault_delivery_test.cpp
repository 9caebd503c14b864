// SPDX-License-Identifier: GPL-3.0-or-later
#include "fault_delivery.h"

#include <gtest/gtest.h>

namespace orb {
namespace {

using std::chrono::milliseconds;
using Kind = Fault::Kind;
using End = DeliveryStep::End;

std::string sent(const std::vector<DeliveryStep>& steps)
{
    std::string bytes;
    for (const DeliveryStep& step : steps)
        bytes += step.bytes;
    return bytes;
}

/// With a seed that matters to garbage alone.
std::vector<DeliveryStep> deliver(const Fault& fault, std::string_view answer)
{
    return orb::deliver(fault, answer, 1);
}

TEST(FaultDeliveryTest, WithoutAFaultAnAnswerIsOneStep)
{
    const std::vector<DeliveryStep> steps = deliver({}, "1.0000,");
    ASSERT_EQ(steps.size(), 1U);
    EXPECT_EQ(steps[0].bytes, "1.0000,\n");
    EXPECT_EQ(steps[0].wait.count(), 0);
    EXPECT_EQ(steps[0].end, End::None);
    EXPECT_TRUE(deliver({}, "").empty());
}

TEST(FaultDeliveryTest, ALateAnswerWaitsAndIsWhole)
{
    const std::vector<DeliveryStep> steps = deliver({.kind = Kind::Late, .delay = milliseconds(350)}, "AB");
    ASSERT_EQ(steps.size(), 1U);
    EXPECT_EQ(steps[0].wait, milliseconds(350));
    EXPECT_EQ(steps[0].bytes, "AB\n");
}

TEST(FaultDeliveryTest, ASplitAnswerHasPiecesWithPausesBetween)
{
    const Fault fault{.kind = Kind::Split, .delay = milliseconds(20), .count = 3};
    const std::vector<DeliveryStep> steps = deliver(fault, "ABCDE");
    ASSERT_EQ(steps.size(), 3U);
    EXPECT_EQ(steps[0].wait, milliseconds(0));
    EXPECT_EQ(steps[1].wait, milliseconds(20));
    EXPECT_EQ(steps[2].wait, milliseconds(20));
    EXPECT_EQ(steps[0].bytes, "AB");
    EXPECT_EQ(sent(steps), "ABCDE\n");
    EXPECT_EQ(deliver({.kind = Kind::Split, .count = 900}, "AB").size(), 3U) << "no piece is empty";
}

TEST(FaultDeliveryTest, EveryOtherFaultSendsWhatItDescribes)
{
    EXPECT_EQ(sent(deliver({.kind = Kind::CrLf}, "AB")), "AB\r\n");
    EXPECT_TRUE(deliver({.kind = Kind::Missing}, "AB").empty());
    EXPECT_TRUE(deliver({.kind = Kind::AfterNext}, "AB").at(0).afterNext);
    EXPECT_EQ(sent(deliver({.kind = Kind::AfterNext}, "AB")), "AB\n");
    EXPECT_EQ(sent(deliver({.kind = Kind::Wrong, .text = "X"}, "AB")), "X\n");
    EXPECT_EQ(sent(deliver({.kind = Kind::Truncated}, "ABCD")), "AB");
    EXPECT_EQ(sent(deliver({.kind = Kind::Truncated, .count = 3}, "ABCD")), "ABC");
    EXPECT_EQ(sent(deliver({.kind = Kind::Truncated, .count = 99}, "ABCD")), "ABCD") << "but no line end";
    EXPECT_EQ(sent(deliver({.kind = Kind::Closed}, "ABCD")), "AB");
    EXPECT_EQ(deliver({.kind = Kind::Closed}, "ABCD").back().end, End::Close);
    EXPECT_EQ(sent(deliver({.kind = Kind::Reset}, "ABCD")), "");
    EXPECT_EQ(sent(deliver({.kind = Kind::Reset, .count = 1}, "ABCD")), "A");
    EXPECT_EQ(deliver({.kind = Kind::Reset}, "ABCD").back().end, End::Reset);
    const DeliveryStep refused = deliver({.kind = Kind::Refused, .delay = milliseconds(5)}, "ABCD").at(0);
    EXPECT_EQ(refused.end, End::Refuse);
    EXPECT_EQ(refused.refusal, milliseconds(5));
    EXPECT_EQ(refused.bytes, "");
}

TEST(FaultDeliveryTest, GarbageIsOneLineAndTheSameForTheSameSeed)
{
    const Fault fault{.kind = Kind::Garbage, .count = 1000};
    const std::string bytes = sent(deliver(fault, "AB", 7));
    EXPECT_EQ(bytes.size(), 1001U);
    EXPECT_EQ(bytes.find('\n'), 1000U);
    EXPECT_EQ(sent(deliver(fault, "AB", 7)), bytes);
    EXPECT_NE(sent(deliver(fault, "AB", 8)), bytes);
}

TEST(FaultDeliveryTest, WithoutAnAnswerOnlyTheFaultItselfSends)
{
    for (const Kind kind : {Kind::None, Kind::Late, Kind::Split, Kind::CrLf, Kind::AfterNext, Kind::Missing})
        EXPECT_TRUE(deliver({.kind = kind, .count = 2}, "").empty());
    EXPECT_EQ(sent(deliver({.kind = Kind::Wrong, .text = "X"}, "")), "X\n");
    EXPECT_EQ(deliver({.kind = Kind::Closed}, "").back().end, End::Close);
}

} // namespace
} // namespace orb
