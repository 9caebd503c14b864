// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace orb {

/// What goes wrong with one answer, or with one connection.
struct Fault {
    enum class Kind {
        None,
        Late,      ///< the answer comes after `delay`
        Split,     ///< the answer comes in `count` pieces with `delay` between them
        CrLf,      ///< the answer ends in CR LF
        Missing,   ///< no answer
        AfterNext, ///< the answer comes only when the next message has come
        Wrong,     ///< `text` in place of the answer
        Garbage,   ///< `count` random bytes in place of the answer
        Truncated, ///< only the first `count` bytes of the answer, and no line end
        Closed,    ///< the first `count` bytes of the answer, then the connection is closed
        Reset,     ///< the first `count` bytes of the answer, then the connection is reset
        Refused,   ///< the connection is closed, and for `delay` (0: for good) nobody listens any more
    };

    Kind kind = Kind::None;
    std::chrono::milliseconds delay{0};
    /// Where there is none: half of the answer for Truncated and Closed, 0 for Reset.
    std::optional<std::uint64_t> count{};
    std::string text{};
};

/// A script that can't be read. `what()` begins with "line N: ".
class FaultScriptError : public std::runtime_error {
public:
    FaultScriptError(int line, const std::string& reason);
    int line() const { return line_; }

private:
    int line_;
};

/// One step on the way of an answer to the client, to be done in order.
struct DeliveryStep {
    enum class End { None, Close, Reset, Refuse };

    /// To wait before the step.
    std::chrono::milliseconds wait{0};
    /// To send in one write; nothing when empty.
    std::string bytes{};
    /// To do after the bytes are sent.
    End end = End::None;
    /// With `End::Refuse`: how long nobody listens, 0 for good.
    std::chrono::milliseconds deaf{0};
    /// Held back until the next message of the same client has come.
    bool afterNext = false;
};

/// One line of a script: what happens at which occurrences of what, and how far it has come.
struct FaultRule {
    /// Matched against the message; empty for a connection.
    std::string pattern;
    /// The occurrences, counted from 1, both included.
    std::uint64_t first = 1;
    std::uint64_t last = 1;
    Fault fault;
    /// Occurrences so far.
    std::uint64_t seen = 0;
};

/// Rules by which the answers of an instrument go wrong. Each rule counts the messages that match it, over all
/// clients; of several that fall due at once the first one counts. Used by the server, and by tests without one.
class FaultScript {
public:
    /// No faults.
    FaultScript() = default;
    explicit FaultScript(std::vector<FaultRule> rules) : rules_(std::move(rules)) {}
    /// Reads rules, one a line. Throws `FaultScriptError`.
    static FaultScript parse(std::string_view text);

    /// A client has connected: what is to happen to it. None, Closed, Reset or Refused.
    Fault onConnect();
    /// A message has come: what is to happen to its answer.
    Fault onMessage(std::string_view message);

    const std::vector<FaultRule>& rules() const { return rules_; }

private:
    std::vector<FaultRule> rules_;
};

/// True when the client gets the right answer under the fault, however it comes.
bool leavesWhole(const Fault& fault);

/// The way of an answer under a fault. `answer` is without line end, and empty where the message asked nothing: then
/// nothing is sent but what the fault itself sends. `garbageSeed` picks the bytes of `Garbage`.
std::vector<DeliveryStep> deliver(const Fault& fault, std::string_view answer, std::uint64_t garbageSeed = 1);

} // namespace orb
