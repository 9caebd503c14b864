// SPDX-License-Identifier: GPL-3.0-or-later
#include "fault_delivery.h"

#include <algorithm>
#include <random>

namespace orb {

namespace {

using Kind = Fault::Kind;
using End = DeliveryStep::End;

std::vector<DeliveryStep> split(const std::string& line, const Fault& fault)
{
    const std::size_t pieces = std::clamp<std::size_t>(fault.count.value_or(2), 1, line.size());
    std::vector<DeliveryStep> steps;
    for (std::size_t i = 0; i < pieces; ++i) {
        const std::size_t begin = line.size() * i / pieces;
        const std::size_t end = line.size() * (i + 1) / pieces;
        steps.push_back(
            {.wait = i > 0 ? fault.delay : std::chrono::milliseconds{0}, .bytes = line.substr(begin, end - begin)});
    }
    return steps;
}

/// Any bytes but a line feed, so that it is one answer.
std::string garbage(std::size_t count, std::uint64_t seed)
{
    std::mt19937_64 noise(seed);
    std::string bytes;
    while (bytes.size() < count) {
        const char byte = static_cast<char>(noise() & 0xFFU);
        if (byte != '\n')
            bytes += byte;
    }
    return bytes;
}

std::string firstBytes(std::string_view answer, std::size_t count)
{
    return std::string(answer.substr(0, std::min(count, answer.size())));
}

/// The delivery under a fault that leaves the answer whole.
std::vector<DeliveryStep> deliverWhole(const Fault& fault, std::string_view answer)
{
    const std::string line = std::string(answer) + '\n';
    switch (fault.kind) {
    case Kind::Late:
        return {{.wait = fault.delay, .bytes = line}};
    case Kind::Split:
        return split(line, fault);
    case Kind::CrLf:
        return {{.bytes = std::string(answer) + "\r\n"}};
    case Kind::AfterNext:
        return {{.bytes = line, .afterNext = true}};
    default:
        return {{.bytes = line}};
    }
}

} // namespace

bool leavesWhole(const Fault& fault)
{
    constexpr Kind kinds[] = {Kind::None, Kind::Late, Kind::Split, Kind::CrLf, Kind::AfterNext};
    return std::ranges::find(kinds, fault.kind) != std::end(kinds);
}

std::vector<DeliveryStep> deliver(const Fault& fault, std::string_view answer, std::uint64_t garbageSeed)
{
    if (leavesWhole(fault))
        return answer.empty() ? std::vector<DeliveryStep>{} : deliverWhole(fault, answer);
    switch (fault.kind) {
    case Kind::Wrong:
        return {{.bytes = fault.text + '\n'}};
    case Kind::Garbage:
        return {{.bytes = garbage(fault.count.value_or(0), garbageSeed) + '\n'}};
    case Kind::Truncated:
        return {{.bytes = firstBytes(answer, fault.count.value_or(answer.size() / 2))}};
    case Kind::Closed:
        return {{.bytes = firstBytes(answer, fault.count.value_or(answer.size() / 2)), .end = End::Close}};
    case Kind::Reset:
        return {{.bytes = firstBytes(answer, fault.count.value_or(0)), .end = End::Reset}};
    case Kind::Refused:
        return {{.end = End::Refuse, .refusal = fault.delay}};
    default:
        return {};
    }
}

} // namespace orb
